#include "host/geometry/deleteParts.h"

#include "TestMeshes.h"

#include "host/geometry/meshNormals.h"
#include "host/geometry/polyPrimitives.h"
#include "host/geometry/triangulation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace host {

namespace {

using Imath::V3f;
using testing::ElementsAre;

using Ids = std::vector<std::int32_t>;

std::vector<bool> those(std::int32_t count, const Ids& numbers) {
    std::vector<bool> chosen(static_cast<std::size_t>(count), false);
    for (const std::int32_t number : numbers) {
        chosen[static_cast<std::size_t>(number)] = true;
    }
    return chosen;
}

DeletedParts withoutEdges(const MeshData& mesh, const Ids& edges, bool cleans = false) {
    return deleteEdges(mesh, those(mesh.topology->edgeCount(), edges), cleans);
}

DeletedParts withoutVertices(const MeshData& mesh, const Ids& vertices) {
    return deleteVertices(mesh, those(mesh.topology->vertexCount(), vertices));
}

Ids verticesOf(const MeshData& mesh, std::int32_t face) {
    const std::int32_t* first = mesh.topology->verticesOf(face);
    return {first, first + mesh.topology->cornerCount(face)};
}

std::int32_t edgeBetween(const MeshData& mesh, std::int32_t a, std::int32_t b) {
    for (std::int32_t edge = 0; edge < mesh.topology->edgeCount(); ++edge) {
        const MeshEdge& ends = mesh.topology->edges()[static_cast<std::size_t>(edge)];
        if (std::set<std::int32_t>{ends.start, ends.end} == std::set<std::int32_t>{a, b}) {
            return edge;
        }
    }
    ADD_FAILURE() << "no edge " << a << " " << b;
    return 0;
}

/// Vertices 0 1 2 in front, 3 4 5 behind; faces 0 1 4 3 and 1 2 5 4.
std::shared_ptr<MeshData> twoSquares() {
    return makePlane({2, 1, 2, 1, true});
}

TEST(DeleteEdges, JoinsTheFacesOnBothSides) {
    const auto mesh = twoSquares();
    const DeletedParts parts = withoutEdges(*mesh, {edgeBetween(*mesh, 1, 4)});
    ASSERT_EQ(parts.mesh->topology->faceCount(), 1);
    EXPECT_EQ(parts.leftCount, 0);
    EXPECT_EQ(verticesOf(*parts.mesh, 0), (Ids{0, 1, 2, 5, 4, 3}));
    EXPECT_EQ(parts.mesh->topology->edgeCount(), 6);
    EXPECT_EQ(parts.mesh->uvSets[0].ids->ids, (Ids{0, 1, 2, 5, 4, 3}));
    EXPECT_NEAR(faceAreaVector(*parts.mesh, 0).length() / 2, 2, 1e-6);
}

TEST(DeleteEdges, TakesVerticesInTheMiddleOfLinesWhenItCleans) {
    const auto mesh = twoSquares();
    const DeletedParts parts = withoutEdges(*mesh, {edgeBetween(*mesh, 1, 4)}, true);
    ASSERT_EQ(parts.mesh->topology->faceCount(), 1);
    EXPECT_EQ(verticesOf(*parts.mesh, 0), (Ids{0, 1, 3, 2})) << "2 5 4 3 have closed up";
    EXPECT_EQ(parts.mesh->topology->edgeCount(), 4);
    EXPECT_EQ(parts.mesh->uvSets[0].points->size(), 4U);
}

TEST(DeleteEdges, LeavesBorders) {
    const auto mesh = twoSquares();
    const DeletedParts parts = withoutEdges(*mesh, {edgeBetween(*mesh, 0, 1)});
    EXPECT_EQ(parts.leftCount, 1);
    EXPECT_EQ(parts.mesh->topology->cornerEdges(), mesh->topology->cornerEdges());
}

TEST(DeleteEdges, LeavesEdgesOfMoreThanTwoFacesOrFacesWoundUnlike) {
    const auto three =
        meshOfFaces({{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {-1, 0, 0}, {0, 0, 1}}, {{0, 2, 1}, {0, 1, 3}, {0, 1, 4}});
    EXPECT_EQ(withoutEdges(*three, {edgeBetween(*three, 0, 1)}).leftCount, 1);
    const auto unlike = meshOfFaces({{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {-1, 0, 0}}, {{0, 2, 1}, {0, 3, 1}});
    EXPECT_EQ(withoutEdges(*unlike, {edgeBetween(*unlike, 0, 1)}).leftCount, 1);
}

TEST(DeleteEdges, MakesNoRings) {
    const auto grid = makePlane({3, 3, 3, 3, true}); // the square in the middle is left alone in a ring
    Ids spokes;
    for (const auto& [a, b] :
         std::vector<std::pair<int, int>>{{1, 5}, {2, 6}, {4, 5}, {6, 7}, {8, 9}, {10, 11}, {9, 13}, {10, 14}}) {
        spokes.push_back(edgeBetween(*grid, a, b));
    }
    const DeletedParts parts = withoutEdges(*grid, spokes);
    EXPECT_EQ(parts.leftCount, 8);
    EXPECT_EQ(parts.mesh->topology->faceCount(), 9);
    spokes.pop_back();
    EXPECT_EQ(withoutEdges(*grid, spokes).mesh->topology->faceCount(), 2) << "a slit is no ring";
}

TEST(DeleteEdges, TakesLooseEndsWithThem) {
    const auto grid = makePlane({2, 2, 2, 2, true}); // around vertex 4
    const DeletedParts parts =
        withoutEdges(*grid, {edgeBetween(*grid, 4, 1), edgeBetween(*grid, 4, 3), edgeBetween(*grid, 4, 5)});
    ASSERT_EQ(parts.mesh->topology->faceCount(), 1);
    EXPECT_EQ(parts.mesh->topology->vertexCount(), 8);
    EXPECT_EQ(parts.mesh->topology->cornerCount(), 8);
    EXPECT_EQ(parts.mesh->topology->edgeCount(), 8);
}

TEST(DeleteEdges, UndoesTriangles) {
    const auto cube = makeCube({});
    const auto cut = triangulateFaces(*cube, std::vector<bool>(6, true));
    Ids diagonals(6);
    for (std::int32_t i = 0; i < 6; ++i) {
        diagonals[static_cast<std::size_t>(i)] = 12 + i;
    }
    const auto joined = withoutEdges(*cut, diagonals, true).mesh;
    EXPECT_EQ(joined->topology->vertexCount(), 8) << "three edges are left at each";
    EXPECT_EQ(joined->topology->edgeCount(), 12);
    EXPECT_EQ(joined->topology->faceCount(), 6);
    for (std::int32_t face = 0; face < 6; ++face) {
        EXPECT_EQ(faceNormal(*joined, face), faceNormal(*cube, face));
    }
    EXPECT_EQ(joined->topology->normalFans().count, 24) << "hard edges stay hard";
}

TEST(DeleteEdges, KeepsGroupsWithTheLowestFace) {
    const auto mesh = twoSquares();
    std::vector<ComponentRange> ranges(1);
    ASSERT_TRUE(parseComponent("f[0]", ranges[0]));
    mesh->groups = {{1, std::make_shared<const ComponentList>(ranges)}};
    ASSERT_TRUE(parseComponent("f[1]", ranges[0]));
    mesh->groups.push_back({2, std::make_shared<const ComponentList>(ranges)});
    const auto made = withoutEdges(*mesh, {edgeBetween(*mesh, 1, 4)}).mesh;
    EXPECT_EQ(componentText(made->groups[0].components->ranges.at(0)), "f[0]");
    EXPECT_TRUE(made->groups[1].components->ranges.empty());
}

// --- vertices

TEST(DeleteVertices, JoinsTheTwoEdgesOfEach) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0}, {1, -1, 0}},
                                  {{0, 1, 2, 3, 4}, {1, 0, 5, 2}});
    const DeletedParts parts = withoutVertices(*mesh, {1});
    EXPECT_EQ(parts.leftCount, 0);
    ASSERT_EQ(parts.mesh->topology->faceCount(), 2);
    EXPECT_EQ(verticesOf(*parts.mesh, 0), (Ids{0, 1, 2, 3}));
    EXPECT_EQ(verticesOf(*parts.mesh, 1), (Ids{0, 4, 1}));
    EXPECT_EQ(parts.mesh->topology->edgeCount(), 6);
    EXPECT_EQ(parts.mesh->topology->facesOfEdge().count(edgeBetween(*parts.mesh, 0, 1)), 2) << "one edge for both";
}

TEST(DeleteVertices, LeavesThoseWithMoreEdgesAndTriangles) {
    const auto plane = twoSquares();
    EXPECT_EQ(withoutVertices(*plane, {1}).leftCount, 1);
    const auto triangle = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}});
    const DeletedParts parts = withoutVertices(*triangle, {0});
    EXPECT_EQ(parts.leftCount, 1);
    EXPECT_EQ(verticesOf(*parts.mesh, 0), (Ids{0, 1, 2}));
}

TEST(DeleteVertices, TakesTheCornerOfASheet) {
    const DeletedParts parts = withoutVertices(*twoSquares(), {0});
    EXPECT_EQ(parts.leftCount, 0);
    EXPECT_EQ(parts.mesh->topology->cornerCount(0), 3);
    EXPECT_EQ(parts.mesh->topology->vertexCount(), 5);
}

} // namespace

} // namespace host
