#include "host/geometry/MeshTopology.h"

#include "TestMeshes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace host {

namespace {

using testing::ElementsAre;

std::shared_ptr<PolyFaces> oneFace(std::vector<std::int32_t> edges) {
    auto faces = std::make_shared<PolyFaces>();
    faces->loopStarts.push_back(static_cast<std::int32_t>(edges.size()));
    faces->faceStarts.push_back(1);
    faces->edges = std::move(edges);
    return faces;
}

void addFace(PolyFaces& faces, const std::vector<std::int32_t>& edges) {
    faces.edges.insert(faces.edges.end(), edges.begin(), edges.end());
    faces.loopStarts.push_back(static_cast<std::int32_t>(faces.edges.size()));
    faces.faceStarts.push_back(static_cast<std::int32_t>(faces.loopStarts.size()) - 1);
}

const std::vector<MeshEdge> kTriangle = {{0, 1, true}, {1, 2, true}, {2, 0, true}};

struct BadRow {
    const char* name;
    std::int32_t vertexCount;
    std::vector<MeshEdge> edges;
    std::vector<std::int32_t> second; // edges of a face behind a good one
    std::int32_t verticesLeft, facesLeft;
    const char* problem;
};

const BadRow kBadRows[] = {
    {"VertexBeyondTheLast", 2, kTriangle, {0, 1, 2}, 0, 0, "edge 1 names vertex 2 of 2"},
    {"NegativeVertex", 3, {{0, 1, true}, {1, -1, true}, {2, 0, true}}, {0, 1, 2}, 0, 0, "edge 1 names vertex -1 of 3"},
    {"EdgeBeyondTheLast", 3, kTriangle, {0, 1, 3}, 3, 1, "face 1 names edge 3 of 3"},
    {"BackwardEdgeBeyondTheLast", 3, kTriangle, {0, 1, -4}, 3, 1, "face 1 names edge -4 of 3"},
    {"LowestNumber",
     3,
     kTriangle,
     {0, 1, std::numeric_limits<std::int32_t>::min()},
     3,
     1,
     "face 1 names edge -2147483648 of 3"},
    {"DoesNotGoOn",
     3,
     kTriangle,
     {0, -2, 2},
     3,
     1,
     "face 1 does not close: edge 0 ends at vertex 1, edge -2 begins at vertex 2"},
    {"DoesNotReturn",
     4,
     {{0, 1, true}, {1, 2, true}, {2, 0, true}, {2, 3, true}},
     {0, 1, 3},
     4,
     1,
     "face 1 does not close: edge 3 ends at vertex 3, edge 0 begins at vertex 0"},
};

class BadTopology : public testing::TestWithParam<BadRow> {};

TEST_P(BadTopology, IsCutAndSaysWhy) {
    const BadRow& row = GetParam();
    auto faces = oneFace({0, 1, 2});
    addFace(*faces, row.second);
    addFace(*faces, {0, 1, 2});
    std::string problem;
    const auto topology = MeshTopology::make(row.vertexCount, row.edges, faces, problem);
    EXPECT_EQ(problem, row.problem);
    EXPECT_EQ(topology->vertexCount(), row.verticesLeft);
    EXPECT_EQ(topology->faceCount(), row.facesLeft);
    EXPECT_EQ(topology->cornerCount(), row.facesLeft * 3);
    EXPECT_EQ(topology->normalFans().ofCorner.size(), static_cast<std::size_t>(topology->cornerCount()));
}

INSTANTIATE_TEST_SUITE_P(Rows, BadTopology, testing::ValuesIn(kBadRows),
                         [](const auto& row) { return std::string(row.param.name); });

// The faces of a unit cube as the real host writes them: all kinds of walking edges backward.
TEST(MeshTopology, ReadsCornersOffWalkedEdges) {
    auto faces = oneFace({0, 5, -2, -5});
    addFace(*faces, {1, 7, -3, -7});
    addFace(*faces, {2, 9, -4, -9});
    addFace(*faces, {3, 11, -1, -11});
    addFace(*faces, {-12, -10, -8, -6});
    addFace(*faces, {10, 4, 6, 8});
    const std::vector<MeshEdge> edges = {{0, 1, false}, {2, 3, false}, {4, 5, false}, {6, 7, false},
                                         {0, 2, false}, {1, 3, false}, {2, 4, false}, {3, 5, false},
                                         {4, 6, false}, {5, 7, false}, {6, 0, false}, {7, 1, false}};
    std::string problem;
    const auto cube = MeshTopology::make(8, edges, faces, problem);
    EXPECT_EQ(problem, "");
    EXPECT_THAT(cube->cornerVertices(),
                ElementsAre(0, 1, 3, 2, 2, 3, 5, 4, 4, 5, 7, 6, 6, 7, 1, 0, 1, 7, 5, 3, 6, 0, 2, 4));
    EXPECT_EQ(cube->normalFans().count, 24);
    const IndexLists& around = cube->facesOfEdge();
    EXPECT_THAT(std::vector<std::int32_t>(around.begin(4), around.end(4)), ElementsAre(0, 5));
    const IndexLists& at0 = cube->edgesOfVertex();
    EXPECT_THAT(std::vector<std::int32_t>(at0.begin(0), at0.end(0)), ElementsAre(0, 4, 10));
    const IndexLists& corners = cube->cornersOfVertex();
    EXPECT_THAT(std::vector<std::int32_t>(corners.begin(0), corners.end(0)), ElementsAre(0, 15, 21));
    EXPECT_EQ(cube->cornerFaces()[15], 3);
}

// Two quads that share the middle edge: 0-1, 2-3, 4-5 from bottom to top.
TEST(MeshTopology, SharesNormalsAcrossSoftEdgesInOrderOfFirstOccurrence) {
    const auto strip = meshOfFaces(Points(6), {{0, 1, 3, 2}, {2, 3, 5, 4}});
    EXPECT_THAT(strip->topology->normalFans().ofCorner, ElementsAre(0, 1, 2, 3, 3, 2, 4, 5));
    EXPECT_EQ(strip->topology->normalFans().count, 6);
}

TEST(MeshTopology, KeepsNormalsApartAcrossHardEdges) {
    const auto soft = meshOfFaces(Points(6), {{0, 1, 3, 2}, {2, 3, 5, 4}});
    const auto hard = withHardEdges(*soft, {2}); // 3-2
    EXPECT_THAT(hard->topology->normalFans().ofCorner, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
}

// Four triangles around vertex 0, one spoke hard: the others still join all four the other way round.
TEST(MeshTopology, JoinsAroundAVertexTheOtherWay) {
    const auto fan = meshOfFaces(Points(5), {{0, 1, 2}, {0, 2, 3}, {0, 3, 4}, {0, 4, 1}});
    const auto hard = withHardEdges(*fan, {0}); // 0-1
    const std::vector<std::int32_t>& ids = hard->topology->normalFans().ofCorner;
    EXPECT_THAT((std::vector<std::int32_t>{ids[0], ids[3], ids[6], ids[9]}), ElementsAre(0, 0, 0, 0));
    EXPECT_NE(ids[1], ids[11]); // both at vertex 1, on the two sides of the hard spoke
}

// Faces that only touch in a vertex share nothing.
TEST(MeshTopology, DoesNotJoinFacesThatOnlyTouch) {
    const auto bowTie = meshOfFaces(Points(5), {{0, 1, 2}, {0, 3, 4}});
    EXPECT_EQ(bowTie->topology->normalFans().count, 6);
}

TEST(MeshTopology, CountsHolesAsCornersOfTheirFace) {
    auto faces = std::make_shared<PolyFaces>();
    faces->edges = {0, 1, 2, 3, 4, 5};
    faces->loopStarts = {0, 3, 6};
    faces->faceStarts = {0, 2};
    std::vector<MeshEdge> edges = kTriangle;
    edges.insert(edges.end(), {{3, 4, true}, {4, 5, true}, {5, 3, true}});
    std::string problem;
    const auto holed = MeshTopology::make(6, edges, faces, problem);
    EXPECT_EQ(problem, "");
    EXPECT_TRUE(holed->hasHoles(0));
    EXPECT_EQ(holed->cornerCount(0), 6);
    EXPECT_EQ(holed->loopCount(0), 2);
    EXPECT_EQ(holed->firstCornerOfLoop(0, 1), 3);
    EXPECT_THAT(holed->cornerVertices(), ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(MeshTopology, OfNothingIsEmpty) {
    const auto topology = MeshTopology::empty();
    EXPECT_EQ(topology->vertexCount() + topology->edgeCount() + topology->faceCount() + topology->cornerCount(), 0);
    EXPECT_EQ(topology->normalFans().count, 0);
}

} // namespace

} // namespace host
