#include "geometry/bindPose.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class BindPoseSearch : public testing::Test {
protected:
    // A body on the first of two joints; both are connected, and were bound one unit up.
    static std::string skinned(const std::string& attributes = "") {
        SkinSpec skin;
        skin.influences = {"joint1", "joint2"};
        skin.bindInverses = {movedMatrix(0, -1, 0), movedMatrix(0, -1, 0)};
        skin.weights.assign(4, {1, 0});
        skin.attributes = attributes;
        return deformedNode("body", square()) + nodeText("joint", "joint1") + nodeText("joint", "joint2") +
               nodeText("joint", "joint3") + skinText(skin);
    }

    void expectWorld(const std::string& name, double x, double y, double z) {
        const MMatrix& world = session.record(name).exportedWorld;
        EXPECT_NEAR(world(3, 0), x, 1e-9);
        EXPECT_NEAR(world(3, 1), y, 1e-9);
        EXPECT_NEAR(world(3, 2), z, 1e-9);
    }

    GeometrySession session;
};

TEST_F(BindPoseSearch, ExportsInfluencesAsTheyWereBoundWithAndWithoutWeight) {
    ASSERT_TRUE(session.readShapesOf(skinned() + "setAttr \"joint1.tx\" 9; setAttr \"joint3.tx\" 9;\n"));
    EXPECT_FALSE(session.record("joint1").bindPoseExempt);
    EXPECT_FALSE(session.record("joint2").bindPoseExempt);
    EXPECT_TRUE(session.record("joint3").bindPoseExempt);
    EXPECT_TRUE(session.record("body").bindPoseExempt);
    expectWorld("joint1", 0, 1, 0);
    expectWorld("joint2", 0, 1, 0);
    expectWorld("joint3", 9, 0, 0);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BindPoseSearch, LeavesInfluencesOfASkinThatIsOffAsTheyAre) {
    ASSERT_TRUE(session.readShapesOf(skinned("setAttr \".nds\" 1;") + "setAttr \"joint1.tx\" 9;\n"));
    EXPECT_TRUE(session.record("joint1").bindPoseExempt);
    expectWorld("joint1", 9, 0, 0);
}

TEST_F(BindPoseSearch, LeavesUnitedNodesAsTheyAre) {
    ASSERT_TRUE(session.readShapesOf(skinned() + "setAttr \"joint1.tx\" 9;\n", "optimize_node=3"));
    EXPECT_TRUE(session.record("joint1").bindPoseExempt);
    expectWorld("joint1", 9, 0, 0);
}

TEST_F(BindPoseSearch, TakesTheFirstOfSeveralSkins) {
    SkinSpec second;
    second.name = "second";
    second.influences = {"joint1"};
    second.bindInverses = {movedMatrix(0, -7, 0)};
    second.weights.assign(4, {1});
    second.from = "coatShapeOrig.w";
    second.to = "coatShape.i";
    ASSERT_TRUE(session.readShapesOf(skinned() + deformedNode("coat", square()) + skinText(second)));
    expectWorld("joint1", 0, 1, 0);
}

TEST_F(BindPoseSearch, FindsThatOfJointClustersAndClusters) {
    for (const char* const type : {"jointCluster", "cluster"}) {
        ASSERT_TRUE(session.readShapesOf(
            deformedNode("body", square()) + nodeText("joint", "joint1", "", "setAttr \".tx\" 9;") +
            deformerText(type, "rigid", "bodyShapeOrig.w", "bodyShape.i",
                         "setAttr \".pm\" -type \"matrix\" " + movedMatrix(0, -1, 0) + ";") +
            connectText("joint1.wm", "rigid.ma") + deformerSet("rigid", "bodyShape", 0, "vtx[*]")));
        expectWorld("joint1", 0, 1, 0);
        EXPECT_EQ(session.takeMessages(), "");
    }
}

TEST_F(BindPoseSearch, FindsNothingBehindADeformerWithoutOutput) {
    session.open(nodeText("joint", "joint1") + nodeText("skinCluster", "skin") +
                 connectText("joint1.wm", "skin.ma[0]"));
    NodeRecord node;
    node.path = session.path("joint1");
    EXPECT_FALSE(findBindMatrix(node).has_value());
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BindPoseSearch, FindsNothingForANodeThatDrivesNothing) {
    session.open(nodeText("joint", "joint1") + nodeText("transform", "other") + connectText("joint1.wm", "other.opm"));
    NodeRecord node;
    node.path = session.path("joint1");
    EXPECT_FALSE(findBindMatrix(node).has_value());
}

} // namespace
} // namespace tvk
