#include "geometry/triangleStrips.h"

#include "bench/stripMeshes.h"
#include "stripMeshChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace tvk {

void PrintTo(const StripReference& reference, std::ostream* stream) {
    *stream << reference.mesh;
}

namespace test {
namespace {

int64_t verticesSent(const FaceList& faces, StripEffort effort) {
    PrimitiveOptions options;
    options.effort = effort;
    return buildPrimitives(faces, options).groups[0].vertexCount;
}

TEST(TriangleStrips, RandomSheetsAreCoveredAtEitherEffort) {
    for (uint32_t seed = 0; seed < 4; ++seed) {
        const StripMesh mesh = makeRandomTriangles(200, seed);
        const std::vector<std::vector<int32_t>> quick = buildTriangleStrips(mesh, StripEffort::kStandard);
        const std::vector<std::vector<int32_t>> thorough = buildTriangleStrips(mesh, StripEffort::kThorough);
        EXPECT_EQ(sortedTriangles(quick), sortedTriangles(mesh));
        EXPECT_EQ(sortedTriangles(thorough), sortedTriangles(mesh));
        EXPECT_LE(thorough.size(), quick.size());
    }
}

TEST(TriangleStrips, LargeMeshesAreCoveredPatchByPatch) {
    StripMesh mesh = makeRandomTriangles(50000, 2);
    sortIntoPatches(mesh);
    std::vector<double> told;
    const std::vector<std::vector<int32_t>> strips =
        buildTriangleStrips(mesh, StripEffort::kStandard, [&](double done) { told.push_back(done); });
    EXPECT_EQ(sortedTriangles(strips), sortedTriangles(mesh));
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 1);
    EXPECT_GT(told.size(), 4u);
}

class KnownMeshes : public testing::TestWithParam<StripReference> {};

TEST_P(KnownMeshes, SendNoMoreThanTheBestStripperKnown) {
    const StripReference& reference = GetParam();
    const FaceList faces = onlyTriangles(readStripMesh(TVK_BENCH_DATA, reference.mesh));
    ASSERT_FALSE(faces.sizes.empty());
    // The figures have three decimals.
    const double most = (reference.bestPeer + 0.0005) * static_cast<double>(faces.sizes.size());
    EXPECT_LE(static_cast<double>(verticesSent(faces, StripEffort::kStandard)), most);
}

INSTANTIATE_TEST_SUITE_P(Meshes, KnownMeshes, testing::ValuesIn(stripReferences()),
                         [](const testing::TestParamInfo<StripReference>& mesh) {
                             std::string name = mesh.param.mesh;
                             name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                             return name;
                         });

TEST(TriangleStrips, ProvenFloorIsReachedOnTheCylinder) {
    const FaceList faces = onlyTriangles(readStripMesh(TVK_BENCH_DATA, "skin-cylinder"));
    ASSERT_EQ(faces.sizes.size(), 1680u);
    EXPECT_EQ(verticesSent(faces, StripEffort::kStandard), 1680 + 2 * 40);
}

TEST(TriangleStrips, ThoroughEffortBeatsEveryResultKnownOnTheCloth) {
    // 374 triangles in 24 strips were the best.
    const FaceList faces = onlyTriangles(readStripMesh(TVK_BENCH_DATA, "cloth-quad"));
    EXPECT_LT(verticesSent(faces, StripEffort::kThorough), 374 + 2 * 24);
}

} // namespace
} // namespace test
} // namespace tvk
