#include <maya/MItMeshPolygon.h>

#include "MeshTest.h"

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MStringArray.h>

#include <cmath>

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MItMeshPolygonTest : public MeshTest {
protected:
    static std::vector<unsigned int> visited(MItMeshPolygon& face) {
        std::vector<unsigned int> result;
        for (; !face.isDone(); face.next()) {
            result.push_back(face.index());
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
};

TEST_F(MItMeshPolygonTest, refusesWhatIsNoMesh) {
    run("createNode nurbsCurve -n c");
    const MItMeshPolygon onNull(MObject::kNullObj, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    EXPECT_TRUE(onNull.isDone());
    const MItMeshPolygon onCurve(node("c"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    const MItMeshPolygon noPath(MDagPath(), MObject::kNullObj, &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    const MItMeshPolygon onVertices(path("m"), component(MFn::kMeshVertComponent, {0}), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
    EXPECT_TRUE(onVertices.isDone());
    const MItMeshPolygon onNode(path("m"), node("a"), &status_);
    EXPECT_EQ(status_, MStatus::kInvalidParameter);
}

TEST_F(MItMeshPolygonTest, visitsAllFaces) {
    MItMeshPolygon byNode(node("m"), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_EQ(byNode.count(), 2U);
    EXPECT_THAT(visited(byNode), ElementsAre(0, 1));
    EXPECT_EQ(byNode.next(), MStatus::kFailure) << "it is done";
    byNode.reset();
    EXPECT_THAT(visited(byNode), ElementsAre(0, 1));
    MItMeshPolygon byTransform(path("a"), MObject::kNullObj, &status_);
    EXPECT_EQ(status_, MStatus::kSuccess) << "its shape is meant";
    EXPECT_THAT(visited(byTransform), ElementsAre(0, 1));
    EXPECT_EQ(byTransform.reset(path("m"), component(MFn::kMeshPolygonComponent, {1})), MStatus::kSuccess);
    EXPECT_THAT(visited(byTransform), ElementsAre(1));
    MObject data;
    ASSERT_EQ(plug("m.outMesh").getValue(data), MStatus::kSuccess);
    EXPECT_EQ(byTransform.reset(data), MStatus::kSuccess);
    EXPECT_EQ(byTransform.count(), 2U);
}

TEST_F(MItMeshPolygonTest, visitsTheFacesOfAComponent) {
    MItMeshPolygon some(path("m"), component(MFn::kMeshPolygonComponent, {7, 1}), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_THAT(visited(some), ElementsAre(1)) << "the mesh has no face 7";
    MItMeshPolygon none(path("m"), component(MFn::kMeshPolygonComponent, {}), &status_);
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_THAT(visited(none), IsEmpty());
}

TEST_F(MItMeshPolygonTest, jumps) {
    MItMeshPolygon face(path("m"), component(MFn::kMeshPolygonComponent, {1}));
    int previous = 5;
    EXPECT_EQ(face.setIndex(0, previous), MStatus::kInvalidParameter) << "not of this walk";
    MItMeshPolygon all(node("m"));
    EXPECT_EQ(all.setIndex(2, previous), MStatus::kInvalidParameter);
    EXPECT_EQ(all.setIndex(-1, previous), MStatus::kInvalidParameter);
    EXPECT_EQ(previous, 5);
    EXPECT_EQ(all.setIndex(1, previous), MStatus::kSuccess);
    EXPECT_EQ(previous, 0);
    EXPECT_EQ(all.index(), 1U);
    const MFnSingleIndexedComponent item(all.currentItem());
    EXPECT_EQ(item.element(0), 1);
    EXPECT_EQ(item.componentType(), MFn::kMeshPolygonComponent);
    EXPECT_TRUE(all.polygon() == all.currentItem());
}

TEST_F(MItMeshPolygonTest, nothingIsAnsweredWhenDone) {
    MItMeshPolygon face(node("m"));
    visited(face);
    MIntArray numbers;
    MPointArray points;
    MVector normal;
    float2 uv;
    MColor color;
    int count = 0;
    double area = 0.0;
    face.index(&status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_TRUE(face.currentItem(&status_).isNull());
    EXPECT_EQ(face.getVertices(numbers), MStatus::kFailure);
    EXPECT_EQ(face.getEdges(numbers), MStatus::kFailure);
    EXPECT_EQ(face.getConnectedFaces(numbers), MStatus::kFailure);
    face.getPoints(points, MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    face.center(MSpace::kObject, &status_);
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_EQ(face.getNormal(normal), MStatus::kFailure);
    EXPECT_EQ(face.getNormal(0, normal), MStatus::kFailure);
    EXPECT_EQ(face.getUV(0, uv), MStatus::kFailure);
    EXPECT_EQ(face.getColor(color), MStatus::kFailure);
    EXPECT_EQ(face.getColor(color, 0), MStatus::kFailure);
    EXPECT_EQ(face.numTriangles(count), MStatus::kFailure);
    EXPECT_EQ(face.getArea(area), MStatus::kFailure);
    for (const auto& question :
         {&MItMeshPolygon::isConvex, &MItMeshPolygon::isHoled, &MItMeshPolygon::isLamina, &MItMeshPolygon::zeroArea,
          &MItMeshPolygon::onBoundary, &MItMeshPolygon::hasValidTriangulation}) {
        EXPECT_FALSE((face.*question)(&status_));
        EXPECT_EQ(status_, MStatus::kFailure);
    }
    EXPECT_FALSE(face.hasUVs(&status_));
    EXPECT_EQ(status_, MStatus::kFailure);
    EXPECT_FALSE(face.hasColor(&status_));
    EXPECT_EQ(status_, MStatus::kFailure);
}

TEST_F(MItMeshPolygonTest, cornersThatAFaceLacksFail) {
    const MItMeshPolygon face(node("m"));
    MVector normal;
    int index = 0;
    float2 uv;
    for (const int corner : {-1, 4}) {
        face.vertexIndex(corner, &status_);
        EXPECT_EQ(status_, MStatus::kInvalidParameter);
        face.normalIndex(corner, &status_);
        EXPECT_EQ(status_, MStatus::kInvalidParameter);
        face.point(corner, MSpace::kObject, &status_);
        EXPECT_EQ(status_, MStatus::kInvalidParameter);
        EXPECT_EQ(face.getNormal(static_cast<unsigned int>(corner), normal), MStatus::kInvalidParameter);
        EXPECT_EQ(face.getUV(corner, uv), MStatus::kInvalidParameter);
        EXPECT_EQ(face.getColorIndex(corner, index), MStatus::kInvalidParameter);
        EXPECT_FALSE(face.hasColor(corner, &status_));
        EXPECT_EQ(status_, MStatus::kInvalidParameter);
    }
    face.point(0, MSpace::kWorld, &status_);
    EXPECT_EQ(status_, MStatus::kFailure) << "no path, no world";
}

TEST_F(MItMeshPolygonTest, corners) {
    MItMeshPolygon face(path("m"));
    face.next();
    EXPECT_EQ(face.polygonVertexCount(), 4U);
    EXPECT_EQ(face.vertexIndex(2), 5);
    MIntArray numbers;
    ASSERT_EQ(face.getVertices(numbers), MStatus::kSuccess);
    EXPECT_THAT(list(numbers), ElementsAre(1, 4, 5, 2));
    ASSERT_EQ(face.getEdges(numbers), MStatus::kSuccess);
    EXPECT_THAT(list(numbers), ElementsAre(4, 5, 6, 1));
    EXPECT_EQ(face.point(1), MPoint(1, 0, -1));
    EXPECT_EQ(face.point(1, MSpace::kWorld), MPoint(12, 0, -1));
    MPointArray points;
    face.getPoints(points, MSpace::kWorld);
    ASSERT_EQ(points.length(), 4U);
    EXPECT_EQ(points[2], MPoint(12, 1, -1));
    EXPECT_EQ(face.center(), MPoint(1, 0.5, -0.5));
    EXPECT_EQ(face.normalIndex(0), 1U);
    EXPECT_EQ(face.normalIndex(1), 4U);
    MVector normal;
    ASSERT_EQ(face.getNormal(normal), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(1, 0, 0)));
    ASSERT_EQ(face.getNormal(3, normal, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_TRUE(isNear(normal, MVector(0.5, 0, 1).normal()));
    MVectorArray normals;
    ASSERT_EQ(face.getNormals(normals), MStatus::kSuccess);
    ASSERT_EQ(normals.length(), 4U);
    EXPECT_TRUE(isNear(normals[2], MVector(1, 0, 0)));
}

TEST_F(MItMeshPolygonTest, textureCoordinates) {
    const MString second = "second";
    const MString nowhere = "nowhere";
    MItMeshPolygon face(node("m"));
    EXPECT_TRUE(face.hasUVs());
    EXPECT_FALSE(face.hasUVs(second));
    EXPECT_FALSE(face.hasUVs(nowhere));
    float2 uv;
    ASSERT_EQ(face.getUV(2, uv), MStatus::kSuccess);
    EXPECT_TRUE(uv[0] == 1.0F && uv[1] == 0.5F);
    MFloatArray us;
    MFloatArray vs;
    ASSERT_EQ(face.getUVs(us, vs), MStatus::kSuccess);
    EXPECT_EQ(us.length(), 4U);
    EXPECT_EQ(vs[3], 0.5F);
    EXPECT_EQ(face.getUVs(us, vs, &nowhere), MStatus::kFailure);
    face.next();
    EXPECT_FALSE(face.hasUVs());
    EXPECT_EQ(face.getUV(0, uv), MStatus::kFailure);
    int index = 9;
    float u = 0.0F;
    float v = 0.0F;
    ASSERT_EQ(face.getUVIndex(3, index, u, v, &second), MStatus::kSuccess);
    EXPECT_TRUE(index == 0 && u == 0.25F && v == 0.75F);
    MStringArray sets;
    ASSERT_EQ(face.getUVSetNames(sets), MStatus::kSuccess);
    ASSERT_EQ(sets.length(), 1U);
    EXPECT_EQ(sets[0], "second");
}

TEST_F(MItMeshPolygonTest, colours) {
    const MColor red(1, 0, 0);
    MItMeshPolygon face(node("m"));
    EXPECT_TRUE(face.hasColor());
    const int first = 0;
    EXPECT_TRUE(face.hasColor(first));
    EXPECT_FALSE(face.hasColor(3));
    MColor color;
    ASSERT_EQ(face.getColor(color, 1), MStatus::kSuccess);
    EXPECT_EQ(color, red);
    ASSERT_EQ(face.getColor(color, 3), MStatus::kSuccess);
    EXPECT_EQ(color, MColor(-1, -1, -1, -1));
    ASSERT_EQ(face.getColor(color), MStatus::kSuccess);
    EXPECT_FLOAT_EQ(color.r, 2.0F / 3.0F) << "the mean of the three that have one";
    MColorArray colors;
    ASSERT_EQ(face.getColors(colors), MStatus::kSuccess);
    EXPECT_THAT(storedValues(colors), ElementsAre(red, red, MColor(0, 0, 1, 0.5F), MColor(-1, -1, -1, -1)));
    int index = 9;
    ASSERT_EQ(face.getColorIndex(2, index), MStatus::kSuccess);
    EXPECT_EQ(index, 1);
    face.next();
    EXPECT_FALSE(face.hasColor(&status_));
    EXPECT_EQ(status_, MStatus::kSuccess);
    EXPECT_EQ(face.getColor(color), MStatus::kFailure);
    const MString grey = "grey";
    ASSERT_EQ(face.getColor(color, &grey), MStatus::kSuccess);
    EXPECT_EQ(color.a, 0.25F);
    makePolygon("plain", {0, 0, 1, 0, 0, 1});
    const MItMeshPolygon plain(node("plain"));
    EXPECT_FALSE(plain.hasColor(first, &status_));
    EXPECT_EQ(status_, MStatus::kSuccess) << "no colours at all";
}

TEST_F(MItMeshPolygonTest, shapes) {
    makeHoled();
    const MItMeshPolygon holed(node("holed"));
    EXPECT_TRUE(holed.isHoled());
    EXPECT_FALSE(holed.isConvex());
    EXPECT_FALSE(holed.hasValidTriangulation());
    double area = 0.0;
    ASSERT_EQ(holed.getArea(area), MStatus::kSuccess);
    EXPECT_NEAR(area, 16.0 - 4.0, 1e-12);
    MItMeshPolygon face(path("m"));
    EXPECT_FALSE(face.isHoled() || face.zeroArea() || face.isLamina());
    EXPECT_TRUE(face.isConvex() && face.isPlanar() && face.onBoundary() && face.hasValidTriangulation());
    ASSERT_EQ(face.getArea(area, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_NEAR(area, 2.0, 1e-12) << "twice as wide";
    MIntArray others;
    ASSERT_EQ(face.getConnectedFaces(others), MStatus::kSuccess);
    EXPECT_THAT(list(others), ElementsAre(1));
    run("setAttr \"m.pt[2]\" -type \"float3\" 0 0 1");
    MItMeshPolygon bent(node("m"));
    EXPECT_FALSE(bent.isPlanar());
    makePolygon("line", {0, 0, 1, 0, 2, 0});
    EXPECT_TRUE(MItMeshPolygon(node("line")).zeroArea());
}

TEST_F(MItMeshPolygonTest, closedMeshesHaveNoBoundaryAndTwoSidedFacesAreLamina) {
    run("createNode polyCube -n cube; createNode mesh -n box; connectAttr cube.out box.i");
    EXPECT_FALSE(MItMeshPolygon(node("box")).onBoundary());
    run("createNode mesh -n both; setAttr \"both.vt[0:2]\" 0 0 0 1 0 0 0 1 0; setAttr \"both.ed[0:2]\" 0 1 0 1 2 0 2 0 "
        "0;"
        "setAttr \"both.fc[0:1]\" -type \"polyFaces\" f 3 0 1 2 f 3 -3 -2 -1");
    EXPECT_TRUE(MItMeshPolygon(node("both")).isLamina());
}

TEST_F(MItMeshPolygonTest, triangles) {
    MItMeshPolygon face(path("m"));
    face.next();
    int count = 0;
    ASSERT_EQ(face.numTriangles(count), MStatus::kSuccess);
    EXPECT_EQ(count, 2);
    MPointArray points;
    MIntArray vertices;
    ASSERT_EQ(face.getTriangles(points, vertices), MStatus::kSuccess);
    EXPECT_THAT(list(vertices), ElementsAre(1, 4, 2, 2, 4, 5));
    ASSERT_EQ(points.length(), 6U);
    EXPECT_EQ(points[1], MPoint(1, 0, -1));
    ASSERT_EQ(face.getTriangle(1, points, vertices, MSpace::kWorld), MStatus::kSuccess);
    EXPECT_THAT(list(vertices), ElementsAre(2, 4, 5));
    EXPECT_EQ(points[1], MPoint(12, 0, -1));
    EXPECT_EQ(face.getTriangle(2, points, vertices), MStatus::kInvalidParameter);
    EXPECT_EQ(face.getTriangle(-1, points, vertices), MStatus::kInvalidParameter);
}

TEST_F(MItMeshPolygonTest, showsTheMeshOfWhenItBegan) {
    MItMeshPolygon face(node("m"));
    run("setAttr \"m.pt[0]\" -type \"float3\" 5 5 5; delete m");
    EXPECT_EQ(face.point(0), MPoint(0, 0, 0));
}

} // namespace
} // namespace host
