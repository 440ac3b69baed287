#include "geometry/VertexSpaces.h"

#include "geometry/MatrixPalette.h"
#include "scene/nodeMatrix.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvk {
namespace {

MMatrix turned(double x, double y, double z) {
    return rotationMatrix({x, y, z});
}

MMatrix moved(double x, double y, double z) {
    return translationMatrix({x, y, z});
}

MMatrix scaled(double x, double y, double z) {
    TransformSet set;
    set.scale = {x, y, z};
    return matrixOf(set);
}

void expectPoint(const Vector3& point, double x, double y, double z) {
    EXPECT_NEAR(point[0], x, 1e-9);
    EXPECT_NEAR(point[1], y, 1e-9);
    EXPECT_NEAR(point[2], z, 1e-9);
}

// A mesh node with two joints. Each joint's world at binding is that at the exported pose, unless a test says
// otherwise.
class Spaces : public testing::Test {
protected:
    Spaces() {
        shape.node = &mesh;
        joint1.exportedWorld = moved(10, 0, 0);
        joint2.exportedWorld = turned(0, 0, 90) * moved(0, 5, 0);
    }

    void skin() {
        shape.isSkinned = true;
        shape.influences = {{&joint1, joint1.exportedWorld.inverse()}, {&joint2, joint2.exportedWorld.inverse()}};
    }
    VertexSpaces spaces(bool united = false) { return VertexSpaces(scene, shape, united); }
    int32_t blend(int32_t first, int32_t second) {
        return palette.findOrAdd({{first, &joint1, -1}, {second, &joint2, -1}});
    }

    NodeRecord mesh, joint1, joint2;
    ShapeRecord shape;
    SceneData scene;
    MatrixPalette palette{scene.matrices, scene.envelope};
};

TEST_F(Spaces, OfAVertexOnItsOwnNodeChangeNothing) {
    mesh.exportedWorld = moved(1, 2, 3);
    VertexSpaces own = spaces();
    EXPECT_TRUE(own.of(palette.findOrAddMatrix(mesh)).isAsRead);
}

TEST_F(Spaces, OfABlendAreTheModelAtBinding) {
    skin();
    shape.bindWorld = turned(0, 0, 90) * moved(1, 0, 0);
    VertexSpaces found = spaces();
    const VertexSpace& space = found.of(blend(30, 69)); // 99 percent are the whole of it
    expectPoint(space.output.point({2, 0, 0}), 1, 2, 0);
    expectPoint(space.normals.direction({1, 0, 0}), 0, 1, 0);
}

TEST_F(Spaces, CountPointsFromThePivotOfTheMesh) {
    skin();
    mesh.pivotOffset = {1, 1, 0};
    VertexSpaces found = spaces();
    expectPoint(found.of(blend(50, 50)).output.point({1, 0, 0}), 2, 1, 0);
}

TEST_F(Spaces, OfAVertexOnAForeignNodeUndoThatNodesExportedWorld) {
    skin();
    VertexSpaces found = spaces();
    const Vector3 local = found.of(palette.findOrAddMatrix(joint2)).output.point({0, 6, 0});
    expectPoint(local, 1, 0, 0);
    expectPoint(Affine(joint2.exportedWorld).point(local), 0, 6, 0);
}

TEST_F(Spaces, UndoWhatLiesAboveASelection) {
    skin();
    const MMatrix outer = moved(100, 0, 0);
    shape.outerWorld = outer;
    shape.bindWorld = outer;
    for (Influence& influence : shape.influences) {
        influence.bindInverse = (influence.node->exportedWorld * outer).inverse();
    }
    VertexSpaces found = spaces();
    expectPoint(found.of(blend(50, 50)).output.point({1, 2, 3}), 1, 2, 3);
}

// Exported at the pose in which another skin was bound: the shape is skinned into that pose.
TEST_F(Spaces, OfASkinBoundInAnotherPoseAreThatSkinsShapeAtTheExportedPose) {
    skin();
    shape.influences[1].bindInverse = moved(0, 5, 0).inverse(); // not turned yet when this one was bound
    VertexSpaces found = spaces();
    // Wholly on joint2: one along the joint's x, which points to y now.
    expectPoint(found.of(palette.findOrAddMatrix(joint2)).output.point({1, 5, 0}), 1, 0, 0);
    // Half of the weight stays with joint1, which is where it was.
    expectPoint(found.of(blend(50, 50)).output.point({1, 5, 0}), 0.5, 5.5, 0);
}

TEST_F(Spaces, OfNormalsLeaveScaledSurfacesTheirNormals) {
    skin();
    shape.bindWorld = scaled(2, 1, 1);
    VertexSpaces found = spaces();
    const VertexSpace& space = found.of(blend(50, 50));
    // A plane x + y = 0 is stretched into x/2 + y = 0.
    const Vector3 normal = normalised(space.normals.direction({1, 1, 0}));
    expectPoint(normal, 1 / std::sqrt(5), 2 / std::sqrt(5), 0);
}

TEST_F(Spaces, OfUnitedNodesAreTheWorld) {
    mesh.pivotOffset = {1, 0, 0};
    shape.world = turned(0, 0, 90) * moved(5, 0, 0);
    VertexSpaces found = spaces(true);
    const VertexSpace& space = found.of(palette.findOrAddMatrix(joint1)); // the root stands for all
    expectPoint(space.output.point({0, 0, 0}), 5, 1, 0);
    expectPoint(space.bounding.point({0, 0, 0}), 5, 1, 0);
}

TEST_F(Spaces, OfBoundingPointsAreTheMeshNodesOwn) {
    skin();
    mesh.exportedWorld = moved(0, 0, 7);
    VertexSpaces found = spaces();
    expectPoint(found.of(blend(50, 50)).bounding.point({1, 2, 10}), 1, 2, 3);
    expectPoint(found.of(palette.findOrAddMatrix(joint2)).bounding.point({1, 2, 10}), 1, 2, 3);
}

// What is flattened cannot be undone; it must not become infinite either.
TEST_F(Spaces, OfAFlattenedJointAreFinite) {
    joint1.exportedWorld = scaled(0, 1, 1) * moved(10, 0, 0);
    skin();
    VertexSpaces found = spaces();
    const Vector3 local = found.of(palette.findOrAddMatrix(joint1)).output.point({10, 2, 3});
    expectPoint(local, 0, 2, 3);
}

TEST_F(Spaces, AreMirroredByTheNodesExportedWorld) {
    EXPECT_FALSE(spaces().isMirrored());
    mesh.exportedWorld = scaled(-1, 1, 1);
    EXPECT_TRUE(spaces().isMirrored());
}

TEST_F(Spaces, OfASkinAreMirroredByTheWorldAtBinding) {
    skin();
    mesh.exportedWorld = scaled(-1, 1, 1);
    EXPECT_FALSE(spaces().isMirrored());
    shape.bindWorld = scaled(1, -1, 1);
    EXPECT_TRUE(spaces().isMirrored());
    shape.outerWorld = scaled(1, 1, -1);
    EXPECT_FALSE(spaces().isMirrored());
}

TEST_F(Spaces, OfUnitedNodesAreMirroredByTheWorld) {
    shape.world = scaled(1, 1, -2);
    EXPECT_TRUE(spaces(true).isMirrored());
}

} // namespace
} // namespace tvk
