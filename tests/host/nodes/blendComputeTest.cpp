#include "host/nodes/blendCompute.h"

#include "GraphFixture.h"

namespace host {
namespace {

class PairBlend : public GraphFixture {
protected:
    PairBlend() : node(make("pairBlend", "pairBlend1")) {
        set(node, "itx1", 2);
        set(node, "itx2", 6);
        set(node, "irz1", 0.1);
        set(node, "irz2", 0.5);
    }
    Node& node;
};

TEST_F(PairBlend, GivesTheSecondInputUnlessTheWeightSaysOtherwise) {
    EXPECT_EQ(number(node, "outTranslateX"), 6.0);
    EXPECT_EQ(number(node, "orz"), 0.5);
}

TEST_F(PairBlend, MixesEachChannelByTheWeight) {
    set(node, "weight", 0.25);
    EXPECT_DOUBLE_EQ(number(node, "otx"), 3.0);
    EXPECT_EQ(number(node, "oty"), 0.0);
    EXPECT_DOUBLE_EQ(number(node, "orz"), 0.2);
    set(node, "weight", 0);
    EXPECT_EQ(number(node, "otx"), 2.0);
}

TEST_F(PairBlend, TakesOneInputWhereTheModeSaysSo) {
    set(node, "weight", 0.25);
    set(node, "translateXMode", 1);
    EXPECT_EQ(number(node, "otx"), 2.0);
    set(node, "txm", 2);
    EXPECT_EQ(number(node, "otx"), 6.0);
    set(node, "rotateMode", 1);
    EXPECT_EQ(number(node, "orz"), 0.1);
    EXPECT_EQ(number(node, "orx"), 0.0);
}

TEST_F(PairBlend, TurnsAsAWholeByQuaternions) {
    set(node, "irz1", 170 * kDegree);
    set(node, "irz2", -170 * kDegree);
    set(node, "weight", 0.5);
    EXPECT_NEAR(number(node, "orz"), 0.0, 1e-12) << "angle by angle";
    set(node, "rotInterpolation", 1);
    EXPECT_NEAR(std::abs(number(node, "orz")), 180 * kDegree, 1e-9);
}

TEST_F(PairBlend, FollowsItsInputs) {
    Node& joint = make("joint", "joint1");
    connect(node, "otx", joint, "tx");
    EXPECT_EQ(number(joint, "tx"), 6.0);
    set(node, "itx2", 7);
    EXPECT_EQ(number(joint, "tx"), 7.0);
}

} // namespace
} // namespace host
