#include "host/nodes/layerCompute.h"

#include "GraphFixture.h"

#include "host/nodes/transformMatrix.h"

#include <gmock/gmock.h>

namespace host {
namespace {

class Layer : public GraphFixture {
protected:
    Node& layer = make("animLayer", "layer1");
    double foreground() { return number(layer, "foregroundWeight"); }
    double background() { return number(layer, "backgroundWeight"); }
};

TEST_F(Layer, AddsByItsWeight) {
    EXPECT_EQ(foreground(), 1.0);
    EXPECT_EQ(background(), 1.0);
    set(layer, "weight", 0.25);
    EXPECT_EQ(foreground(), 0.25);
    EXPECT_EQ(background(), 1.0);
}

TEST_F(Layer, TakesFromWhatIsBelowWhenItOverrides) {
    set(layer, "weight", 0.25);
    set(layer, "override", 1);
    EXPECT_EQ(background(), 0.75);
    set(layer, "passthrough", 0);
    EXPECT_EQ(background(), 0.0);
    EXPECT_EQ(foreground(), 0.25);
}

TEST_F(Layer, GivesNothingWhileItIsMuted) {
    set(layer, "override", 1);
    set(layer, "mute", 1);
    EXPECT_EQ(foreground(), 0.0);
    EXPECT_EQ(background(), 1.0);
    EXPECT_EQ(number(layer, "outMute"), 1.0);
}

TEST_F(Layer, FollowsItsParent) {
    Node& child = make("animLayer", "child");
    connect(layer, "fgwt", child, "pwth");
    connect(layer, "omte", child, "pmte");
    set(layer, "weight", 0.5);
    set(child, "weight", 0.5);
    EXPECT_EQ(number(child, "fgwt"), 0.25);
    set(layer, "mute", 1);
    EXPECT_EQ(number(child, "fgwt"), 0.0);
}

TEST_F(Layer, IsMutedWhileAnotherPlaysAlone) {
    std::vector<std::string> warnings;
    graph.onWarning = [&](const std::string& line) { warnings.push_back(line); };
    Node& base = make("animLayer", "BaseAnimation");
    Node& other = make("animLayer", "layer2");
    int index = 0;
    for (Node* each : {&layer, &other}) {
        connect(*each, "sl", base, "chsl[" + std::to_string(index++) + "]");
        connect(base, "csol", *each, "sslo");
    }
    EXPECT_EQ(foreground(), 1.0);
    set(other, "solo", 1);
    EXPECT_EQ(foreground(), 0.0);
    EXPECT_EQ(number(other, "fgwt"), 1.0);
    EXPECT_EQ(number(base, "fgwt"), 1.0) << "it has a child that plays";
    EXPECT_THAT(warnings, testing::ElementsAre("animation layer layer2 plays alone: the other layers are muted, the "
                                               "animation below all layers is not"));
}

class LayerBlend : public GraphFixture {
protected:
    Node& blend(const char* type, double a, double b, double weightA, double weightB) {
        Node& node = make(type, "blend1");
        set(node, "inputA", a);
        set(node, "inputB", b);
        set(node, "weightA", weightA);
        set(node, "weightB", weightB);
        return node;
    }
    Imath::V3d angles(Node& node) { return {number(node, "ox"), number(node, "oy"), number(node, "oz")}; }
};

TEST_F(LayerBlend, OfNumbersIsTheWeightedSum) {
    for (const char* type :
         {"animBlendNodeAdditive", "animBlendNodeAdditiveDA", "animBlendNodeAdditiveDL", "animBlendNodeAdditiveF",
          "animBlendNodeAdditiveFA", "animBlendNodeAdditiveFL", "animBlendNodeTime"}) {
        EXPECT_EQ(number(blend(type, 3, 4, 1, 0.5), "output"), 5.0) << type;
    }
    EXPECT_EQ(number(blend("animBlendNodeAdditiveI16", 3, 4, 0, 1), "output"), 4.0);
    EXPECT_EQ(number(make("animBlendNodeAdditiveI32", "fresh"), "output"), 0.0);
}

TEST_F(LayerBlend, FollowsTheLayer) {
    Node& layer = make("animLayer", "layer1");
    Node& node = blend("animBlendNodeAdditiveDL", 3, 4, 1, 1);
    connect(layer, "bgwt", node, "wa");
    connect(layer, "fgwt", node, "wb");
    Node& joint = make("joint", "joint1");
    connect(node, "o", joint, "ty");
    EXPECT_EQ(number(joint, "ty"), 7.0);
    set(layer, "override", 1);
    EXPECT_EQ(number(joint, "ty"), 4.0);
    set(layer, "mute", 1);
    EXPECT_EQ(number(joint, "ty"), 3.0);
}

TEST_F(LayerBlend, OfWhatCannotBeMixedIsOneOfTheTwo) {
    for (const char* type : {"animBlendNodeBoolean", "animBlendNodeEnum"}) {
        EXPECT_EQ(number(blend(type, 0, 1, 1, 1), "output"), 1.0) << type;
        EXPECT_EQ(number(blend(type, 0, 1, 0.6, 0.4), "output"), 0.0) << type;
    }
}

TEST_F(LayerBlend, OfScalesMultipliesPowersUnlessItAdds) {
    Node& node = blend("animBlendNodeAdditiveScale", 2, 9, 1, 0.5);
    EXPECT_DOUBLE_EQ(number(node, "output"), 6.0);
    set(node, "accumulationMode", 1);
    EXPECT_DOUBLE_EQ(number(node, "output"), 6.5);
    set(node, "accumulationMode", 0);
    set(node, "inputB", -3);
    EXPECT_DOUBLE_EQ(number(node, "output"), -6.0);
    EXPECT_EQ(number(make("animBlendNodeAdditiveScale", "fresh"), "output"), 1.0);
}

class RotationBlend : public LayerBlend {
protected:
    RotationBlend() : node(make("animBlendNodeAdditiveRotation", "blend1")) {}
    Node& node;
};

TEST_F(RotationBlend, AddsAngleByAngle) {
    set3(node, "inputA", 0.1, 0.2, 0.3);
    set3(node, "inputB", 1, 2, 4);
    set(node, "weightB", 0.5);
    EXPECT_TRUE(angles(node).equalWithAbsError({0.6, 1.2, 2.3}, 1e-12));
}

TEST_F(RotationBlend, TurnsByTheLayerBeforeWhatIsBelow) {
    set(node, "accumulationMode", 1);
    set3(node, "inputA", 90 * kDegree, 0, 0);
    set3(node, "inputB", 0, 0, 90 * kDegree);
    // Turned about z first, x comes to lie along y, and about x then along z.
    const Imath::M33d turn = rotationMatrix(angles(node), RotateOrder::kXYZ);
    EXPECT_TRUE(turn.equalWithAbsError(Imath::M33d(0, 0, 1, -1, 0, 0, 0, -1, 0), 1e-12));
}

TEST_F(RotationBlend, GoesPartOfTheWay) {
    set(node, "accumulationMode", 1);
    set3(node, "inputA", 0, 0, 90 * kDegree);
    set3(node, "inputB", 90 * kDegree, 0, 0);
    set(node, "weightB", 0.5);
    EXPECT_TRUE(angles(node).equalWithAbsError({45 * kDegree, 0, 90 * kDegree}, 1e-9));
    set(node, "weightB", 0);
    EXPECT_EQ(angles(node), Imath::V3d(0, 0, 90 * kDegree)) << "untouched";
}

TEST_F(RotationBlend, LiesBetweenTheTwoWhenTheLayerOverrides) {
    set(node, "accumulationMode", 1);
    set3(node, "inputA", 0, 0, 170 * kDegree);
    set3(node, "inputB", 0, 0, -170 * kDegree);
    set(node, "weightA", 0.5);
    set(node, "weightB", 0.5);
    EXPECT_NEAR(std::abs(angles(node).z), 180 * kDegree, 1e-9);
    set(node, "weightA", 0);
    set(node, "weightB", 1);
    EXPECT_EQ(angles(node).z, -170 * kDegree);
}

class Mute : public GraphFixture {};

TEST_F(Mute, HoldsWhatItHeldWhileItMutes) {
    Node& node = make("mute", "mute1");
    Node& joint = make("joint", "joint1");
    set(node, "input", 3);
    set(node, "hold", 5);
    connect(node, "output", joint, "ty");
    EXPECT_EQ(number(joint, "ty"), 3.0);
    set(node, "mute", 1);
    EXPECT_EQ(number(joint, "ty"), 5.0);
}

} // namespace
} // namespace host
