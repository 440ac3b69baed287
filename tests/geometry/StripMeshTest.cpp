#include "geometry/StripMesh.h"

#include "stripMeshChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tvk::test {
namespace {

Corner cornerAt(int32_t position, int32_t normal = 0) {
    Corner corner;
    corner.position = position;
    corner.normal = normal;
    return corner;
}

TEST(WeldCorners, EqualCornersAreOneVertexInOrderOfFirstUse) {
    FaceList faces;
    faces.corners = {cornerAt(5), cornerAt(3), cornerAt(9), cornerAt(3), cornerAt(5), cornerAt(5, 1)};
    faces.sizes = {3, 3};
    const WeldedCorners welded = weldCorners(faces, faceStarts(faces), {0, 1});
    EXPECT_EQ(welded.indices, (std::vector<int32_t>{0, 1, 2, 1, 0, 3}));
    EXPECT_EQ(welded.vertices, (std::vector<Corner>{cornerAt(5), cornerAt(3), cornerAt(9), cornerAt(5, 1)}));
}

TEST(WeldCorners, EachOfTheFiveIndicesKeepsCornersApart) {
    FaceList faces;
    faces.corners.assign(6, Corner{});
    faces.corners[1].matrix = 1;
    faces.corners[2].texCoord = 1;
    faces.corners[3].color = 1;
    faces.corners[4].normal = 1;
    faces.corners[5].position = 1;
    faces.sizes = {3, 3};
    EXPECT_EQ(weldCorners(faces, faceStarts(faces), {0, 1}).vertices.size(), 6u);
}

TEST(WeldCorners, PositionsFarApartDoNotCostMemory) {
    FaceList faces;
    faces.corners = {cornerAt(0),          cornerAt(2000000000), cornerAt(1000000000),
                     cornerAt(2000000000), cornerAt(0),          cornerAt(7)};
    faces.sizes = {3, 3};
    EXPECT_EQ(weldCorners(faces, faceStarts(faces), {0, 1}).indices, (std::vector<int32_t>{0, 1, 2, 1, 0, 3}));
    EXPECT_EQ(weldCorners(faces, faceStarts(faces), {1}).indices, (std::vector<int32_t>{0, 1, 2}));
}

TEST(LinkFaces, AnEdgeMeetsTheOneThatRunsBack) {
    const StripMesh mesh = makeTriangles({{0, 1, 2}, {2, 1, 3}});
    EXPECT_EQ(mesh.across[0][1], 1u * 4 + 0);
    EXPECT_EQ(mesh.across[1][0], 0u * 4 + 1);
    EXPECT_EQ(mesh.across[0][0], StripMesh::kNone);
    EXPECT_EQ(mesh.across[0][2], StripMesh::kNone);
    EXPECT_EQ(mesh.across[0][3], StripMesh::kNone);
}

TEST(LinkFaces, FacesOfOppositeWindingStayApart) {
    const StripMesh mesh = makeTriangles({{0, 1, 2}, {1, 2, 3}});
    EXPECT_EQ(mesh.across[0][1], StripMesh::kNone);
}

TEST(LinkFaces, WhereMoreThanTwoFacesMeetTheLowestPairUp) {
    const StripMesh mesh = makeTriangles({{0, 1, 2}, {0, 1, 3}, {1, 0, 4}, {1, 0, 5}, {0, 1, 6}});
    EXPECT_EQ(neighbourOf(mesh.across[0][0]), 2u);
    EXPECT_EQ(neighbourOf(mesh.across[1][0]), 3u);
    EXPECT_EQ(mesh.across[4][0], StripMesh::kNone);
}

TEST(LinkFaces, FacesThatRepeatAVertexStayAlone) {
    const StripMesh mesh = makeTriangles({{0, 1, 0}, {1, 0, 2}});
    EXPECT_EQ(mesh.across[1][0], StripMesh::kNone);
    EXPECT_EQ(mesh.across[0][0], StripMesh::kNone);
}

TEST(LinkFaces, LinksAreMutualOnRandomSheets) {
    for (uint32_t seed = 0; seed < 5; ++seed) {
        const StripMesh mesh = seed % 2 == 0 ? makeRandomTriangles(500, seed) : makeRandomQuads(300, seed);
        std::size_t links = 0;
        for (uint32_t face = 0; face < mesh.faceCount(); ++face) {
            for (uint32_t k = 0; k < mesh.sides; ++k) {
                const uint32_t across = mesh.across[face][k];
                if (across == StripMesh::kNone)
                    continue;
                ++links;
                EXPECT_EQ(mesh.across[neighbourOf(across)][edgeOf(across)], face * 4 + k);
                EXPECT_EQ(mesh.corners[face][k], mesh.corners[neighbourOf(across)][(edgeOf(across) + 1) % mesh.sides]);
            }
        }
        EXPECT_GT(links, mesh.faceCount() * 2);
    }
}

TEST(SortIntoPatches, SmallMeshesStayAndLargeOnesKeepTheirFaces) {
    StripMesh small = makeRandomTriangles(500, 1);
    const std::vector<std::array<int32_t, 4>> before = small.corners;
    sortIntoPatches(small);
    EXPECT_EQ(small.corners, before);

    const StripMesh large = makeRandomTriangles(40000, 3);
    StripMesh sorted = large;
    sortIntoPatches(sorted);
    EXPECT_NE(sorted.corners, large.corners);
    EXPECT_EQ(sortedTriangles(sorted), sortedTriangles(large));
    const std::vector<std::array<uint32_t, 4>> across = sorted.across;
    linkFaces(sorted);
    EXPECT_EQ(sorted.across, across);
}

} // namespace
} // namespace tvk::test
