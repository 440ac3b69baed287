#include "host/geometry/detachment.h"

#include "TestMeshes.h"

#include "host/geometry/faceOrder.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;

using Ids = std::vector<std::int32_t>;

Ids verticesOf(const MeshData& mesh, std::int32_t face) {
    const std::int32_t* first = mesh.topology->verticesOf(face);
    return {first, first + mesh.topology->cornerCount(face)};
}

std::int32_t shellCount(const MeshData& mesh) {
    const Ids shells = shellsOfFaces(*mesh.topology);
    return shells.empty() ? 0 : *std::max_element(shells.begin(), shells.end()) + 1;
}

/// Where each face stands and what its corners have: the same before and after.
void expectSameFaces(const MeshData& made, const MeshData& mesh) {
    ASSERT_GE(made.topology->faceCount(), mesh.topology->faceCount());
    for (std::int32_t corner = 0; corner < mesh.topology->cornerCount(); ++corner) {
        const auto at = static_cast<std::size_t>(corner);
        EXPECT_EQ((*made.points)[static_cast<std::size_t>(made.topology->cornerVertices()[at])],
                  (*mesh.points)[static_cast<std::size_t>(mesh.topology->cornerVertices()[at])]);
        EXPECT_EQ(made.uvSets[0].ids->ids[at], mesh.uvSets[0].ids->ids[at]);
    }
}

TEST(DetachFaces, GivesThemVerticesAndEdgesOfTheirOwn) {
    const auto cube = makeCube({});
    const auto made = detachFaces(*cube, {false, true, false, false, false, false}, true); // the top: 2 3 5 4
    expectSameFaces(*made, *cube);
    EXPECT_EQ(made->topology->vertexCount(), 12);
    EXPECT_EQ(made->topology->edgeCount(), 16);
    EXPECT_EQ(verticesOf(*made, 1), (Ids{8, 9, 10, 11}));
    EXPECT_EQ(verticesOf(*made, 0), verticesOf(*cube, 0));
    EXPECT_EQ(shellCount(*made), 2);
    EXPECT_FALSE(made->topology->edges()[12].smooth) << "as hard as it was";
}

TEST(DetachFaces, KeepsThemTogetherOrNot) {
    const auto plane = makePlane({3, 1, 3, 1, true});
    EXPECT_EQ(shellCount(*detachFaces(*plane, {true, true, false}, true)), 2);
    const auto apart = detachFaces(*plane, {true, true, false}, false);
    EXPECT_EQ(shellCount(*apart), 3);
    EXPECT_EQ(apart->topology->vertexCount(), 12);
    expectSameFaces(*apart, *plane);
}

TEST(DetachFaces, ChangesNothingForAllOrNone) {
    const auto cube = makeCube({});
    EXPECT_EQ(detachFaces(*cube, std::vector<bool>(6, true), true)->topology->cornerEdges(),
              cube->topology->cornerEdges());
    EXPECT_EQ(detachFaces(*cube, std::vector<bool>(6, false), true)->topology->cornerEdges(),
              cube->topology->cornerEdges());
    EXPECT_EQ(detachFaces(*cube, std::vector<bool>(6, true), false)->topology->vertexCount(), 24);
}

TEST(DuplicateFaces, PutsCopiesBehindAllFaces) {
    const auto cube = makeCube({});
    std::vector<ComponentRange> ranges(1);
    ASSERT_TRUE(parseComponent("f[1]", ranges[0]));
    cube->groups = {{1, std::make_shared<const ComponentList>(ranges)}};
    const auto made = duplicateFaces(*cube, {true, true, false, false, false, false}, true);
    expectSameFaces(*made, *cube);
    ASSERT_EQ(made->topology->faceCount(), 8);
    EXPECT_EQ(made->topology->vertexCount(), 14) << "the copies share an edge";
    EXPECT_EQ(made->topology->edgeCount(), 19);
    EXPECT_EQ(shellCount(*made), 2);
    const std::vector<Imath::V3f>& points = *made->points;
    EXPECT_EQ(points[static_cast<std::size_t>(verticesOf(*made, 7)[0])], points[2]);
    ASSERT_EQ(made->groups[0].components->ranges.size(), 2U);
    EXPECT_EQ(componentText(made->groups[0].components->ranges[1]), "f[7]");
    EXPECT_EQ(duplicateFaces(*cube, {true, true, false, false, false, false}, false)->topology->vertexCount(), 16);
}

} // namespace

} // namespace host
