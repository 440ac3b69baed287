#include "host/geometry/LatticeData.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using Imath::V3d;

TEST(LatticeData, IsWholeWithAsManyPointsAsItsSidesMake) {
    LatticeData lattice = LatticeData::regular(2, 3, 4);
    EXPECT_EQ(lattice.points.size(), 24U);
    EXPECT_TRUE(lattice.isWhole());
    lattice.points.pop_back();
    EXPECT_FALSE(lattice.isWhole());
    EXPECT_FALSE(LatticeData().isWhole());
    EXPECT_TRUE(LatticeData::regular(0, 1, 2).isWhole()) << "a side has two points at least";
    EXPECT_EQ(LatticeData::regular(2, 1000000, 2).t, LatticeData::kMostPoints);
    LatticeData large = LatticeData::regular(2, 2, 2);
    large.u = 101;
    large.points.resize(404);
    EXPECT_FALSE(large.isWhole()) << "more than anybody makes";
}

TEST(LatticeData, CountsAlongSFirst) {
    const LatticeData lattice = LatticeData::regular(2, 3, 2);
    EXPECT_EQ(lattice.points[1], V3d(0.5, -0.5, -0.5));
    EXPECT_EQ(lattice.points[2], V3d(-0.5, 0, -0.5));
    EXPECT_EQ(lattice.at(1, 2, 1), V3d(0.5, 0.5, 0.5));
}

TEST(LatticeData, NamesPointsByThreeIndices) {
    const LatticeData lattice = LatticeData::regular(2, 3, 2);
    ComponentRange range;
    ASSERT_TRUE(parseComponent("pt[1][0:1][*]", range));
    const std::vector<bool> named = lattice.named(ComponentList({range}));
    const std::vector<bool> expected{false, true, false, true, false, false, false, true, false, true, false, false};
    EXPECT_EQ(named, expected);
    ASSERT_TRUE(parseComponent("vtx[0:11]", range));
    EXPECT_EQ(lattice.named(ComponentList({range})), std::vector<bool>(12, false));
}

TEST(LatticeData, TakesPlacesToThemselvesWhenItIsRegular) {
    const LatticeData lattice = LatticeData::regular(3, 5, 2);
    for (const V3d& part : {V3d(0, 0, 0), V3d(1, 1, 1), V3d(0.3, 0.7, 0.25)}) {
        EXPECT_TRUE(lattice.placeAt(part).equalWithAbsError(part - V3d(0.5), 1e-12));
    }
    EXPECT_TRUE(lattice.isAffine());
}

// With one of three points along a side moved, a place half-way goes 2 * 1/2 * 1/2 of its way, at a quarter
// 2 * 1/4 * 3/4.
TEST(LatticeData, WeighsItsPointsByBernsteinPolynomials) {
    LatticeData lattice = LatticeData::regular(2, 3, 2);
    for (const std::size_t point : {2, 3, 8, 9}) { // all in the middle of t
        lattice.points[point].x += 1.0;
    }
    EXPECT_FALSE(lattice.isAffine());
    EXPECT_TRUE(lattice.placeAt({0.5, 0.5, 0.5}).equalWithAbsError({0.5, 0, 0}, 1e-12));
    EXPECT_TRUE(lattice.placeAt({0.5, 0.25, 0.5}).equalWithAbsError({0.375, -0.25, 0}, 1e-12));
    EXPECT_TRUE(lattice.placeAt({0, 0, 0}).equalWithAbsError({-0.5, -0.5, -0.5}, 1e-12));
}

TEST(LatticeData, IsAffineWhenItIsMovedAsOne) {
    LatticeData lattice = LatticeData::regular(3, 4, 5);
    for (V3d& point : lattice.points) {
        point = V3d(2 * point.x + point.y, -point.z, point.y + 3);
    }
    EXPECT_TRUE(lattice.isAffine());
    lattice.points[17].y += 0.01;
    EXPECT_FALSE(lattice.isAffine());
}

TEST(LatticeOf, IsNullForWhatIsNoWholeLattice) {
    EXPECT_EQ(latticeOf(nullptr), nullptr);
    EXPECT_EQ(latticeOf(std::make_shared<MeshData>()), nullptr);
    EXPECT_EQ(latticeOf(std::make_shared<LatticeData>()), nullptr);
    EXPECT_NE(latticeOf(std::make_shared<LatticeData>(LatticeData::regular(2, 2, 2))), nullptr);
}

} // namespace
} // namespace host
