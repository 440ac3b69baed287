#include "geometry/bindPose.h"
#include "geometry/clusterReading.h"
#include "geometry/shadingGroups.h"
#include "geometry/skinWeights.h"

#include "GeometrySession.h"
#include "export/nodeTransforms.h"
#include "export/nodeTree.h"
#include "geometry/shapeReading.h"
#include "meshScene.h"
#include "scene/hostCompatibility.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

// What a sound scene never makes the host refuse.
class RefusedReads : public testing::Test {
protected:
    // Two bodies, each with a skin and a cluster set of its own.
    void openTwoSkins() {
        SkinSpec skin;
        skin.influences = {"joint1"};
        skin.weights.assign(4, {1});
        SkinSpec other = skin;
        other.name = "otherSkin";
        other.from = "coatShapeOrig.w";
        other.to = "coatShape.i";
        session.open(deformedNode("body", square()) + deformedNode("coat", square()) + nodeText("joint", "joint1") +
                     skinText(skin) + skinText(other));
        session.prepareRun();
    }

    // A record of a shape that another node's reader is asked about.
    ShapeRecord shapeOf(const std::string& name) {
        ShapeRecord shape;
        shape.path = session.path(name);
        shape.name = name;
        shape.node = &node;
        shape.vertexCount = 4;
        shape.influences = {{&node, MMatrix::identity}};
        return shape;
    }

    GeometrySession session;
    NodeRecord node;
    std::vector<MatrixRecord> matrices;
    std::vector<EnvelopeEntry> envelope;
    std::vector<int32_t> vertexMatrices;
    MatrixPalette palette{matrices, envelope};
};

TEST_F(RefusedReads, OfWeightsNameTheFirstVertexThatHasNone) {
    openTwoSkins();
    const ShapeRecord shape = shapeOf("coatShape");
    VertexBinder binder(shape, palette, vertexMatrices);
    EXPECT_FALSE(bindToSkin(session.node("skin"), shape, binder));
    EXPECT_EQ(session.takeMessages(), "Error: Can't get skin weight: |coat|coatShape.vtx[0]\n");
}

TEST_F(RefusedReads, OfANodeThatIsNoSkinNameTheShape) {
    openTwoSkins();
    const ShapeRecord shape = shapeOf("bodyShape");
    VertexBinder binder(shape, palette, vertexMatrices);
    EXPECT_FALSE(bindToSkin(session.node("joint1"), shape, binder));
    EXPECT_EQ(session.takeMessages(), "Error: Can't get skin weight: |body|bodyShape.vtx[0]\n");
}

// The set has vertices of a shape that the cluster does not deform.
TEST_F(RefusedReads, OfAClustersWeightsNameTheFirstMember) {
    session.open(deformedNode("body", square()) + meshNode("coat", square()) +
                 deformerText("cluster", "soft", "bodyShapeOrig.w", "bodyShape.i") +
                 deformerSet("soft", "coatShape", 0, "vtx[2:3]"));
    session.prepareRun();
    const ShapeRecord shape = shapeOf("coatShape");
    VertexBinder binder(shape, palette, vertexMatrices);
    SkinSource source;
    source.kind = DeformerKind::kCluster;
    source.deformers.push_back({session.node("soft"), DeformerKind::kCluster, 0});
    EXPECT_FALSE(bindToClusters(source, shape, binder));
    EXPECT_EQ(session.takeMessages(), "Error: Can't get skin weight: |coat|coatShape.vtx[2]\n");
}

TEST_F(RefusedReads, OfShadingGroupsNameTheShape) {
    session.open(nodeText("transform", "a") + nodeText("locator", "aShape", "a"));
    std::vector<ShadingAssignment> assignments;
    EXPECT_FALSE(findShadingAssignments(shapeOf("aShape"), assignments));
    EXPECT_EQ(session.takeMessages(), "Error: getConnectedSetsAndMembers: aShape\n");
}

TEST_F(RefusedReads, OfAShapeThatIsNoMeshAnyMoreNameTheShape) {
    session.open(meshNode("a", square()) + nodeText("transform", "b") + nodeText("locator", "bShape", "b"));
    session.prepareRun();
    ASSERT_TRUE(buildNodeTree());
    ASSERT_TRUE(readNodeTransforms(findBindMatrix));
    session.record("a").shape = session.path("bShape");
    EXPECT_FALSE(readShapes());
    EXPECT_EQ(session.takeMessages(), "Error: Invalid mesh: bShape\n");
}

TEST_F(RefusedReads, OfABindMatrixWarnAndFindNone) {
    session.open(nodeText("transform", "a", "", "addAttr -ci true -sn \"word\" -ln \"word\" -dt \"string\";"));
    const MObject object = session.node("a");
    EXPECT_FALSE(readBindMatrix(findPlug(MFnDependencyNode(object), "word")).has_value());
    EXPECT_EQ(session.takeMessages(), "Warning: Get bind pre matrix failed: a.word\n");
}

} // namespace
} // namespace tvk
