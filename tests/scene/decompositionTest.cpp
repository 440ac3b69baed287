#include "scene/decomposition.h"

#include "scene/nodeMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace tvk {
namespace {

constexpr double kHuge = 1e200;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

MMatrix rows(const Vector3& x, const Vector3& y, const Vector3& z, const Vector3& offset = {}) {
    MMatrix matrix;
    for (unsigned int c = 0; c < 3; ++c) {
        matrix(0, c) = x[c];
        matrix(1, c) = y[c];
        matrix(2, c) = z[c];
        matrix(3, c) = offset[c];
    }
    return matrix;
}

bool isFinite(const Vector3& v) {
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

void expectNear(const Vector3& actual, const Vector3& expected, double tolerance) {
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
    }
}

TEST(Decompose, OfTheIdentityIsNothing) {
    const Decomposition result = decompose(MMatrix(), {});
    EXPECT_EQ(result.parts.scale, (Vector3{1, 1, 1}));
    EXPECT_EQ(result.parts.rotate, (Vector3{}));
    EXPECT_EQ(result.parts.translate, (Vector3{}));
    EXPECT_EQ(result.shear, (Vector3{}));
}

// Rows of scale 2 3 4 turned by 90 degrees about z, which sends x to y and y to -x.
TEST(Decompose, FindsScaleRotationAndTranslation) {
    const Decomposition result = decompose(rows({0, 2, 0}, {-3, 0, 0}, {0, 0, 4}, {5, 6, 7}), {});
    expectNear(result.parts.scale, {2, 3, 4}, 1e-12);
    expectNear(result.parts.rotate, {0, 0, 90}, 1e-12);
    EXPECT_EQ(result.parts.translate, (Vector3{5, 6, 7}));
    expectNear(result.shear, {}, 1e-12);
}

// scale 1 2 5 with shear xy 0.5, xz 0.25, yz -0.5: rows are those of scale times shear.
TEST(Decompose, TellsShearApart) {
    const Decomposition result = decompose(rows({1, 0, 0}, {1, 2, 0}, {1.25, -2.5, 5}), {});
    expectNear(result.parts.scale, {1, 2, 5}, 1e-12);
    expectNear(result.shear, {0.5, 0.25, -0.5}, 1e-12);
    expectNear(result.parts.rotate, {}, 1e-12);
}

TEST(Decompose, NegativeDeterminantNegatesScaleX) {
    for (const Vector3& mirrored : {Vector3{-2, 3, 4}, Vector3{2, -3, 4}, Vector3{2, 3, -4}, Vector3{-2, -3, -4}}) {
        const MMatrix matrix = rows({mirrored[0], 0, 0}, {0, mirrored[1], 0}, {0, 0, mirrored[2]});
        const Decomposition result = decompose(matrix, {});
        expectNear(result.parts.scale, {-2, 3, 4}, 1e-12);
        EXPECT_TRUE(matrixOf(result.parts).isEquivalent(matrix, 1e-12));
    }
}

TEST(Decompose, PartsMakeTheMatrixAgain) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> angle(-180, 180);
    std::uniform_real_distribution<double> factor(0.1, 5);
    for (int i = 0; i < 1000; ++i) {
        TransformSet set;
        set.scale = {i % 2 == 0 ? factor(random) : -factor(random), factor(random), factor(random)};
        set.rotate = {angle(random), angle(random), angle(random)};
        set.translate = {angle(random), angle(random), angle(random)};
        const Decomposition result = decompose(matrixOf(set), set.rotate);
        ASSERT_TRUE(matrixOf(result.parts).isEquivalent(matrixOf(set), 1e-9)) << i;
        expectNear(result.parts.rotate, set.rotate, 1e-6); // the hint picks the very triple
        expectNear(result.shear, {}, 1e-9);
    }
}

TEST(Decompose, AtGimbalLockTheRotationStillHolds) {
    for (const double y : {90.0, -90.0}) {
        for (const Vector3& hint : {Vector3{}, Vector3{30, y, 50}}) {
            TransformSet set;
            set.rotate = {30, y, 50};
            const Decomposition result = decompose(matrixOf(set), hint);
            EXPECT_TRUE(matrixOf(result.parts).isEquivalent(matrixOf(set), 1e-7)) << y;
        }
    }
}

TEST(Decompose, AxesWithoutLengthGetScaleZeroAndAValidRotation) {
    const Vector3 x{0, 2, 0};
    const Vector3 y{-3, 0, 0};
    const Vector3 z{0, 0, 4};
    const Vector3 none{0, 0, 9e-11};
    struct Case {
        MMatrix matrix;
        Vector3 scale;
        Vector3 rotate;
    };
    const Case cases[] = {
        {rows(none, y, z), {0, 3, 4}, {0, 0, 90}},
        {rows(x, none, z), {2, 0, 4}, {0, 0, 90}},
        {rows(x, y, none), {2, 3, 0}, {0, 0, 90}},
        {rows(none, none, none), {0, 0, 0}, {0, 0, 0}},
    };
    for (const Case& c : cases) {
        const Decomposition result = decompose(c.matrix, {});
        expectNear(result.parts.scale, c.scale, 1e-12);
        expectNear(result.parts.rotate, c.rotate, 1e-12);
    }
    for (const MMatrix& matrix : {rows(x, none, none), rows(none, y, none), rows(none, none, z)}) {
        const Decomposition result = decompose(matrix, {});
        EXPECT_TRUE(isFinite(result.parts.rotate));
        const MMatrix rotation = rotationMatrix(result.parts.rotate);
        EXPECT_TRUE((rotation * rotation.transpose()).isEquivalent(MMatrix(), 1e-9));
    }
}

TEST(Decompose, AxesThatFallTogetherLeaveFlatScale) {
    const Decomposition result = decompose(rows({1, 0, 0}, {2, 0, 0}, {0, 0, 1}), {});
    expectNear(result.parts.scale, {1, 0, 1}, 1e-12);
    EXPECT_TRUE(isFinite(result.parts.rotate) && isFinite(result.shear));
}

TEST(Decompose, HugeElementsStayNumbers) {
    const Decomposition result = decompose(rows({0, kHuge, 0}, {-kHuge, 0, 0}, {0, 0, kHuge}), {});
    expectNear(result.parts.rotate, {0, 0, 90}, 1e-9);
    for (const double scale : result.parts.scale) {
        EXPECT_NEAR(scale / kHuge, 1.0, 1e-12);
    }
}

TEST(NearestAngles, AreTheSameRotationCloseToTheHint) {
    struct Case {
        Vector3 angles, hint, expected;
    };
    const Case cases[] = {
        {{10, 20, 30}, {10, 20, 30}, {10, 20, 30}},
        {{10, 20, 30}, {370, 20, -330}, {370, 20, -330}}, // whole turns
        {{10, 20, 30}, {190, 160, 210}, {190, 160, 210}}, // the other triple of the same rotation
        {{0, 0, 0}, {0, 0, 720}, {0, 0, 720}},
        {{-170, 0, 0}, {180, 0, 0}, {190, 0, 0}},
        {{0, 0, 180}, {0, 0, 0}, {0, 0, 180}}, // half a turn either way
        {{0, 0, -180}, {0, 0, 0}, {0, 0, -180}},
    };
    for (const Case& c : cases) {
        expectNear(nearestAngles(c.angles, c.hint), c.expected, 1e-12);
    }
}

TEST(NormalisedAngle, KeepsWhatLiesWithinAHalfTurn) {
    for (const double angle : {0.0, -0.5, 179.999, 180.0, -180.0}) {
        EXPECT_EQ(normalisedAngle(angle), angle);
    }
}

TEST(NormalisedAngle, WrapsTheOthersIntoTheHalfOpenTurn) {
    const std::pair<double, double> cases[] = {{190, -170}, {-190, 170},  {540, -180}, {-540, -180}, {360, 0},
                                               {-360, 0},   {720.5, 0.5}, {899, 179},  {-181, 179}};
    for (const auto& [angle, expected] : cases) {
        EXPECT_NEAR(normalisedAngle(angle), expected, 1e-9) << angle;
    }
}

TEST(NormalisedAngle, WhatIsNoAngleIsZero) {
    for (const double angle : {kNotANumber, kInfinity, -kInfinity}) {
        EXPECT_EQ(normalisedAngle(angle), 0.0);
    }
    for (const double angle : {1e18, -1e300}) {
        EXPECT_GE(normalisedAngle(angle), -180.0);
        EXPECT_LT(normalisedAngle(angle), 180.0);
    }
}

} // namespace
} // namespace tvk
