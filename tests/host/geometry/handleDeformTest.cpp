#include "host/geometry/handleDeform.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using Imath::V3d;

constexpr double kPi = 3.14159265358979323846;

::testing::AssertionResult isAt(const V3d& actual, const V3d& expected) {
    return actual.equalWithAbsError(expected, 1e-12)
               ? ::testing::AssertionSuccess()
               : ::testing::AssertionFailure() << actual.x << " " << actual.y << " " << actual.z;
}

TEST(HandleBounds, HoldAtBothEnds) {
    const HandleBounds bounds{-1, 3};
    EXPECT_EQ(bounds.within(-2), -1.0);
    EXPECT_EQ(bounds.within(4), 3.0);
    EXPECT_EQ(bounds.partAt(0), 0.25);
    EXPECT_EQ(bounds.partAt(9), 1.0);
    const HandleBounds wrong{1, -1};
    EXPECT_EQ(wrong.within(0), 1.0);
    EXPECT_EQ(wrong.partAt(0), 0.0);
}

TEST(BentPoint, StaysWithoutCurvature) {
    EXPECT_EQ(bentPoint({1, 2, 3}, 0, {}), V3d(1, 2, 3));
    EXPECT_TRUE(isAt(bentPoint({1, 0.5, 3}, 1e-8, {}), bentPoint({1, 0.5, 3}, 0, {})) ||
                bentPoint({1, 0.5, 3}, 1e-8, {}).equalWithAbsError({1, 0.5, 3}, 1e-7));
}

// A curvature of half a turn makes a circle of the axis from -1 to 1, of the radius 1 / pi.
TEST(BentPoint, FollowsTheCircle) {
    const double radius = 1 / kPi;
    EXPECT_TRUE(isAt(bentPoint({0, 0, 0}, kPi, {}), {0, 0, 0}));
    EXPECT_TRUE(isAt(bentPoint({0, 0.5, 7}, kPi, {}), {radius, radius, 7}));
    EXPECT_TRUE(isAt(bentPoint({0, 1, 0}, kPi, {}), {2 * radius, 0, 0}));
    EXPECT_TRUE(isAt(bentPoint({0, -0.5, 0}, kPi, {}), {radius, -radius, 0}));
    EXPECT_TRUE(isAt(bentPoint({0.1, 0.5, 0}, kPi, {}), {radius, radius - 0.1, 0})) << "nearer to the middle";
    EXPECT_TRUE(isAt(bentPoint({0, 0.5, 0}, -kPi, {}), {-radius, radius, 0})) << "the other way";
}

TEST(BentPoint, GoesOnStraightBeyondItsBounds) {
    const double radius = 2 / kPi; // a quarter of a turn at 1
    EXPECT_TRUE(isAt(bentPoint({0, 3, 0}, kPi / 2, {-1, 1}), {radius + 2, radius, 0}));
    EXPECT_TRUE(isAt(bentPoint({0, -3, 0}, kPi / 2, {-1, 1}), {radius + 2, -radius, 0}));
    EXPECT_TRUE(isAt(bentPoint({0, -3, 0}, kPi / 2, {0, 1}), {0, -3, 0})) << "it begins to bend at 0";
}

TEST(TwistedPoint, TurnsEvenlyBetweenItsBounds) {
    EXPECT_TRUE(isAt(twistedPoint({1, 1, 0}, 0, kPi / 2, {}), {0, 1, -1}));
    EXPECT_TRUE(isAt(twistedPoint({0, 1, 1}, 0, kPi / 2, {}), {1, 1, 0}));
    EXPECT_TRUE(isAt(twistedPoint({1, 0, 0}, 0, kPi, {}), {0, 0, -1})) << "half of it in the middle";
    EXPECT_TRUE(isAt(twistedPoint({1, -5, 0}, kPi, 0, {}), {-1, -5, 0})) << "held below";
    EXPECT_TRUE(isAt(twistedPoint({1, 5, 0}, kPi, 0, {}), {1, 5, 0}));
}

TEST(FlaredPoint, ScalesEvenlyBetweenItsBounds) {
    const FlareFactors factors{1, 2, 3, 6};
    EXPECT_TRUE(isAt(flaredPoint({1, -1, 1}, factors, {}), {1, -1, 2}));
    EXPECT_TRUE(isAt(flaredPoint({1, 0, 1}, factors, {}), {2, 0, 4}));
    EXPECT_TRUE(isAt(flaredPoint({1, 9, 1}, factors, {}), {3, 9, 6}));
    EXPECT_TRUE(isAt(flaredPoint({1, 0, 1}, factors, {0, 1}), {1, 0, 2}));
}

} // namespace
} // namespace host
