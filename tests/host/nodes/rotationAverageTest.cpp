#include "host/nodes/rotationAverage.h"

#include "GraphFixture.h"

#include "host/nodes/blendRotation.h"

namespace host {
namespace {

WeightedRotation about(int axis, double degrees, double weight) {
    Imath::V3d angles(0.0);
    angles[axis] = degrees * kDegree;
    return {rotationMatrix(angles, RotateOrder::kXYZ), weight};
}

double degreesAbout(int axis, const Imath::M33d& rotation) {
    return rotationAngles(rotation, RotateOrder::kXYZ)[axis] / kDegree;
}

TEST(RotationAverage, TakesUnknownNumbersAsAverage) {
    for (const double number : {-1.0, 5.0, 1e9, std::nan("")}) {
        EXPECT_EQ(rotationMixingOf(number), RotationMixing::kAverage) << number;
    }
    EXPECT_EQ(rotationMixingOf(3), RotationMixing::kLongest);
}

TEST(RotationAverage, OfOneIsItselfAndOfNoneNoTurn) {
    const WeightedRotation one = about(1, 170, 0.1);
    EXPECT_EQ(averageRotation({one}, RotationMixing::kLongest), one.rotation);
    EXPECT_EQ(averageRotation({}, RotationMixing::kAverage), Imath::M33d());
}

TEST(RotationAverage, LiesBetweenByWeight) {
    for (const RotationMixing mixing : {RotationMixing::kAverage, RotationMixing::kShortest}) {
        EXPECT_NEAR(degreesAbout(2, averageRotation({about(2, 20, 1), about(2, 60, 1)}, mixing)), 40, 1e-9);
        EXPECT_NEAR(degreesAbout(2, averageRotation({about(2, 170, 1), about(2, -150, 1)}, mixing)), -170, 1e-9);
    }
    EXPECT_NEAR(degreesAbout(0, averageRotation({about(0, 10, 3), about(0, 50, 1)}, RotationMixing::kShortest)), 20,
                1e-9);
    // One third of the way, then half of the way on to the third: 20 and 40 give 30, and with 60 again 40.
    EXPECT_NEAR(degreesAbout(
                    0, averageRotation({about(0, 20, 1), about(0, 40, 1), about(0, 60, 1)}, RotationMixing::kShortest)),
                40, 1e-9);
}

TEST(RotationAverage, OfOppositesIsFinite) {
    const Imath::M33d mean = averageRotation({about(2, 0, 1), about(2, 0, -1)}, RotationMixing::kAverage);
    EXPECT_TRUE(std::isfinite(mean[0][0]));
    EXPECT_TRUE(std::isfinite(averageRotation({about(2, 0, 1), about(2, 180, 1)}, RotationMixing::kShortest)[0][0]));
}

} // namespace
} // namespace host
