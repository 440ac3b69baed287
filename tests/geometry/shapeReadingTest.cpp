#include "geometry/shapeReading.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "scene/messages.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class ShapeReading : public testing::Test {
protected:
    void expectRefused(const std::string& statements, const std::string& message) {
        EXPECT_FALSE(session.readShapesOf(statements));
        EXPECT_EQ(session.takeMessages(), message);
    }

    static std::string skinned(const std::string& attributes = "", const MeshSpec& mesh = square()) {
        SkinSpec skin;
        skin.influences = {"joint1"};
        skin.weights.assign(mesh.points.size(), {1});
        skin.attributes = attributes;
        return deformedNode("body", mesh) + nodeText("joint", "joint1") + skinText(skin);
    }

    // A skin on a cube that the host makes; the scene holds another mesh as the original.
    static std::string skinnedCube(const MeshSpec& original) {
        SkinSpec skin;
        skin.influences = {"joint1"};
        skin.weights.assign(8, {1});
        skin.from = "cube.out";
        return deformedNode("body", original) + nodeText("joint", "joint1") + nodeText("polyCube", "cube") +
               nodeText("groupParts", "elsewhere") + connectText("bodyShapeOrig.w", "elsewhere.ig") + skinText(skin);
    }

    std::string nodeState(const std::string& node) { return session.mel("getAttr " + node + ".nodeState"); }

    GeometrySession session;
};

TEST_F(ShapeReading, RefusesAMeshWithoutPolygons) {
    expectRefused(meshNode("body", MeshSpec()), "Error: No polygon in mesh node: bodyShape\n");
}

TEST_F(ShapeReading, RefusesAMeshOfPointsWithoutFaces) {
    MeshSpec mesh;
    mesh.points = {{0, 0, 0}, {1, 0, 0}};
    expectRefused(meshNode("body", mesh), "Error: No polygon in mesh node: bodyShape\n");
}

TEST_F(ShapeReading, RefusesPointsThatAreNotNumbers) {
    MeshSpec mesh = square();
    mesh.attributes = "setAttr \".pt[2]\" -type \"float3\" 0 nan 0;";
    expectRefused(meshNode("body", mesh), "Error: Invalid vertex exists: |body|bodyShape.vtx[2]\n");
}

TEST_F(ShapeReading, RefusesInfinitePoints) {
    MeshSpec mesh = square();
    mesh.attributes = "setAttr \".pt[3]\" -type \"float3\" inf 0 0;";
    expectRefused(meshNode("body", mesh), "Error: Invalid vertex exists: |body|bodyShape.vtx[3]\n");
}

TEST_F(ShapeReading, TakesPointsFromThePivotAndMagnified) {
    ASSERT_TRUE(session.readShapesOf(meshNode("body", square(), set3("sp", 0.5, 0, 0)), "magnify=2"));
    const std::vector<Vector3> expected{{-1, 0, 0}, {1, 0, 0}, {1, 2, 0}, {-1, 2, 0}};
    EXPECT_EQ(session.shape().points, expected);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(ShapeReading, CountsVerticesAndFaces) {
    ASSERT_TRUE(session.readShapesOf(meshNode("a", row(3)) + meshNode("b", square())));
    EXPECT_EQ(session.shape(0).vertexCount, 8);
    EXPECT_EQ(session.shape(0).faceCount, 3);
    EXPECT_EQ(session.shape(1).firstVertex, 8);
    EXPECT_EQ(session.scene().vertexMatrices.size(), 12U);
}

TEST_F(ShapeReading, BindsUnskinnedVerticesToTheirOwnNode) {
    ASSERT_TRUE(session.readShapesOf(meshNode("a", square()) + meshNode("b", square())));
    ASSERT_EQ(session.scene().matrices.size(), 2U);
    EXPECT_EQ(session.binding(0), "a 100");
    EXPECT_EQ(session.binding(7), "b 100");
    EXPECT_TRUE(session.record("a").drawMtx);
    EXPECT_FALSE(session.shape().isSkinned);
    EXPECT_FALSE(session.shape().isDeformed());
}

TEST_F(ShapeReading, MakesAShapeOfEveryInstance) {
    ASSERT_TRUE(session.readShapesOf(meshNode("a", square()) + nodeText("transform", "b", "", "setAttr \".tx\" 5;") +
                                     "parent -s -nc -r -add \"|a|aShape\" \"b\";\n"));
    ASSERT_EQ(session.scene().shapes.size(), 2U);
    EXPECT_EQ(session.binding(0), "a 100");
    EXPECT_EQ(session.binding(4), "b 100");
}

TEST_F(ShapeReading, FindsTheOriginalMeshOfASkin) {
    ASSERT_TRUE(session.readShapesOf(skinned()));
    EXPECT_TRUE(session.shape().isDeformed());
    EXPECT_TRUE(session.shape().hasOriginalMesh);
    EXPECT_EQ(session.takeMessages(), "");
}

// What the skin deforms is no mesh of the scene any more, so that the recorded original counts.
TEST_F(ShapeReading, RefusesAVertexNumberOtherThanTheOriginals) {
    expectRefused(skinnedCube(square()), "Error: Vertex number is different from original mesh: bodyShape\n"
                                         "       original = 4, current = 8\n");
    EXPECT_EQ(nodeState("skin"), "0");
}

TEST_F(ShapeReading, DoesNotCompareVerticesWhenNodesAreUnited) {
    ASSERT_TRUE(session.readShapesOf(skinnedCube(square()), "optimize_node=3"));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(ShapeReading, WarnsOfANormalNumberOtherThanTheOriginals) {
    MeshSpec soft = row(3); // eight vertices as well
    soft.hard = false;
    ASSERT_TRUE(session.readShapesOf(skinnedCube(soft)));
    EXPECT_EQ(session.takeMessages(), "Warning: Normal number is different from original mesh: bodyShape\n"
                                      "         original = 8, current = 24\n");
    EXPECT_TRUE(warningRaised());
}

TEST_F(ShapeReading, ReadsTheBindPoseAndPutsNodeStatesBack) {
    // The joint moved on since it was bound at the origin.
    const std::string scene = skinned() + "setAttr \"joint1.tx\" 5;\n";
    ASSERT_TRUE(session.readShapesOf(scene));
    const std::vector<Vector3> expected{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    EXPECT_EQ(session.shape().points, expected);
    EXPECT_EQ(nodeState("skin"), "0");
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(ShapeReading, ReadsTheCurrentPoseWhenNodesAreUnited) {
    ASSERT_TRUE(session.readShapesOf(skinned() + "setAttr \"joint1.tx\" 5;\n", "optimize_node=3"));
    EXPECT_EQ(session.shape().points[1], (Vector3{6, 0, 0}));
    ASSERT_EQ(session.scene().matrices.size(), 1U);
    EXPECT_EQ(session.binding(0), "world_root 100");
    EXPECT_EQ(session.infos,
              (std::vector<std::string>{"The pose at the start frame is exported, as nodes are united: body"}));
}

TEST_F(ShapeReading, PutsNodeStatesBackWhenItFails) {
    MeshSpec mesh = square();
    mesh.points[1][0] = 1e300; // more than the host's points hold
    EXPECT_FALSE(session.readShapesOf(skinned("", mesh)));
    EXPECT_EQ(session.takeMessages(), "Error: Invalid vertex exists: |body|bodyShape.vtx[1]\n");
    EXPECT_EQ(nodeState("skin"), "0");
}

TEST_F(ShapeReading, ReadsTheOriginalBehindADeformerThatIsLocked) {
    ASSERT_TRUE(session.readShapesOf(skinned() + "setAttr \"joint1.tx\" 5;\nsetAttr -l on \"skin.nodeState\";\n"));
    EXPECT_EQ(session.shape().points[1], (Vector3{1, 0, 0}));
    EXPECT_EQ(nodeState("skin"), "0");
}

TEST_F(ShapeReading, LeavesTheSelectionAlone) {
    session.open(skinned() + nodeText("transform", "other"));
    session.mel("select -r other joint1");
    session.prepareRun();
    ASSERT_TRUE(session.readOpenShapes());
    EXPECT_EQ(session.mel("string $s[] = `ls -sl`; $s[0] + \" \" + $s[1]"), "other joint1");
}

TEST_F(ShapeReading, LeavesHiddenMeshesOutOfUnitedModels) {
    const std::string scene = meshNode("shown", square()) + meshNode("hidden", square(), "setAttr \".v\" no;");
    ASSERT_TRUE(session.readShapesOf(scene, "optimize_node=3"));
    EXPECT_EQ(session.scene().shapes.size(), 1U);
    EXPECT_EQ(session.takeMessages(), "Warning: Hidden mesh is ignored: hiddenShape\n");
}

TEST_F(ShapeReading, KeepsHiddenMeshesOtherwise) {
    ASSERT_TRUE(session.readShapesOf(meshNode("hidden", square(), "setAttr \".v\" no;")));
    EXPECT_EQ(session.scene().shapes.size(), 1U);
    EXPECT_EQ(session.takeMessages(), "");
}

// A modelling deformer goes on shaping the mesh: only what a skeleton drives is taken back.
TEST_F(ShapeReading, KeepsWhatModellingDeformersDo) {
    const std::string tweak = deformerText("tweak", "tweak", "bodyShapeOrig.w", "skin.ip[0].ig",
                                           "setAttr \".vl[0].vt[1]\" -type \"float3\" 0 0 3;");
    SkinSpec skin;
    skin.influences = {"joint1"};
    skin.weights.assign(4, {1});
    skin.from = "";
    ASSERT_TRUE(
        session.readShapesOf(deformedNode("body", square()) + nodeText("joint", "joint1") + skinText(skin) + tweak));
    EXPECT_EQ(session.shape().points[1], (Vector3{1, 0, 3}));
}

} // namespace
} // namespace tvk
