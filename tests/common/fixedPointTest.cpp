#include "common/fixedPoint.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace tvk {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();
constexpr int32_t kHighest = std::numeric_limits<int32_t>::max();

struct Case {
    double value;
    int32_t expected;
};

void expectAll(const FixedFormat& format, const std::vector<Case>& cases) {
    for (const Case& c : cases)
        EXPECT_EQ(toFixed(c.value, format), c.expected) << "value " << c.value;
}

const std::vector<Case> kNoNumbers = {{kNotANumber, 0}, {-kNotANumber, 0}, {0.0, 0}, {-0.0, 0}};

TEST(FixedPoint, NotANumberAndZerosGiveZeroInEveryFormat) {
    for (const FixedFormat& format : {kFixed12, kFixedPosition, kFixedNormal, kFixedTexel})
        expectAll(format, kNoNumbers);
}

TEST(FixedPoint, NotANumberIsClampedLikeZero) {
    EXPECT_EQ(roundClamped(kNotANumber, 3, 9), 3);
    EXPECT_EQ(roundClamped(kNotANumber, -9, -3), -3);
}

TEST(FixedPoint, BeyondTheRangeGivesTheLimits) {
    for (const FixedFormat& format : {kFixed12, kFixedPosition, kFixedNormal, kFixedTexel}) {
        for (const double huge : {kInfinity, 1e300, 1e39, 1e20, 3e9}) {
            EXPECT_EQ(toFixed(huge, format), format.highest) << huge;
            EXPECT_EQ(toFixed(-huge, format), format.lowest) << huge;
        }
    }
}

TEST(FixedPoint, TwelveBitsWithin32Bits) {
    expectAll(kFixed12, {{1.0, 4096},
                         {-1.0, -4096},
                         {0.1, 410},
                         {-0.1, -410},
                         {180.0, 737280},
                         {360.0, 1474560},
                         {1.0 / 4096, 1},
                         // 2^31 and its neighbours; single precision steps by 2^-5 = 128 units there
                         {524288.0, kHighest},
                         {524287.96875, kHighest - 127},
                         {-524288.0, kLowest},
                         {-524287.96875, -2147483520},
                         {-524288.0625, kLowest},
                         {1e-300, 0},
                         {-1e-300, 0}});
}

TEST(FixedPoint, HalvesGoAwayFromZero) {
    const double unit = 1.0 / 4096;
    expectAll(kFixed12, {{0.5 * unit, 1},
                         {-0.5 * unit, -1},
                         {1.5 * unit, 2},
                         {-1.5 * unit, -2},
                         {2.5 * unit, 3},
                         {-2.5 * unit, -3},
                         {0.49 * unit, 0},
                         {-0.49 * unit, 0},
                         {1000000.5 * unit, 1000001},
                         {-1000000.5 * unit, -1000001}});
}

// In single precision 8388609 + 0.5 is a tie that goes to 8388610.
TEST(FixedPoint, RoundingIsInDoubleAbove23Bits) {
    expectAll(kFixed12, {{8388609.0 / 4096, 8388609},
                         {-8388609.0 / 4096, -8388609},
                         {16777215.0 / 4096, 16777215},
                         {-16777215.0 / 4096, -16777215}});
}

TEST(FixedPoint, NarrowingComesBeforeScaling) {
    // 0.5 units less a bit that single precision cannot hold: narrowed it is the half and goes up.
    const double justBelowHalf = 0.5 / 4096 * (1.0 - 1e-10);
    EXPECT_EQ(toFixed12(justBelowHalf), 1);
    EXPECT_EQ(toFixed(0.5 / 16 * (1.0 - 1e-10), kFixedTexel), 0);
    // 1e39 is beyond single precision altogether.
    EXPECT_EQ(toFixed12(-1e39), kLowest);
}

TEST(FixedPoint, PositionsAre16Bits) {
    expectAll(kFixedPosition, {{7.999755859375, 32767},
                               {8.0, 32767},
                               {-8.0, -32768},
                               {-8.00012207, -32768},
                               {-9.0, -32768},
                               {7.9998, 32767},
                               {0.1, 410}});
}

TEST(FixedPoint, NormalsAreTenBits) {
    expectAll(kFixedNormal, {{1.0, 511},
                             {-1.0, -512},
                             {0.998046875, 511},
                             {0.5, 256},
                             {0.5 / 512, 1},
                             {-0.5 / 512, -1},
                             {-1.5, -512},
                             {0.70710678, 362}});
}

TEST(FixedPoint, TexelsHaveFourBits) {
    expectAll(kFixedTexel, {{1.0, 16},
                            {100.0, 1600},
                            {0.03125, 1},
                            {-0.03125, -1},
                            {2047.9375, 32767},
                            {2048.0, 32767},
                            {-2048.0, -32768},
                            {-2049.0, -32768}});
}

TEST(FixedPoint, EveryUnitSurvivesTheWayThereAndBack) {
    for (int32_t units = -32768; units <= 32767; ++units) {
        ASSERT_EQ(toFixed12(fromFixed(units)), units);
        ASSERT_EQ(toFixed(fromFixed(units, kFixedTexel), kFixedTexel), units);
    }
    EXPECT_EQ(fromFixed(410), 0.10009765625);
    EXPECT_EQ(fromFixed(kLowest), -524288.0);
    EXPECT_EQ(fromFixed(kHighest), 524287.999755859375);
    EXPECT_EQ(fromFixed(511, kFixedNormal), 0.998046875);
}

TEST(FixedPoint, RoundClampedRoundsWithoutAScale) {
    EXPECT_EQ(roundClamped(30.5, 0, 31), 31);
    EXPECT_EQ(roundClamped(31.5, 0, 31), 31);
    EXPECT_EQ(roundClamped(-0.4, 0, 31), 0);
    EXPECT_EQ(roundClamped(-0.6, 0, 31), 0);
    EXPECT_EQ(roundClamped(0.5, 0, 1), 1);
    EXPECT_EQ(roundClamped(2147483646.5, kLowest, kHighest), kHighest);
    EXPECT_EQ(roundClamped(2147483646.4, kLowest, kHighest), kHighest - 1);
    EXPECT_EQ(roundClamped(-2147483647.5, kLowest, kHighest), kLowest);
    EXPECT_EQ(roundClamped(-2147483647.4, kLowest, kHighest), kLowest + 1);
}

} // namespace
} // namespace tvk
