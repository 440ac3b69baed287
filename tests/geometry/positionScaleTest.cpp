#include "geometry/positionScale.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

struct ScaleCase {
    double lowest, highest, scale;
    int32_t exponent;
};

class PositionScales : public testing::TestWithParam<ScaleCase> {};

TEST_P(PositionScales, HalveUntilBothEndsFit) {
    const PositionScale found = findPositionScale(GetParam().lowest, GetParam().highest);
    EXPECT_EQ(found.scale, GetParam().scale);
    EXPECT_EQ(found.exponent, GetParam().exponent);
}

INSTANTIATE_TEST_SUITE_P(Extents, PositionScales,
                         testing::Values(ScaleCase{0, 0, 1, 0}, ScaleCase{0, 32767, 1, 0},
                                         ScaleCase{0, 32768, 2, 1},  // a largest coordinate of exactly 8.0
                                         ScaleCase{-32768, 0, 1, 0}, // a smallest of exactly -8.0: deliberately not
                                         ScaleCase{-32769, 0, 2, 1},
                                         ScaleCase{-65537, 0, 4, 2}, // the half is -32768.5, which does not fit
                                         ScaleCase{0, 81920, 4, 2},  // 20.0
                                         ScaleCase{0, 2147483647, 65536, 16}, ScaleCase{-2147483648.0, 0, 65536, 16},
                                         ScaleCase{2147483647, -2147483647, 1, 0})); // no vertex at all

} // namespace
} // namespace tvk
