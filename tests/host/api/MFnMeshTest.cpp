#include <maya/MFnMesh.h>

#include "MeshTest.h"

#include <maya/MFloatPointArray.h>
#include <maya/MPointArray.h>

#include <cmath>

namespace host {
namespace {

using MFnMeshTest = MeshTest;

TEST_F(MFnMeshTest, attachesToMeshesPathsAndData) {
    run("createNode nurbsCurve -n c");
    MStatus status;
    const MFnMesh onTransform(node("a"), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    const MFnMesh onCurve(node("c"), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    const MFnMesh alongTransform(path("a"), &status);
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    const MFnMesh onNode(node("m"), &status);
    EXPECT_EQ(status, MStatus::kSuccess);
    EXPECT_EQ(onNode.numVertices(), 6);
    EXPECT_EQ(onNode.type(), MFn::kMesh);
    MObject data;
    ASSERT_EQ(plug("m.outMesh").getValue(data), MStatus::kSuccess);
    const MFnMesh onData(data, &status);
    EXPECT_EQ(status, MStatus::kSuccess);
    EXPECT_EQ(onData.numPolygons(), 2);
    onData.name(&status);
    EXPECT_EQ(status, MStatus::kFailure) << "data has no node";
}

TEST_F(MFnMeshTest, nothingAttachedFails) {
    const MFnMesh none;
    MStatus status;
    MPointArray points;
    MFloatPointArray floats;
    MPoint point;
    for (const auto& count :
         {&MFnMesh::numVertices, &MFnMesh::numEdges, &MFnMesh::numPolygons, &MFnMesh::numFaceVertices,
          &MFnMesh::numNormals, &MFnMesh::numUVSets, &MFnMesh::numColorSets}) {
        EXPECT_EQ((none.*count)(&status), 0);
        EXPECT_EQ(status, MStatus::kFailure);
    }
    EXPECT_EQ(none.getPoints(points), MStatus::kFailure);
    EXPECT_EQ(none.getPoints(floats), MStatus::kFailure);
    EXPECT_EQ(none.getPoint(0, point), MStatus::kFailure);
}

TEST_F(MFnMeshTest, nodesThatAreGoneFail) {
    const MFnMesh mesh(path("m"));
    run("delete m");
    MStatus status;
    EXPECT_EQ(mesh.numVertices(&status), 0);
    EXPECT_EQ(status, MStatus::kFailure);
    MPointArray points;
    EXPECT_EQ(mesh.getPoints(points, MSpace::kWorld), MStatus::kFailure);
}

TEST_F(MFnMeshTest, countsWhatThereIs) {
    const MFnMesh mesh(node("m"));
    EXPECT_EQ(mesh.numVertices(), 6);
    EXPECT_EQ(mesh.numEdges(), 7);
    EXPECT_EQ(mesh.numPolygons(), 2);
    EXPECT_EQ(mesh.numFaceVertices(), 8);
    EXPECT_EQ(mesh.numNormals(), 6) << "the soft edge shares two";
    EXPECT_EQ(mesh.numUVSets(), 2);
    EXPECT_EQ(mesh.numColorSets(), 2);
    run("createNode mesh -n empty");
    const MFnMesh empty(node("empty"));
    EXPECT_EQ(empty.numVertices(), 0);
    EXPECT_EQ(empty.numPolygons(), 0);
}

TEST_F(MFnMeshTest, pointsInObjectSpace) {
    const MFnMesh mesh(node("m"));
    MPointArray points;
    ASSERT_EQ(mesh.getPoints(points), MStatus::kSuccess);
    ASSERT_EQ(points.length(), 6U);
    EXPECT_EQ(points[5], MPoint(1, 1, -1));
    ASSERT_EQ(mesh.getPoints(points, MSpace::kTransform), MStatus::kSuccess);
    EXPECT_EQ(points[1], MPoint(1, 0, 0));
    MFloatPointArray floats;
    ASSERT_EQ(mesh.getPoints(floats), MStatus::kSuccess);
    EXPECT_EQ(floats[4], MFloatPoint(1, 0, -1));
    MPoint point;
    ASSERT_EQ(mesh.getPoint(3, point), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(0, 1, 0));
}

TEST_F(MFnMeshTest, worldSpaceNeedsAPath) {
    MPointArray points;
    MPoint point;
    EXPECT_EQ(MFnMesh(node("m")).getPoints(points, MSpace::kWorld), MStatus::kFailure);
    EXPECT_EQ(MFnMesh(node("m")).getPoint(0, point, MSpace::kWorld), MStatus::kFailure);
    const MFnMesh mesh(path("m"));
    EXPECT_EQ(mesh.getPoints(points, MSpace::kInvalid), MStatus::kInvalidParameter);
    ASSERT_EQ(mesh.getPoints(points, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_EQ(points[1], MPoint(12, 0, 0));
    ASSERT_EQ(mesh.getPoint(5, point, MSpace::kPostTransform), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(12, 1, -1));
}

TEST_F(MFnMeshTest, eachInstanceHasItsOwnWorld) {
    run("createNode transform -n b; setAttr b.ty 5; parent -add -s m b");
    MPoint point;
    ASSERT_EQ(MFnMesh(path("b|m")).getPoint(1, point, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(1, 5, 0));
    ASSERT_EQ(MFnMesh(path("a|m")).getPoint(1, point, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(12, 0, 0));
}

TEST_F(MFnMeshTest, verticesThatDoNotExistFail) {
    const MFnMesh mesh(node("m"));
    MPoint point(7, 7, 7);
    EXPECT_EQ(mesh.getPoint(6, point), MStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPoint(-1, point), MStatus::kInvalidParameter);
    EXPECT_EQ(point, MPoint(7, 7, 7));
}

TEST_F(MFnMeshTest, showsTheMeshAsItIsNow) {
    const MFnMesh mesh(node("m"));
    MPoint point;
    run("setAttr \"m.pt[1]\" -type \"float3\" 0 0 4");
    ASSERT_EQ(mesh.getPoint(1, point), MStatus::kSuccess);
    EXPECT_EQ(point, MPoint(1, 0, 4)) << "tweaks belong to it";
    run("createNode polyCube -n cube; connectAttr cube.out m.i");
    EXPECT_EQ(mesh.numVertices(), 8) << "history takes the place of what is stored";
}

TEST_F(MFnMeshTest, pointsMayBeAnything) {
    run("setAttr \"m.pt[1]\" -type \"float3\" 1e38 0 0; setAttr \"m.vt[1]\" -type \"float3\" 3e38 0 0");
    MPointArray points;
    const MFnMesh mesh(path("m"));
    ASSERT_EQ(mesh.getPoints(points), MStatus::kSuccess);
    EXPECT_TRUE(std::isinf(points[1].x));
    ASSERT_EQ(mesh.getPoints(points, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_FALSE(std::isfinite(points[1].x));
}

} // namespace
} // namespace host
