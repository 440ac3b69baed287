#include "geometry/texelCoordinates.h"

#include <gtest/gtest.h>

#include <limits>

namespace tvk {
namespace {

TEST(TexelCoordinates, CountTexelsFromTheUpperLeftCorner) {
    // (1, 0) is the lower right corner of a picture of 64 by 64: 64 texels, 1024 sixteenths.
    EXPECT_EQ(fixedTexCoordOf(texelPointOf(1.0, 0.0, 64, 64)), (FixedTexCoord{1024, 1024}));
    EXPECT_EQ(fixedTexCoordOf(texelPointOf(0.0, 1.0, 64, 64)), (FixedTexCoord{0, 0}));
    EXPECT_EQ(fixedTexCoordOf(texelPointOf(0.5, 0.25, 100, 64)), (FixedTexCoord{800, 768}));
}

struct RangeCase {
    double s, t;
    bool isInRange;
    FixedTexCoord fixed;
};

class TexelRange : public testing::TestWithParam<RangeCase> {};

TEST_P(TexelRange, IsSixteenBitsOfSixteenths) {
    const TexelPoint point{GetParam().s, GetParam().t};
    EXPECT_EQ(isInTexelRange(point), GetParam().isInRange);
    EXPECT_EQ(fixedTexCoordOf(point), GetParam().fixed);
}

INSTANTIATE_TEST_SUITE_P(Points, TexelRange,
                         testing::Values(RangeCase{2047.9375, -2048.0, true, {32767, -32768}},
                                         RangeCase{2047.96, 0.0, true, {32767, 0}},  // rounds to the limit
                                         RangeCase{2047.97, 0.0, false, {32767, 0}}, // rounds beyond it
                                         RangeCase{0.0, -2048.04, false, {0, -32768}},
                                         RangeCase{0.03125, -0.03125, true, {1, -1}}, // halves away from zero
                                         RangeCase{std::numeric_limits<double>::infinity(), 0.0, false, {32767, 0}},
                                         RangeCase{std::numeric_limits<double>::quiet_NaN(), 0.0, true, {0, 0}}));

struct ColorCase {
    double red, green, blue;
    int word;
};

class ColorWords : public testing::TestWithParam<ColorCase> {};

TEST_P(ColorWords, HaveFiveBitsPerComponent) {
    EXPECT_EQ(colorWordOf(GetParam().red, GetParam().green, GetParam().blue), GetParam().word);
}

INSTANTIATE_TEST_SUITE_P(Colors, ColorWords,
                         testing::Values(ColorCase{0, 0, 0, 0}, ColorCase{1, 0, 0, 31}, ColorCase{0, 1, 0, 31 << 5},
                                         ColorCase{0, 0, 1, 31 << 10}, ColorCase{2, -1, 0.5, 31 | 16 << 10},
                                         ColorCase{0.5 / 31, 0.49 / 31, 1.5 / 31, 1 | 2 << 10}));

} // namespace
} // namespace tvk
