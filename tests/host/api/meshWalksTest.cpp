// The iterators over vertices, edges and points.

#include "MeshTest.h"

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MItGeometry.h>
#include <maya/MItMeshEdge.h>
#include <maya/MItMeshVertex.h>
#include <maya/MPointArray.h>

#include <cmath>

namespace host {
namespace {

using testing::ElementsAre;

const double kHalf = std::sqrt(0.5);

class MeshWalkTest : public MeshTest {
protected:
    template <class Iterator>
    static std::vector<int> visited(Iterator& walk) {
        std::vector<int> result;
        for (; !walk.isDone(); walk.next()) {
            result.push_back(walk.index());
        }
        return result;
    }

    static MObject component(MFn::Type kind, std::initializer_list<int> elements) {
        MFnSingleIndexedComponent made;
        MObject object = made.create(kind);
        for (const int element : elements) {
            made.addElement(element);
        }
        return object;
    }

    MStatus status_;
    MIntArray numbers_;
    int count_ = 0;
};

using MItMeshVertexTest = MeshWalkTest;
using MItMeshEdgeTest = MeshWalkTest;
using MItGeometryTest = MeshWalkTest;

TEST_F(MItMeshVertexTest, refusesWhatIsNoMesh) {
    const MItMeshVertex onTransform(node("a"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    const MItMeshVertex onFaces(path("m"), component(MFn::kMeshPolygonComponent, {0}), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    EXPECT_TRUE(onFaces.isDone());
}

TEST_F(MItMeshVertexTest, visitsAllOrSome) {
    MItMeshVertex all(node("m"));
    EXPECT_EQ(all.count(), 6U);
    EXPECT_THAT(visited(all), ElementsAre(0, 1, 2, 3, 4, 5));
    MItMeshVertex some(path("m"), component(MFn::kMeshVertComponent, {5, 2, 900}));
    EXPECT_THAT(visited(some), ElementsAre(2, 5));
    some.reset();
    int previous = 0;
    EXPECT_EQ(some.setIndex(5, previous), MStatus::kSuccess);
    EXPECT_EQ(previous, 2);
    EXPECT_EQ(some.setIndex(3, previous), MStatus::kInvalidParameter);
    EXPECT_EQ(some.currentItem().apiType(), MFn::kMeshVertComponent);
    EXPECT_TRUE(some.vertex() == some.currentItem());
    EXPECT_EQ(some.reset(node("m")), MStatus::kSuccess);
    EXPECT_EQ(some.count(), 6U);
    EXPECT_EQ(some.reset(path("a"), MObject::kNullObj), MStatus::kSuccess);
    EXPECT_EQ(some.count(), 6U);
}

TEST_F(MItMeshVertexTest, nothingIsAnsweredWhenDone) {
    MItMeshVertex vertex(node("m"));
    visited(vertex);
    MVector normal;
    MColor color;
    float2 uv;
    vertex.index(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    vertex.position(MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(vertex.getNormal(normal), MStatus::kFailure);
    EXPECT_EQ(vertex.getNormal(normal, 0), MStatus::kFailure);
    EXPECT_EQ(vertex.getConnectedFaces(numbers_), MStatus::kFailure);
    EXPECT_EQ(vertex.getConnectedEdges(numbers_), MStatus::kFailure);
    EXPECT_EQ(vertex.getConnectedVertices(numbers_), MStatus::kFailure);
    EXPECT_EQ(vertex.numConnectedFaces(count_), MStatus::kFailure);
    EXPECT_EQ(vertex.getUV(uv), MStatus::kFailure);
    EXPECT_EQ(vertex.getColor(color), MStatus::kFailure);
    vertex.connectedToFace(0, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    vertex.onBoundary(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    vertex.hasColor(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
}

TEST_F(MItMeshVertexTest, positionsAndNormals) {
    MItMeshVertex vertex(path("m"));
    vertex.next();
    EXPECT_EQ(vertex.position(), MPoint(1, 0, 0));
    EXPECT_EQ(vertex.position(MSpace::kWorld), MPoint(12, 0, 0));
    MVector normal;
    ASSERT_EQ(vertex.getNormal(normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(kHalf, 0, kHalf)));
    ASSERT_EQ(vertex.getNormal(normal, 1, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(0.5, 0, 1).normal()));
    MVectorArray normals;
    ASSERT_EQ(vertex.getNormals(normals), MStatus::kSuccess);
    EXPECT_EQ(normals.length(), 2U);
    vertex.reset();
    EXPECT_EQ(vertex.getNormal(normal, 1), MStatus::kInvalidParameter) << "vertex 0 is not in face 1";
    MItMeshVertex noPath(node("m"));
    noPath.position(MSpace::kWorld, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
}

TEST_F(MItMeshVertexTest, neighbours) {
    MItMeshVertex vertex(node("m"));
    vertex.next();
    ASSERT_EQ(vertex.getConnectedFaces(numbers_), MStatus::kSuccess);
    EXPECT_THAT(list(numbers_), ElementsAre(0, 1));
    ASSERT_EQ(vertex.getConnectedEdges(numbers_), MStatus::kSuccess);
    EXPECT_THAT(list(numbers_), ElementsAre(0, 1, 4));
    ASSERT_EQ(vertex.getConnectedVertices(numbers_), MStatus::kSuccess);
    EXPECT_THAT(list(numbers_), ElementsAre(0, 2, 4));
    ASSERT_EQ(vertex.numConnectedFaces(count_), MStatus::kSuccess);
    EXPECT_EQ(count_, 2);
    ASSERT_EQ(vertex.numConnectedEdges(count_), MStatus::kSuccess);
    EXPECT_EQ(count_, 3);
    EXPECT_TRUE(vertex.connectedToFace(1) && vertex.connectedToEdge(4) && vertex.onBoundary());
    EXPECT_FALSE(vertex.connectedToFace(7) || vertex.connectedToEdge(2));
    run("createNode polyCube -n cube; createNode mesh -n box; connectAttr cube.out box.i");
    EXPECT_FALSE(MItMeshVertex(node("box")).onBoundary());
}

TEST_F(MItMeshVertexTest, textureCoordinatesAndColours) {
    const MString second = "second";
    MItMeshVertex vertex(node("m"));
    vertex.next();
    float2 uv;
    ASSERT_EQ(vertex.getUV(uv), MStatus::kSuccess);
    EXPECT_TRUE(uv[0] == 1.0F && uv[1] == 0.0F);
    MFloatArray us;
    MFloatArray vs;
    ASSERT_EQ(vertex.getUVs(us, vs, numbers_, &second), MStatus::kSuccess);
    EXPECT_THAT(list(numbers_), ElementsAre(1)) << "the one face that has any in this set";
    EXPECT_EQ(us[0], 0.25F);
    MColor color;
    EXPECT_TRUE(vertex.hasColor());
    ASSERT_EQ(vertex.getColor(color), MStatus::kSuccess);
    EXPECT_EQ(color, MColor(1, 0, 0));
    int previous = 0;
    vertex.setIndex(4, previous);
    EXPECT_EQ(vertex.getUV(uv), MStatus::kFailure);
    EXPECT_FALSE(vertex.hasColor());
    EXPECT_EQ(vertex.getColor(color), MStatus::kFailure);
}

TEST_F(MItMeshEdgeTest, refusesWhatIsNoMesh) {
    const MItMeshEdge onTransform(node("a"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    const MItMeshEdge onFaces(path("m"), component(MFn::kMeshPolygonComponent, {0}), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
}

TEST_F(MItMeshEdgeTest, nothingIsAnsweredWhenDone) {
    MItMeshEdge edge(node("m"));
    EXPECT_EQ(edge.count(), 7U);
    visited(edge);
    double length = 0.0;
    edge.index(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    edge.index(0, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    edge.point(0, MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    edge.center(MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(edge.getLength(length), MStatus::kFailure);
    edge.isSmooth(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    edge.onBoundary(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(edge.numConnectedFaces(count_), MStatus::kFailure);
    edge.getConnectedFaces(numbers_, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(edge.getConnectedEdges(numbers_), MStatus::kFailure);
    edge.connectedToFace(0, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_TRUE(edge.currentItem(&status_).isNull());
}

TEST_F(MItMeshEdgeTest, endsAndNeighbours) {
    MItMeshEdge edge(path("m"), component(MFn::kMeshEdgeComponent, {1, 5}));
    EXPECT_EQ(edge.index(), 1);
    EXPECT_EQ(edge.index(0), 1);
    EXPECT_EQ(edge.index(1), 2);
    edge.index(2, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    edge.point(-1, MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    EXPECT_EQ(edge.point(1, MSpace::kWorld), MPoint(12, 1, 0));
    EXPECT_EQ(edge.center(), MPoint(1, 0.5, 0));
    double length = 0.0;
    ASSERT_EQ(edge.getLength(length), MStatus::kSuccess);
    EXPECT_EQ(length, 1.0);
    EXPECT_TRUE(edge.isSmooth());
    EXPECT_FALSE(edge.onBoundary());
    ASSERT_EQ(edge.numConnectedFaces(count_), MStatus::kSuccess);
    EXPECT_EQ(count_, 2);
    EXPECT_EQ(edge.getConnectedFaces(numbers_), 2);
    EXPECT_THAT(list(numbers_), ElementsAre(0, 1));
    ASSERT_EQ(edge.getConnectedEdges(numbers_), MStatus::kSuccess);
    EXPECT_THAT(list(numbers_), ElementsAre(0, 2, 4, 6));
    ASSERT_EQ(edge.numConnectedEdges(count_), MStatus::kSuccess);
    EXPECT_EQ(count_, 4);
    EXPECT_TRUE(edge.connectedToFace(1));
    EXPECT_FALSE(edge.connectedToFace(2));
    edge.next();
    EXPECT_EQ(edge.index(), 5);
    EXPECT_TRUE(edge.onBoundary());
    EXPECT_FALSE(edge.isSmooth());
    EXPECT_EQ(edge.edge().apiType(), MFn::kMeshEdgeComponent);
    int previous = 0;
    EXPECT_EQ(edge.setIndex(1, previous), MStatus::kSuccess);
    EXPECT_EQ(previous, 5);
    EXPECT_EQ(edge.reset(node("m")), MStatus::kSuccess);
    EXPECT_EQ(edge.reset(path("m")), MStatus::kSuccess);
    EXPECT_EQ(edge.count(), 7U);
}

TEST_F(MItGeometryTest, visitsThePointsOfAnyComponent) {
    MItGeometry all(path("m"));
    EXPECT_EQ(all.count(), 6);
    MItGeometry ofNode(node("m"), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_EQ(ofNode.exactCount(), 6);
    MItGeometry ofFace(path("m"), component(MFn::kMeshPolygonComponent, {1}), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_THAT(visited(ofFace), ElementsAre(1, 2, 4, 5));
    MItGeometry ofEdge(path("m"), component(MFn::kMeshEdgeComponent, {5, 0}));
    EXPECT_THAT(visited(ofEdge), ElementsAre(0, 1, 4, 5));
    MItGeometry some(path("m"), component(MFn::kMeshVertComponent, {3, 99}));
    EXPECT_THAT(visited(some), ElementsAre(3));
    some.reset();
    EXPECT_EQ(some.index(), 3);
    const MItGeometry none(path("m"), component(MFn::kMeshMapComponent, {1}), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter) << "texture coordinates are no points";
    const MItGeometry noMesh(path("a"), node("a"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    MPointArray points;
    EXPECT_EQ(noMesh.allPositions(points), MStatus::kFailure);
}

TEST_F(MItGeometryTest, positionsAndNormals) {
    MItGeometry point(path("m"), component(MFn::kMeshVertComponent, {1, 5}));
    EXPECT_EQ(point.position(), MPoint(1, 0, 0));
    EXPECT_EQ(point.position(MSpace::kWorld), MPoint(12, 0, 0));
    EXPECT_TRUE(isNear(point.normal(), MVector(kHalf, 0, kHalf)));
    EXPECT_EQ(point.currentItem().apiType(), MFn::kMeshVertComponent);
    EXPECT_TRUE(point.component() == point.currentItem());
    MPointArray points;
    ASSERT_EQ(point.allPositions(points, MSpace::kWorld), MStatus::kSuccess);
    ASSERT_EQ(points.length(), 2U);
    EXPECT_EQ(points[1], MPoint(12, 1, -1));
    visited(point);
    point.position(MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    point.normal(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    point.index(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(point.next(), MStatus::kFailure);
}

} // namespace
} // namespace host
