#include "geometry/pivotLabels.h"

#include "geometry/greedyPivots.h"
#include "geometry/pivotAnnealing.h"
#include "stripMeshChecks.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tvk::test {
namespace {

std::size_t verticesOf(const std::vector<std::vector<int32_t>>& strips) {
    std::size_t count = 0;
    for (const std::vector<int32_t>& strip : strips)
        count += strip.size();
    return count;
}

// Four triangles in a row: 0 1 2, 2 1 3, 2 3 4, 4 3 5.
StripMesh makeRow() {
    return makeTriangles({{0, 1, 2}, {2, 1, 3}, {2, 3, 4}, {4, 3, 5}});
}

TEST(PivotLabels, NeighboursJoinWhenTheyTurnAboutOppositeEnds) {
    const StripMesh pair = makeTriangles({{0, 1, 2}, {2, 1, 3}});
    // Edge 1-2 leaves corner 1 of the first and arrives at corner 1 of the second, which is its vertex 1.
    EXPECT_EQ(behindOutEdge(pair, {1, 0}, 0), 1u); // about 1 and about 2
    EXPECT_EQ(behindInEdge(pair, {2, 1}, 0), 1u);  // about 2 and about 1
    EXPECT_EQ(behindOutEdge(pair, {1, 1}, 0), StripMesh::kNone);
    EXPECT_EQ(countTriangleStrips(pair, {1, 0}), 1u);
    EXPECT_EQ(countTriangleStrips(pair, {2, 1}), 1u);
    EXPECT_EQ(countTriangleStrips(pair, {1, 1}), 2u);
}

TEST(PivotLabels, RowIsReadInSendingOrder) {
    const StripMesh row = makeRow();
    // About 1, 2, 3, 4.
    const PivotLabels pivots{1, 0, 1, 0};
    ASSERT_EQ(countTriangleStrips(row, pivots), 1u);
    EXPECT_EQ(readTriangleStrips(row, pivots), (std::vector<std::vector<int32_t>>{{0, 1, 2, 3, 4, 5}}));
}

TEST(PivotLabels, SingleTriangleKeepsItsFirstCorner) {
    const StripMesh one = makeTriangles({{7, 8, 9}});
    for (const uint8_t pivot : {uint8_t{0}, uint8_t{1}, uint8_t{2}})
        EXPECT_EQ(readTriangleStrips(one, {pivot}), (std::vector<std::vector<int32_t>>{{7, 8, 9}}));
}

TEST(PivotLabels, EvenChainWithInEdgesAtBothEndsIsTwoStrips) {
    // The row seen in a mirror.
    const StripMesh row = makeTriangles({{0, 2, 1}, {2, 3, 1}, {2, 4, 3}, {4, 5, 3}});
    const PivotLabels pivots{2, 0, 2, 0};
    EXPECT_EQ(countTriangleStrips(row, pivots), 2u);
    const std::vector<std::vector<int32_t>> strips = readTriangleStrips(row, pivots);
    EXPECT_EQ(strips.size(), 2u);
    EXPECT_EQ(sortedTriangles(strips), sortedTriangles(row));
}

TEST(PivotLabels, FloorOfAFanIsAThirdOfItsSpokes) {
    // Round a vertex at most two thirds of the spokes join: with 2 n1 + n2 over 6, rounded up, per component.
    EXPECT_EQ(leastTriangleStrips(makeFan(3), findComponents(makeFan(3))), 1u);
    // 12 triangles: the hub leaves none over, each of the 12 at the rim has a fan of two: 12 / 6.
    EXPECT_EQ(leastTriangleStrips(makeFan(12), findComponents(makeFan(12))), 2u);
    // 13: 2 for the hub, 13 at the rim: 15 / 6.
    EXPECT_EQ(leastTriangleStrips(makeFan(13), findComponents(makeFan(13))), 3u);
}

TEST(PivotLabels, ComponentsAreNumberedByTheirLowestTriangle) {
    const StripMesh mesh = makeTriangles({{0, 1, 2}, {5, 6, 7}, {2, 1, 3}, {8, 9, 10}, {7, 6, 4}});
    EXPECT_EQ(findComponents(mesh), (std::vector<uint32_t>{0, 1, 0, 2, 1}));
}

TEST(PivotLabels, BestOfEachComponentIsTaken) {
    const StripMesh mesh = makeTriangles({{0, 1, 2}, {2, 1, 3}, {5, 6, 7}, {7, 6, 8}});
    const PivotLabels first{1, 0, 1, 1};
    const PivotLabels second{1, 1, 1, 0};
    EXPECT_EQ(bestByComponent(mesh, findComponents(mesh), {first, second}), (PivotLabels{1, 0, 1, 0}));
}

class RandomLabels : public testing::TestWithParam<uint32_t> {};

TEST_P(RandomLabels, StripsShowEveryTriangleOnceAndAreAsManyAsCounted) {
    const StripMesh mesh = makeRandomTriangles(600, GetParam());
    std::mt19937 random(GetParam());
    PivotLabels disorder(mesh.faceCount());
    for (uint8_t& pivot : disorder)
        pivot = static_cast<uint8_t>(random() % 3);
    PivotLabels annealed = disorder;
    annealPivots(mesh, {{30, 3000000000u, 1000000000u}, {10, 5000000u, 200000u}, GetParam()}, annealed);
    EXPECT_LT(countTriangleStrips(mesh, annealed), countTriangleStrips(mesh, disorder) / 2);
    for (const PivotLabels& pivots :
         {disorder, annealed, greedyPivots(mesh, GreedyOrder::kBeside), greedyPivots(mesh, GreedyOrder::kApart),
          parallelPivots(mesh, 0), parallelPivots(mesh, 1), parallelPivots(mesh, 2)}) {
        const std::vector<std::vector<int32_t>> strips = readTriangleStrips(mesh, pivots);
        EXPECT_EQ(strips.size(), countTriangleStrips(mesh, pivots));
        EXPECT_EQ(verticesOf(strips), mesh.faceCount() + 2 * strips.size());
        EXPECT_EQ(sortedTriangles(strips), sortedTriangles(mesh));
        EXPECT_GE(strips.size(), leastTriangleStrips(mesh, findComponents(mesh)));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomLabels, testing::Range(0u, 6u));

TEST(PivotAnnealing, KeepsLabelsThatItCannotImprove) {
    const StripMesh row = makeRow();
    PivotLabels pivots{1, 0, 1, 0};
    annealPivots(row, {{20, 4000000000u, 4000000000u}, {0, 0, 0}, 3}, pivots);
    EXPECT_EQ(countTriangleStrips(row, pivots), 1u);
}

} // namespace
} // namespace tvk::test
