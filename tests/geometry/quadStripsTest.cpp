#include "geometry/quadStrips.h"

#include "bench/stripMeshes.h"
#include "geometry/quadAxes.h"
#include "stripMeshChecks.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tvk::test {
namespace {

StripMesh makeQuads(const std::vector<std::array<int32_t, 4>>& quads) {
    StripMesh mesh;
    mesh.sides = 4;
    mesh.corners = quads;
    linkFaces(mesh);
    return mesh;
}

std::size_t verticesOf(const std::vector<std::vector<int32_t>>& strips) {
    std::size_t count = 0;
    for (const std::vector<int32_t>& strip : strips)
        count += strip.size();
    return count;
}

TEST(QuadAxes, RowIsReadInPairs) {
    // Two quads side by side over the vertices 0 1 2 and 3 4 5.
    const StripMesh row = makeQuads({{0, 1, 4, 3}, {1, 2, 5, 4}});
    EXPECT_EQ(countQuadStrips(row, {1, 1}), 1u);
    EXPECT_EQ(countQuadStrips(row, {0, 1}), 2u);
    EXPECT_EQ(readQuadStrips(row, {1, 1}), (std::vector<std::vector<int32_t>>{{3, 0, 4, 1, 5, 2}}));
    EXPECT_EQ(readQuadStrips(row, {0, 0})[0], (std::vector<int32_t>{0, 1, 3, 4}));
}

TEST(QuadAxes, RingIsOneStrip) {
    const StripMesh ring = makeQuads({{0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}});
    EXPECT_EQ(countQuadStrips(ring, {1, 1, 1}), 1u);
    const std::vector<std::vector<int32_t>> strips = readQuadStrips(ring, {1, 1, 1});
    ASSERT_EQ(strips.size(), 1u);
    EXPECT_EQ(strips[0].size(), 8u);
    EXPECT_EQ(sortedQuads(strips), sortedQuads(ring));
}

class RandomAxes : public testing::TestWithParam<uint32_t> {};

TEST_P(RandomAxes, StripsShowEveryQuadOnceAndAreAsManyAsCounted) {
    const StripMesh mesh = makeRandomQuads(400, GetParam());
    std::mt19937 random(GetParam());
    QuadAxes disorder(mesh.faceCount());
    for (uint8_t& axis : disorder)
        axis = static_cast<uint8_t>(random() % 2);
    QuadAxes annealed = disorder;
    annealAxes(mesh, {60, 2000000000u, 1000000000u}, 1, annealed);
    EXPECT_LT(countQuadStrips(mesh, annealed), countQuadStrips(mesh, disorder));
    for (const QuadAxes& axes : {disorder, annealed, greedyAxes(mesh), longestAxes(mesh)}) {
        const std::vector<std::vector<int32_t>> strips = readQuadStrips(mesh, axes);
        EXPECT_EQ(strips.size(), countQuadStrips(mesh, axes));
        EXPECT_EQ(verticesOf(strips), 2 * (mesh.faceCount() + strips.size()));
        EXPECT_EQ(sortedQuads(strips), sortedQuads(mesh));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomAxes, testing::Range(0u, 6u));

TEST(QuadStrips, KnownMeshesComeWithinThreeHundredthsOfTheBestResult) {
    for (const StripReference& reference : stripReferences()) {
        const FaceList quads = onlyQuads(readStripMesh(TVK_BENCH_DATA, reference.mesh));
        EXPECT_EQ(quads.sizes.empty(), reference.quads == 0);
        if (quads.sizes.empty())
            continue;
        const auto count = static_cast<double>(quads.sizes.size());
        const double sent = buildPrimitives(quads, {}).groups[0].vertexCount / count;
        EXPECT_LE(sent, 2 + 1.03 * (reference.quads + 0.0005 - 2)) << reference.mesh;
    }
}

TEST(QuadStrips, SphereGoesFromPoleToPoleWhenItsQuadsMaySplit) {
    // 448 quads in 14 rings and two caps of 32 triangles each; 32 strips over 960 triangles are the proven floor.
    const FaceList sphere = readStripMesh(TVK_BENCH_DATA, "made-uvsphere");
    ASSERT_EQ(sphere.sizes.size(), 512u);
    PrimitiveOptions options;
    options.splittableQuads = 447;
    EXPECT_GT(buildPrimitives(sphere, options).groups[0].vertexCount, 960 + 2 * 32);
    options.splittableQuads = 448;
    EXPECT_EQ(buildPrimitives(sphere, options).groups[0].vertexCount, 960 + 2 * 32);
}

} // namespace
} // namespace tvk::test
