#include "host/geometry/meshNormals.h"

#include "TestMeshes.h"

#include <gtest/gtest.h>

#include <limits>

namespace host {

namespace {

using Imath::V3f;

// A large floor quad and a small wall triangle that meet in the edge 0-1: face normals +y (area 8) and +z (area 1).
std::shared_ptr<MeshData> floorAndWall() {
    return meshOfFaces({{0, 0, 0}, {2, 0, 0}, {2, 0, 4}, {0, 0, 4}, {0, 1, 0}}, {{0, 3, 2, 1}, {0, 1, 4}});
}

V3f unit(float x, float y, float z) {
    return V3f(x, y, z).normalized();
}

struct WeightingRow {
    const char* name;
    NormalWeighting weighting;
    V3f at0, at1; // both sides count: 90 and 90 degrees at 0; 90 and atan(1/2) at 1
};

const float kWallAngle = std::atan2(1.0F, 2.0F);
const float kFloorAngle = std::atan2(1.0F, 0.0F);

const WeightingRow kWeightings[] = {
    {"Unweighted", NormalWeighting::kUnweighted, unit(0, 1, 1), unit(0, 1, 1)},
    {"Angle", NormalWeighting::kAngle, unit(0, 1, 1), unit(0, kFloorAngle, kWallAngle)},
    {"Area", NormalWeighting::kArea, unit(0, 8, 1), unit(0, 8, 1)},
    {"AngleAndArea", NormalWeighting::kAngleAndArea, unit(0, 8, 1), unit(0, 8 * kFloorAngle, kWallAngle)},
};

class Weighting : public testing::TestWithParam<WeightingRow> {};

TEST_P(Weighting, DecidesWhatFacesCount) {
    const auto mesh = floorAndWall();
    mesh->weighting = GetParam().weighting;
    const std::vector<std::int32_t>& ids = mesh->topology->normalFans().ofCorner;
    EXPECT_TRUE(isNear(mesh->normals()[static_cast<std::size_t>(ids[0])], GetParam().at0));
    EXPECT_TRUE(isNear(mesh->normals()[static_cast<std::size_t>(ids[3])], GetParam().at1));
    EXPECT_TRUE(isNear(vertexNormal(*mesh, 1, GetParam().weighting), GetParam().at1));
}

INSTANTIATE_TEST_SUITE_P(Rows, Weighting, testing::ValuesIn(kWeightings),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(MeshNormals, AreThoseOfTheFacesBetweenHardEdges) {
    const auto mesh = withHardEdges(*floorAndWall(), {3}); // 1-0
    for (std::size_t corner = 0; corner < 7; ++corner) {
        const auto id = static_cast<std::size_t>(mesh->topology->normalFans().ofCorner[corner]);
        EXPECT_TRUE(isNear(mesh->normals()[id], corner < 4 ? V3f(0, 1, 0) : V3f(0, 0, 1)));
    }
}

TEST(MeshNormals, OfAConcaveFaceIsNewells) {
    const auto arrow = meshOfFaces({{0, 0, 0}, {4, 0, 0}, {1, 1, 0}, {0, 4, 0}}, {{0, 1, 2, 3}});
    EXPECT_TRUE(isNear(faceNormal(*arrow, 0), {0, 0, 1}));
    EXPECT_DOUBLE_EQ(faceAreaVector(*arrow, 0).z, 8.0); // twice the area of 4
}

TEST(MeshNormals, OfDegenerateFacesAreZero) {
    const auto line = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, {{0, 1, 2}});
    EXPECT_EQ(faceNormal(*line, 0), V3f(0, 0, 0));
    EXPECT_EQ(line->normals()[0], V3f(0, 0, 0));
}

TEST(MeshNormals, OfFacesWithoutNumbersAreZero) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const auto broken = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, nan, 0}}, {{0, 1, 2}});
    EXPECT_EQ(broken->normals()[0], V3f(0, 0, 0));
}

TEST(MeshNormals, DegenerateFacesDoNotCount) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {2, 0, 0}}, {{0, 1, 2}, {0, 3, 1}});
    for (const V3f& normal : mesh->normals()) {
        EXPECT_TRUE(normal == V3f(0, 0, 0) || isNear(normal, {0, 0, 1})) << normal;
    }
    EXPECT_TRUE(isNear(mesh->normals()[0], {0, 0, 1}));
}

TEST(MeshNormals, OfUsersReplaceComputedOnes) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}});
    const float none = 1e20F;
    mesh->userNormals = std::make_shared<const Points>(Points{{none, none, none}, {0.03F, 0, 0}, {none, none, none}});
    EXPECT_TRUE(isNear(mesh->normals()[0], {0, 0, 1}));
    EXPECT_TRUE(isNear(mesh->normals()[1], {1, 0, 0}));
    EXPECT_FALSE(mesh->isUserNormal(0));
    EXPECT_TRUE(mesh->isUserNormal(1));
}

TEST(MeshNormals, OfACopyAreItsOwn) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}});
    EXPECT_TRUE(isNear(mesh->normals()[0], {0, 0, 1}));
    MeshData turned(*mesh);
    turned.points = std::make_shared<Points>(Points{{0, 0, 0}, {0, 1, 0}, {1, 0, 0}});
    EXPECT_TRUE(isNear(turned.normals()[0], {0, 0, -1}));
}

} // namespace

} // namespace host
