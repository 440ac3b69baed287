#include "geometry/vertexPlacement.h"

#include "GeometrySession.h"
#include "geometry/Affine.h"
#include "meshScene.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvk {
namespace {

class VertexPlacement : public testing::Test {
protected:
    // Where a reader of the file finds a vertex of a shape: blended by the written matrices and the nodes' exported
    // worlds.
    Vector3 drawn(std::size_t vertex, std::size_t place = 0) const {
        const SceneData& scene = session.scene();
        const ShapeRecord& shape = session.shape(place);
        const auto index = static_cast<std::size_t>(shape.firstVertex) + vertex;
        const MatrixRecord& matrix = scene.matrices.at(static_cast<std::size_t>(scene.vertexMatrices.at(index)));
        const double scale = std::ldexp(1.0, scene.positionScale);
        Vector3 point = shape.outputPoints.at(vertex);
        for (double& component : point) {
            component *= scale;
        }
        return matrix.isBlend() ? point : Affine(matrix.node->exportedWorld).point(point);
    }

    static void expectNear(const Vector3& point, const Vector3& expected, double tolerance = 1e-9) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(point[i], expected[i], tolerance) << "component " << i;
        }
    }

    // A square body on two joints; vertices 0 and 3 on the first, 1 on the second, 2 on both.
    static SkinSpec twoJoints() {
        SkinSpec skin;
        skin.influences = {"joint1", "joint2"};
        skin.bindInverses = {movedMatrix(0, 0, 0), movedMatrix(-1, 0, 0)};
        skin.weights = {{1, 0}, {0, 1}, {0.5, 0.5}, {1, 0}};
        return skin;
    }
    static std::string joints(const std::string& first = "", const std::string& second = "setAttr \".tx\" 1;") {
        return nodeText("joint", "joint1", "", first) + nodeText("joint", "joint2", "", second);
    }

    GeometrySession session;
};

TEST_F(VertexPlacement, OfAnUnskinnedShapeIsItsOwnNodesFrame) {
    ASSERT_TRUE(session.gatherFrom(
        meshNode("a", square(), set3("t", 5, 0, 0) + set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0) + set3("r", 0, 0, 90))));
    // The corner (1, 0, 0) is the pivot, the corner (0, 0, 0) turns round it to (1, -1, 0).
    expectNear(drawn(1), {6, 0, 0});
    expectNear(drawn(0), {6, -1, 0});
    EXPECT_EQ(session.shape().outputPoints[1], (Vector3{0, 0, 0}));
}

TEST_F(VertexPlacement, OfBlendedAndForeignVerticesIsTheBoundShape) {
    ASSERT_TRUE(session.gatherFrom(deformedNode("body", square()) + joints() + skinText(twoJoints())));
    const MeshSpec mesh = square();
    for (std::size_t i = 0; i < 4; ++i) {
        const auto& point = mesh.points[i];
        expectNear(drawn(i), {point[0], point[1], point[2]});
    }
    expectNear(session.shape().outputPoints[1], {0, 0, 0}); // from the second joint
    expectNear(session.shape().outputPoints[2], {1, 1, 0}); // a blend is in the world
}

TEST_F(VertexPlacement, OfACharacterMovedAfterBindingIsWhereItWasBound) {
    const std::string posed = joints("setAttr \".tx\" 100;", "setAttr \".tx\" 105; setAttr \".rz\" 30;");
    ASSERT_TRUE(session.gatherFrom(deformedNode("body", square()) + posed + skinText(twoJoints())));
    expectNear(drawn(1), {1, 0, 0});
    expectNear(drawn(2), {1, 1, 0});
    EXPECT_EQ(session.takeMessages(), "");
}

// The mesh moved since it was bound; its geometry matrix says where it was.
TEST_F(VertexPlacement, OfASkinnedShapeTakesTheMeshsWorldAtBinding) {
    SkinSpec skin = twoJoints();
    skin.attributes = "setAttr \".gm\" -type \"matrix\" " + movedMatrix(0, 2, 0) + ";";
    ASSERT_TRUE(session.gatherFrom(deformedNode("body", square(), "setAttr \".tx\" 50;") + joints() + skinText(skin)));
    expectNear(drawn(0), {0, 2, 0});
    expectNear(drawn(2), {1, 3, 0});
}

TEST_F(VertexPlacement, OfASkinWhoseGeometryMatrixIsFlatTakesTheMeshsWorld) {
    SkinSpec skin = twoJoints();
    skin.attributes = "setAttr \".gm\" -type \"matrix\" 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1;";
    ASSERT_TRUE(session.gatherFrom(deformedNode("body", square(), "setAttr \".tx\" 3;") + joints() + skinText(skin)));
    expectNear(drawn(2), {4, 1, 0});
}

// Two skins share a joint but were bound in different poses. The second comes out skinned into the first's pose.
TEST_F(VertexPlacement, OfASecondSkinBoundInAnotherPoseIsSkinnedIntoTheExportedOne) {
    SkinSpec second = twoJoints();
    second.name = "second";
    second.from = "coatShapeOrig.w";
    second.to = "coatShape.i";
    second.bindInverses = {movedMatrix(0, 0, 0), movedMatrix(-1, -4, 0)}; // joint2 was four higher
    ASSERT_TRUE(session.gatherFrom(deformedNode("body", square()) + deformedNode("coat", square()) + joints() +
                                   skinText(twoJoints()) + skinText(second)));
    expectNear(drawn(1, 0), {1, 0, 0});
    expectNear(drawn(0, 1), {0, 0, 0});
    expectNear(drawn(1, 1), {1, -4, 0});
    expectNear(drawn(2, 1), {1, -1, 0}); // half of the way
}

TEST_F(VertexPlacement, OfASelectionIsInTheSpaceOfItsParent) {
    session.open(nodeText("transform", "outer", "", "setAttr \".tx\" 100;") + deformedNode("body", square()) +
                 nodeText("joint", "joint1", "outer") + skinText([] {
                     SkinSpec skin;
                     skin.influences = {"joint1"};
                     skin.bindInverses = {movedMatrix(-100, 0, 0)};
                     skin.weights.assign(4, {1});
                     skin.attributes = "setAttr \".gm\" -type \"matrix\" " + movedMatrix(100, 0, 0) + ";";
                     return skin;
                 }()) +
                 "parent \"body\" \"outer\";\n");
    session.mel("select -r body joint1");
    session.prepareRun("", MPxFileTranslator::kExportActiveAccessMode);
    ASSERT_TRUE(session.readOpenShapes());
    placeVertices(session.scene(), false);
    expectNear(drawn(1), {1, 0, 0});
}

TEST_F(VertexPlacement, OfAnEmptyModelNeedsNoScale) {
    ASSERT_TRUE(session.gatherFrom(nodeText("transform", "a")));
    EXPECT_EQ(session.scene().positionScale, 0);
    EXPECT_EQ(session.scene().boxMin, Vector3{});
    EXPECT_EQ(session.scene().boxMax, Vector3{});
}

TEST_F(VertexPlacement, OfAMagnifiedModelMagnifiesWhatBindingHolds) {
    ASSERT_TRUE(session.gatherFrom(deformedNode("body", square()) + joints() + skinText(twoJoints()), "magnify=3"));
    expectNear(drawn(1), {3, 0, 0});
    expectNear(drawn(2), {3, 3, 0});
}

TEST_F(VertexPlacement, BoxesAllOutputPoints) {
    ASSERT_TRUE(session.gatherFrom(meshNode("a", square()) + meshNode("b", row(3))));
    EXPECT_EQ(session.scene().boxMin, (Vector3{0, 0, 0}));
    EXPECT_EQ(session.scene().boxMax, (Vector3{3, 1, 0}));
}

} // namespace
} // namespace tvk
