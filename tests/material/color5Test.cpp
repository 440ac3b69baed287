#include "material/color5.h"

#include <gtest/gtest.h>

#include <limits>

namespace tvk {
namespace {

struct ComponentCase {
    float value;
    int32_t expected;
};

class Component5 : public testing::TestWithParam<ComponentCase> {};

TEST_P(Component5, RoundsHalvesAwayFromZeroAndClamps) {
    EXPECT_EQ(toComponent5(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, Component5,
                         testing::Values(ComponentCase{0.0F, 0}, ComponentCase{-0.0F, 0}, ComponentCase{1.0F, 31},
                                         ComponentCase{0.75F, 23}, ComponentCase{0.25F, 8}, // 7.75
                                         ComponentCase{0.5F, 16},   // 15.5: a half, away from zero
                                         ComponentCase{0.016F, 0},  // 0.496
                                         ComponentCase{0.0162F, 1}, // 0.5022
                                         ComponentCase{-0.5F, 0}, ComponentCase{1.01F, 31}, ComponentCase{1e30F, 31},
                                         ComponentCase{std::numeric_limits<float>::infinity(), 31},
                                         ComponentCase{-std::numeric_limits<float>::infinity(), 0},
                                         ComponentCase{std::numeric_limits<float>::quiet_NaN(), 0}));

TEST(Color5Test, EveryComponentIsConverted) {
    EXPECT_EQ(toColor5(MColor(0.5F, 2.0F, -1.0F, 0.25F)), (Color5{16, 31, 0, 8}));
}

TEST(Color5Test, AColourWithoutAlphaIsOpaque) {
    EXPECT_EQ(toColor5(MColor(0.0F, 0.0F, 0.0F)), (Color5{0, 0, 0, 31}));
}

TEST(Color5Test, TheMarkForNoColourIsOpaqueBlack) {
    EXPECT_EQ(toColor5(MColor(-1.0F, -1.0F, -1.0F, -1.0F)), (Color5{0, 0, 0, 31}));
    EXPECT_EQ(toColor5(MColor(-1.0F, -1.0F, -1.0F, 0.0F)), (Color5{0, 0, 0, 0}));
}

} // namespace
} // namespace tvk
