#include "host/geometry/mergeVertices.h"

#include "TestMeshes.h"

#include "host/geometry/detachment.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>

namespace host {

namespace {

using Imath::V3f;

using Ids = std::vector<std::int32_t>;

std::shared_ptr<MeshData> merged(const MeshData& mesh, double distance, const Matrix44& matrix = {}) {
    return mergeVertices(mesh, std::vector<bool>(mesh.points->size(), true), distance, matrix);
}

Ids verticesOf(const MeshData& mesh, std::int32_t face) {
    const std::int32_t* first = mesh.topology->verticesOf(face);
    return {first, first + mesh.topology->cornerCount(face)};
}

TEST(MergeVertices, SewsWhatWasApart) {
    const auto cube = makeCube({});
    const auto apart = detachFaces(*cube, std::vector<bool>(6, true), false);
    ASSERT_EQ(apart->topology->vertexCount(), 24);
    const auto made = merged(*apart, 0);
    EXPECT_EQ(made->topology->vertexCount(), 8);
    EXPECT_EQ(made->topology->edgeCount(), 12);
    EXPECT_EQ(made->topology->normalFans().count, 24) << "edges stay hard";
    EXPECT_EQ(made->uvSets[0].ids->ids, cube->uvSets[0].ids->ids);
    for (std::int32_t edge = 0; edge < 12; ++edge) {
        EXPECT_EQ(made->topology->facesOfEdge().count(edge), 2);
    }
}

TEST(MergeVertices, ComparesDistancesWhereTheMeshStands) {
    const auto mesh =
        meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0.5F, 0, 0}, {2, 0, 0}, {2, 1, 0}}, {{0, 1, 2}, {3, 4, 5}});
    EXPECT_EQ(merged(*mesh, 0.49)->topology->vertexCount(), 6);
    EXPECT_EQ(merged(*mesh, 0.49, Matrix44().setScale(0.9))->topology->vertexCount(), 4)
        << "both 0 3 and 1 3, so all three";
}

TEST(MergeVertices, PutsThemInTheMiddle) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {4.5F, 0, 0}, {8, 0, 0}, {8, 4, 0}},
                                  {{0, 1, 2, 3}, {4, 5, 6}});
    const auto made = merged(*mesh, 0.5);
    ASSERT_EQ(made->topology->vertexCount(), 6);
    EXPECT_EQ((*made->points)[1], V3f(4.25F, 0, 0));
    EXPECT_EQ(verticesOf(*made, 1), (Ids{1, 4, 5})) << "the others close up";
}

TEST(MergeVertices, LeavesOutSidesAndFacesThatVanish) {
    const auto mesh =
        meshOfFaces({{0, 0, 0}, {4, 0, 0}, {4, 0.1F, 0}, {0, 4, 0}, {6, 0, 0}}, {{0, 1, 2, 3}, {1, 4, 2}});
    std::vector<ComponentRange> ranges(1);
    ASSERT_TRUE(parseComponent("f[1]", ranges[0]));
    mesh->groups = {{1, std::make_shared<const ComponentList>(ranges)}};
    const auto made = merged(*mesh, 0.2);
    ASSERT_EQ(made->topology->faceCount(), 1);
    EXPECT_EQ(verticesOf(*made, 0), (Ids{0, 1, 2}));
    EXPECT_EQ(made->topology->edgeCount(), 3);
    EXPECT_TRUE(made->groups[0].components->ranges.empty());
}

TEST(MergeVertices, OnlyJoinsChosenOnes) {
    const auto plane = makePlane({1, 1, 1, 1, true});
    const auto twice = uniteMeshes({{plane, Matrix44()}, {plane, Matrix44()}});
    std::vector<bool> chosen(8, false);
    chosen[0] = chosen[4] = chosen[5] = true;
    EXPECT_EQ(mergeVertices(*twice, chosen, 0.01, {})->topology->vertexCount(), 7);
}

TEST(MergeVertices, JoinsNothingThatIsNoNumber) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const auto mesh = meshOfFaces({{0, 0, 0}, {nan, 0, 0}, {nan, 0, 0}}, {{0, 1, 2}});
    EXPECT_EQ(merged(*mesh, 10)->topology->vertexCount(), 3);
}

TEST(MergeVertices, FindsAllNeighboursAcrossCells) {
    // A row of points one tenth apart: each is near the next.
    Points row;
    std::vector<Ids> faces;
    for (std::int32_t i = 0; i < 300; ++i) {
        row.emplace_back(0.1F * static_cast<float>(i), 0.0F, 0.0F);
    }
    for (std::int32_t i = 0; i < 300; i += 3) {
        faces.push_back({i, i + 1, i + 2});
    }
    const auto mesh = meshOfFaces(row, faces);
    EXPECT_EQ(merged(*mesh, 0.101)->topology->vertexCount(), 1);
    EXPECT_EQ(merged(*mesh, 0.09)->topology->vertexCount(), 300);
}

// By comparing all pairs: random points, distances from none to most of them.
TEST(MergeVertices, JoinsExactlyWhatIsNearAlsoByWayOfOthers) {
    std::mt19937 random(5);
    for (const double distance : {0.0, 0.02, 0.05, 0.1, 0.2, 0.6}) {
        Points points;
        for (int i = 0; i < 300; ++i) {
            points.emplace_back(static_cast<float>(random() % 1000) / 1000, static_cast<float>(random() % 1000) / 1000,
                                static_cast<float>(random() % 300) / 1000);
        }
        Ids parts(points.size()); // of each point, the lowest that it is connected with
        for (std::size_t i = 0; i < points.size(); ++i) {
            parts[i] = static_cast<std::int32_t>(i);
            for (std::size_t j = 0; j < i; ++j) {
                const bool isNearby = (Imath::V3d(points[i]) - Imath::V3d(points[j])).length() <= distance;
                const std::int32_t mine = parts[i];
                const std::int32_t theirs = parts[j];
                for (std::size_t k = 0; isNearby && k <= i; ++k) {
                    parts[k] = parts[k] == std::max(mine, theirs) ? std::min(mine, theirs) : parts[k];
                }
            }
        }
        const auto count = std::set<std::int32_t>(parts.begin(), parts.end()).size();
        const auto mesh = meshOfFaces(points, {});
        EXPECT_EQ(merged(*mesh, distance)->points->size(), count) << distance;
        EXPECT_EQ(merged(*mesh, distance / 1e7, Matrix44().setScale(1e-7))->points->size(), count) << distance;
    }
}

TEST(MergeVertices, IsDoneInTimeForManyCloseTogether) {
    const auto plane = makePlane({1, 1, 300, 300, true}); // all within reach of hundreds of others
    EXPECT_EQ(merged(*plane, 0.1)->topology->vertexCount(), 1);
}

TEST(MergeVertices, IsDoneInTimeForManyInOnePlace) {
    const auto plane = makePlane({0, 0, 300, 300, true}); // ninety thousand vertices at 0
    const auto made = merged(*plane, 0.01);
    EXPECT_EQ(made->topology->vertexCount(), 1);
    EXPECT_EQ(made->topology->faceCount(), 0);
}

} // namespace

} // namespace host
