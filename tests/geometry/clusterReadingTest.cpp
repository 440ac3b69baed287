#include "geometry/clusterReading.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class ClusterReading : public testing::Test {
protected:
    // A row of two squares, six vertices, with one deformer behind the other: each of a driver, on some vertices.
    struct Link {
        std::string type, name, driver, vertices, attributes;
    };

    static std::string chained(const std::vector<Link>& links) {
        std::string text = deformedNode("body", row(2));
        std::string from = "bodyShapeOrig.w";
        int slot = 0;
        for (const Link& link : links) {
            if (text.find("\"" + link.driver + "\"") == std::string::npos && !link.driver.empty()) {
                text += nodeText(link.type == "cluster" ? "transform" : "joint", link.driver);
            }
            text += nodeText(link.type, link.name, "", link.attributes) + connectText(from, link.name + ".ip[0].ig");
            if (!link.driver.empty()) {
                text += connectText(link.driver + ".wm", link.name + ".ma");
            }
            if (!link.vertices.empty()) {
                text += deformerSet(link.name, "bodyShape", slot++, link.vertices);
            }
            from = link.name + ".og[0]";
        }
        return text + connectText(from, "bodyShape.i");
    }

    static std::string weightsOf(const std::string& numbers, int count) {
        return "setAttr -s " + std::to_string(count) + " \".wl[0].w[0:" + std::to_string(count - 1) + "]\" " + numbers +
               ";";
    }

    GeometrySession session;
};

TEST_F(ClusterReading, BindsTheMembersOfJointClustersWholly) {
    ASSERT_TRUE(session.readShapesOf(chained(
        {{"jointCluster", "rigid1", "joint1", "vtx[0:1]", ""}, {"jointCluster", "rigid2", "joint2", "vtx[2:3]", ""}})));
    EXPECT_EQ(session.binding(0), "joint1 100");
    EXPECT_EQ(session.binding(3), "joint2 100");
    EXPECT_EQ(session.binding(4), "body 100"); // in no set
    EXPECT_TRUE(session.shape().isSkinned);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(ClusterReading, GivesAVertexInTwoSetsToTheNearestJointCluster) {
    ASSERT_TRUE(session.readShapesOf(chained(
        {{"jointCluster", "far", "joint1", "vtx[0:3]", ""}, {"jointCluster", "near", "joint2", "vtx[2:3]", ""}})));
    EXPECT_EQ(session.binding(1), "joint1 100");
    EXPECT_EQ(session.binding(2), "joint2 100");
}

TEST_F(ClusterReading, WarnsOfAClusterWithoutASetAndSkipsIt) {
    ASSERT_TRUE(session.readShapesOf(
        chained({{"jointCluster", "rigid1", "joint1", "", ""}, {"jointCluster", "rigid2", "joint2", "vtx[2:3]", ""}})));
    EXPECT_EQ(session.takeMessages(), "Warning: No deformer set: rigid1\n");
    EXPECT_EQ(session.binding(0), "body 100");
    EXPECT_EQ(session.binding(2), "joint2 100");
}

TEST_F(ClusterReading, SkipsAJointClusterThatIsSwitchedOff) {
    ASSERT_TRUE(session.readShapesOf(chained({{"jointCluster", "rigid1", "joint1", "vtx[0:1]", "setAttr \".nds\" 1;"},
                                              {"jointCluster", "rigid2", "joint2", "vtx[2:3]", ""}})));
    EXPECT_EQ(session.takeMessages(), "Warning: Deformer is not effective: rigid1\n");
    EXPECT_EQ(session.binding(0), "body 100");
    EXPECT_EQ(session.binding(2), "joint2 100");
    EXPECT_EQ(session.mel("getAttr rigid1.nodeState"), "1");
    EXPECT_EQ(session.mel("getAttr rigid2.nodeState"), "0");
}

TEST_F(ClusterReading, RefusesAJointClusterThatNothingDrives) {
    EXPECT_FALSE(session.readShapesOf(chained({{"jointCluster", "rigid1", "", "vtx[0:1]", ""}})));
    EXPECT_EQ(session.takeMessages(), "Error: Influence object is not outputted: rigid1.matrix -> bodyShape\n");
}

TEST_F(ClusterReading, RefusesADriverThatIsNotExported) {
    session.open(chained({{"jointCluster", "rigid1", "joint1", "vtx[0:1]", ""}}));
    session.mel("select -r body");
    session.prepareRun("", MPxFileTranslator::kExportActiveAccessMode);
    EXPECT_FALSE(session.readOpenShapes());
    EXPECT_EQ(session.takeMessages(), "Error: Influence object is not outputted: |joint1 -> bodyShape\n");
}

TEST_F(ClusterReading, BlendsWhatAClusterLeavesWithTheShapesOwnNode) {
    ASSERT_TRUE(
        session.readShapesOf(chained({{"cluster", "soft", "handle", "vtx[0:3]", weightsOf("1 0.25 0.002 0", 4)}})));
    EXPECT_EQ(session.binding(0), "handle 100");
    EXPECT_EQ(session.binding(1), "handle 25, body 75");
    EXPECT_EQ(session.binding(2), "body 100"); // rounds to nothing
    EXPECT_EQ(session.binding(3), "body 100");
    EXPECT_EQ(session.binding(5), "body 100");
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(ClusterReading, BlendsTheClustersOfOneVertex) {
    ASSERT_TRUE(session.readShapesOf(chained({{"cluster", "far", "handle1", "vtx[0]", weightsOf("0.5", 1)},
                                              {"cluster", "near", "handle2", "vtx[0]", weightsOf("0.3", 1)}})));
    EXPECT_EQ(session.binding(0), "handle2 30, handle1 50, body 20");
}

TEST_F(ClusterReading, RefusesClustersThatTakeMoreThanAVertex) {
    EXPECT_FALSE(session.readShapesOf(chained({{"cluster", "far", "handle1", "vtx[1]", ""},
                                               {"cluster", "near", "handle2", "vtx[1]", weightsOf("0 0.1", 2)}})));
    EXPECT_EQ(session.takeMessages(), "Error: Wrong weighted vertices exist: |body|bodyShape.vtx[1]\n");
}

TEST_F(ClusterReading, GivesVerticesWhollyToTheGreatestShareWhenAsked) {
    ASSERT_TRUE(session.readShapesOf(chained({{"cluster", "soft", "handle", "vtx[0:2]", weightsOf("0.6 0.4 0", 3)}}),
                                     "force_full_weight=1"));
    EXPECT_EQ(session.binding(0), "handle 100");
    EXPECT_EQ(session.binding(1), "body 100");
    EXPECT_EQ(session.binding(2), "body 100");
}

TEST_F(ClusterReading, TellsOfASkinThatAClusterHides) {
    SkinSpec skin;
    skin.influences = {"joint1"};
    skin.weights.assign(6, {1});
    skin.to = "";
    ASSERT_TRUE(session.readShapesOf(
        deformedNode("body", row(2)) + nodeText("joint", "joint1") + nodeText("transform", "handle") + skinText(skin) +
        deformerText("cluster", "soft", "skin.og[0]", "bodyShape.i") + connectText("handle.wm", "soft.ma") +
        deformerSet("soft", "bodyShape", 0, "vtx[*]")));
    EXPECT_EQ(session.takeMessages(), "Warning: Deformer is ignored: skin -> bodyShape\n");
    EXPECT_EQ(session.binding(0), "handle 100");
}

} // namespace
} // namespace tvk
