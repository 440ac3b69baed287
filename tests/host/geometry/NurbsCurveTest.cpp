#include "host/geometry/NurbsCurve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace host {
namespace {

using Imath::V3d;

constexpr double kPi = 3.14159265358979323846;

NurbsCurve curve(std::size_t degree, std::vector<double> knots, std::vector<V3d> points) {
    NurbsCurve result;
    result.degree = degree;
    result.knots = std::move(knots);
    result.weights.assign(points.size(), 1.0);
    result.points = std::move(points);
    return result;
}

/// An L of the sides 2 and 4.
NurbsCurve corner() {
    return curve(1, {0, 1, 2}, {V3d(0, 0, 0), V3d(2, 0, 0), V3d(2, 4, 0)});
}

/// A Bezier curve of four points.
NurbsCurve bezier() {
    return curve(3, {0, 0, 0, 1, 1, 1}, {V3d(0, 0, 0), V3d(0, 1, 0), V3d(1, 1, 0), V3d(1, 0, 0)});
}

::testing::AssertionResult isAt(const V3d& actual, const V3d& expected) {
    return actual.equalWithAbsError(expected, 1e-12)
               ? ::testing::AssertionSuccess()
               : ::testing::AssertionFailure() << actual.x << " " << actual.y << " " << actual.z;
}

TEST(NurbsCurve, IsWholeWhenItsNumbersFit) {
    EXPECT_TRUE(corner().isWhole());
    EXPECT_FALSE(NurbsCurve().isWhole());
    NurbsCurve broken = corner();
    broken.knots = {0, 2, 1};
    EXPECT_FALSE(broken.isWhole()) << "knots go back";
    broken = corner();
    broken.weights.pop_back();
    EXPECT_FALSE(broken.isWhole());
    broken = corner();
    broken.knots.push_back(3);
    EXPECT_FALSE(broken.isWhole());
    broken = corner();
    broken.knots = {1, 1, 1};
    EXPECT_FALSE(broken.isWhole()) << "no length";
    EXPECT_EQ(nurbsCurveOf(std::make_shared<NurbsCurve>(broken)), nullptr);
    EXPECT_EQ(nurbsCurveOf(nullptr), nullptr);
}

TEST(NurbsCurve, OfDegreeOneGoesStraightFromPointToPoint) {
    EXPECT_TRUE(isAt(corner().pointAt(0), {0, 0, 0}));
    EXPECT_TRUE(isAt(corner().pointAt(0.5), {1, 0, 0}));
    EXPECT_TRUE(isAt(corner().pointAt(1), {2, 0, 0}));
    EXPECT_TRUE(isAt(corner().pointAt(1.25), {2, 1, 0}));
    EXPECT_TRUE(isAt(corner().pointAt(2), {2, 4, 0}));
    EXPECT_TRUE(isAt(corner().tangentAt(1.25), {0, 4, 0}));
}

TEST(NurbsCurve, StaysAtItsEndsOutside) {
    EXPECT_TRUE(isAt(corner().pointAt(-3), {0, 0, 0}));
    EXPECT_TRUE(isAt(corner().pointAt(7), {2, 4, 0}));
    EXPECT_TRUE(isAt(corner().pointAt(std::numeric_limits<double>::quiet_NaN()), {0, 0, 0}));
}

TEST(NurbsCurve, WeighsItsPointsByPolynomials) {
    // Bernstein's of degree 3 at 1/2: 1/8, 3/8, 3/8, 1/8.
    EXPECT_TRUE(isAt(bezier().pointAt(0.5), {0.5, 0.75, 0}));
    EXPECT_TRUE(isAt(bezier().tangentAt(0), {0, 3, 0}));
    EXPECT_TRUE(isAt(bezier().tangentAt(0.5), {1.5, 0, 0}));
    EXPECT_TRUE(isAt(bezier().tangentAt(1), {0, -3, 0}));
}

TEST(NurbsCurve, GoesThroughItsSpansEvenly) {
    // A uniform cubic at a knot: 1/6, 2/3, 1/6 of three points.
    const NurbsCurve uniform =
        curve(3, {-2, -1, 0, 1, 2, 3, 4}, {V3d(0, 0, 0), V3d(6, 0, 0), V3d(6, 6, 0), V3d(0, 6, 0), V3d(0, 0, 6)});
    ASSERT_TRUE(uniform.isWhole());
    EXPECT_TRUE(isAt(uniform.pointAt(0), {5, 1, 0}));
    EXPECT_TRUE(isAt(uniform.pointAt(1), {5, 5, 0}));
    EXPECT_TRUE(isAt(uniform.pointAt(2), {1, 5, 1}));
}

TEST(NurbsCurve, GoesRoundWhenItIsPeriodic) {
    NurbsCurve square =
        curve(1, {0, 1, 2, 3, 4}, {V3d(0, 0, 0), V3d(1, 0, 0), V3d(1, 1, 0), V3d(0, 1, 0), V3d(0, 0, 0)});
    square.form = CurveForm::kPeriodic;
    EXPECT_TRUE(isAt(square.pointAt(4.5), {0.5, 0, 0}));
    EXPECT_TRUE(isAt(square.pointAt(-1), {0, 1, 0}));
    EXPECT_TRUE(isAt(square.pointAt(4), {0, 0, 0}));
}

// A quarter of a circle: three points, the middle one with the weight of the cosine of 45 degrees.
TEST(NurbsCurve, MakesCirclesWithWeights) {
    NurbsCurve arc = curve(2, {0, 0, 1, 1}, {V3d(1, 0, 0), V3d(1, 1, 0), V3d(0, 1, 0)});
    arc.weights[1] = std::sqrt(0.5);
    EXPECT_TRUE(isAt(arc.pointAt(0.5), {std::sqrt(0.5), std::sqrt(0.5), 0}));
    EXPECT_NEAR(arc.pointAt(0.3).length(), 1, 1e-12);
    EXPECT_NEAR(arc.tangentAt(0.3).dot(arc.pointAt(0.3)), 0, 1e-12);
    EXPECT_NEAR(arc.lengthTo(1), kPi / 2, 1e-9);
    EXPECT_NEAR(arc.pointAt(arc.parameterAt(1.0 / 3)).y, 0.5, 1e-9) << "30 degrees of 90";
}

TEST(NurbsCurve, MeasuresItsLength) {
    EXPECT_NEAR(corner().lengthTo(2), 6, 1e-12);
    EXPECT_NEAR(corner().lengthTo(1.25), 3, 1e-12);
    EXPECT_NEAR(corner().parameterAt(0.5), 1.25, 1e-12);
    EXPECT_NEAR(corner().parameterAt(0), 0, 1e-12);
    EXPECT_EQ(corner().parameterAt(2), corner().parameterAt(1));
}

TEST(NurbsCurve, IsTransformedPointByPoint) {
    const NurbsCurve moved = corner().transformed(Matrix44().setTranslation(V3d(0, 0, 5)));
    EXPECT_TRUE(isAt(moved.pointAt(0.5), {1, 0, 5}));
}

} // namespace
} // namespace host
