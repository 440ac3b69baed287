#include "MeshTest.h"

namespace host {
namespace {

using MFnMeshFacesTest = MeshTest;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(MFnMeshFacesTest, whatIsNotThereFails) {
    const MFnMesh none;
    const MFnMesh mesh(node("m"));
    MStatus status;
    MIntArray counts;
    MIntArray numbers;
    int2 ends = {8, 9};
    EXPECT_EQ(none.getVertices(counts, numbers), MStatus::kFailure);
    EXPECT_EQ(none.getTriangles(counts, numbers), MStatus::kFailure);
    none.getHoles(counts, numbers, &status);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(none.getPolygonVertices(0, numbers), MStatus::kFailure);
    EXPECT_EQ(none.getEdgeVertices(0, ends), MStatus::kFailure);
    none.isEdgeSmooth(0, &status);
    EXPECT_EQ(status, MStatus::kFailure);
    none.isPolygonConvex(0, &status);
    EXPECT_EQ(status, MStatus::kFailure);
    none.polygonVertexCount(0, &status);
    EXPECT_EQ(status, MStatus::kFailure);
    for (const int face : {-1, 2}) {
        EXPECT_EQ(mesh.getPolygonVertices(face, numbers), MStatus::kInvalidParameter);
        mesh.polygonVertexCount(face, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
        mesh.isPolygonConvex(face, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
    }
    for (const int edge : {-1, 7}) {
        EXPECT_EQ(mesh.getEdgeVertices(edge, ends), MStatus::kInvalidParameter);
        mesh.isEdgeSmooth(edge, &status);
        EXPECT_EQ(status, MStatus::kInvalidParameter);
    }
    EXPECT_TRUE(ends[0] == 8 && ends[1] == 9);
}

TEST_F(MFnMeshFacesTest, verticesByFace) {
    const MFnMesh mesh(node("m"));
    MIntArray counts;
    MIntArray vertices;
    ASSERT_EQ(mesh.getVertices(counts, vertices), MStatus::kSuccess);
    EXPECT_THAT(list(counts), ElementsAre(4, 4));
    EXPECT_THAT(list(vertices), ElementsAre(0, 1, 2, 3, 1, 4, 5, 2));
    ASSERT_EQ(mesh.getPolygonVertices(1, vertices), MStatus::kSuccess);
    EXPECT_THAT(list(vertices), ElementsAre(1, 4, 5, 2));
    EXPECT_EQ(mesh.polygonVertexCount(1), 4);
}

TEST_F(MFnMeshFacesTest, edges) {
    const MFnMesh mesh(node("m"));
    int2 ends;
    ASSERT_EQ(mesh.getEdgeVertices(5, ends), MStatus::kSuccess);
    EXPECT_TRUE(ends[0] == 4 && ends[1] == 5);
    EXPECT_TRUE(mesh.isEdgeSmooth(1));
    EXPECT_FALSE(mesh.isEdgeSmooth(0));
}

TEST_F(MFnMeshFacesTest, holes) {
    makeHoled();
    MIntArray info;
    MIntArray vertices;
    const MFnMesh holed(node("holed"));
    EXPECT_EQ(holed.getHoles(info, vertices), 1);
    EXPECT_THAT(list(info), ElementsAre(0, 4, 0));
    EXPECT_THAT(list(vertices), ElementsAre(4, 5, 6, 7));
    EXPECT_EQ(holed.polygonVertexCount(0), 8) << "corners of all loops";
    EXPECT_FALSE(holed.isPolygonConvex(0));
    MIntArray counts;
    ASSERT_EQ(holed.getTriangles(counts, vertices), MStatus::kSuccess);
    EXPECT_THAT(list(counts), ElementsAre(0));
    EXPECT_EQ(MFnMesh(node("m")).getHoles(info, vertices), 0);
    EXPECT_THAT(list(info), IsEmpty());
}

struct PolygonRow {
    const char* name;
    std::vector<double> xy;
    bool convex;
    std::vector<int> triangles;
};

const PolygonRow kPolygons[] = {
    {"triangle", {0, 0, 1, 0, 0, 1}, true, {0, 1, 2}},
    {"square", {0, 0, 1, 0, 1, 1, 0, 1}, true, {0, 1, 3, 3, 1, 2}},
    {"threeOnALine", {0, 0, 1, 0, 2, 0, 2, 2, 0, 2}, true, {1, 2, 3, 1, 3, 4, 1, 4, 0}},
    {"arrowHead", {0, 0, 2, -1, 1, 0, 2, 1}, false, {0, 1, 2, 0, 2, 3}},
    {"letterL", {0, 0, 2, 0, 2, 1, 1, 1, 1, 2, 0, 2}, false, {}},
    {"star", {0, 3, -2, -3, 3, 1, -3, 1, 2, -3}, false, {}},
};

double doubleArea(const std::vector<double>& xy, int a, int b, int c) {
    const auto x = [&](int i) { return xy[2 * static_cast<std::size_t>(i)]; };
    const auto y = [&](int i) { return xy[2 * static_cast<std::size_t>(i) + 1]; };
    return (x(b) - x(a)) * (y(c) - y(a)) - (x(c) - x(a)) * (y(b) - y(a));
}

TEST_F(MFnMeshFacesTest, polygonsAreCutIntoTriangles) {
    for (const PolygonRow& row : kPolygons) {
        makePolygon(row.name, row.xy);
        const MFnMesh mesh(node(row.name));
        EXPECT_EQ(mesh.isPolygonConvex(0), row.convex) << row.name;
        MIntArray counts;
        MIntArray vertices;
        ASSERT_EQ(mesh.getTriangles(counts, vertices), MStatus::kSuccess);
        EXPECT_THAT(list(counts), ElementsAre(static_cast<int>(row.xy.size() / 2) - 2)) << row.name;
        if (!row.triangles.empty()) {
            EXPECT_EQ(list(vertices), row.triangles) << row.name;
        }
    }
}

TEST_F(MFnMeshFacesTest, theTrianglesOfAConcavePolygonCoverIt) {
    // A comb: its teeth point up, the gaps between them turn inward.
    std::vector<double> xy = {0, 0, 20, 0};
    for (int tooth = 9; tooth >= 0; --tooth) {
        const std::vector<double> points = {2.0 * tooth + 2.0, 5.0, 2.0 * tooth + 1.0, 1.0};
        xy.insert(xy.end(), points.begin(), points.end());
    }
    xy.insert(xy.end(), {0, 5});
    makePolygon("comb", xy);
    MIntArray counts;
    MIntArray vertices;
    ASSERT_EQ(MFnMesh(node("comb")).getTriangles(counts, vertices), MStatus::kSuccess);
    double area = 0.0;
    for (unsigned int i = 0; i < vertices.length(); i += 3) {
        const double one = doubleArea(xy, vertices[i], vertices[i + 1], vertices[i + 2]);
        EXPECT_GE(one, 0.0) << "wound as the face";
        area += one;
    }
    double expected = 0.0;
    const int count = static_cast<int>(xy.size() / 2);
    for (int i = 1; i + 1 < count; ++i) {
        expected += doubleArea(xy, 0, i, i + 1);
    }
    EXPECT_NEAR(area, expected, 1e-9) << "nothing twice, nothing left out";
}

TEST_F(MFnMeshFacesTest, facesWithoutAreaHaveTrianglesToo) {
    makePolygon("line", {0, 0, 1, 0, 2, 0, 3, 0});
    MIntArray counts;
    MIntArray vertices;
    ASSERT_EQ(MFnMesh(node("line")).getTriangles(counts, vertices), MStatus::kSuccess);
    EXPECT_THAT(list(counts), ElementsAre(2));
}

} // namespace
} // namespace host
