#include "material/paletteRegistration.h"

#include "FreshRun.h"
#include "scene/messages.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

using Colors = std::vector<uint16_t>;

TextureRecord imageOf(const std::string& name) {
    TextureRecord image;
    image.name = name;
    return image;
}

class PaletteClash : public testing::TestWithParam<Colors> {};

TEST_P(PaletteClash, FailsAndNamesBothImages) {
    const FreshRun fresh;
    TextureRecord first = imageOf("grass");
    TextureRecord second = imageOf("stone");
    int index = -7;
    EXPECT_TRUE(registerPalette("shared", {1, 2, 3}, first, index));
    index = -7;
    EXPECT_FALSE(registerPalette("shared", GetParam(), second, index));
    EXPECT_EQ(index, -7);
    EXPECT_EQ(fresh.messages(), "Error: Texture palette data is not identical: shared\n"
                                "       (used by grass and stone)\n");
    EXPECT_FALSE(warningRaised());
    EXPECT_EQ(run().scene.palettes.size(), 1U);
    EXPECT_EQ(run().scene.palettes[0].colors, (Colors{1, 2, 3}));
}

INSTANTIATE_TEST_SUITE_P(OneColorDiffers, PaletteClash, testing::Values(Colors{1, 2, 4}, Colors{0, 2, 3}));
INSTANTIATE_TEST_SUITE_P(HighestBitDiffers, PaletteClash, testing::Values(Colors{1, 2, 0x8003}));
INSTANTIATE_TEST_SUITE_P(CountDiffers, PaletteClash, testing::Values(Colors{1, 2}, Colors{1, 2, 3, 4}, Colors{}));

TEST(Palettes, OfOneNameAndEqualColorsAreOne) {
    const FreshRun fresh;
    TextureRecord first = imageOf("grass");
    TextureRecord second = imageOf("stone");
    int index = -1;
    EXPECT_TRUE(registerPalette("other", {9}, first, index));
    EXPECT_EQ(index, 0);
    EXPECT_TRUE(registerPalette("shared", {1, 2}, first, index));
    EXPECT_EQ(index, 1);
    EXPECT_TRUE(registerPalette("shared", {1, 2}, second, index));
    EXPECT_EQ(index, 1);
    EXPECT_EQ(run().scene.palettes.size(), 2U);
    EXPECT_EQ(run().scene.palettes[1].user, "grass");
    EXPECT_EQ(fresh.messages(), "");
}

TEST(Palettes, AreToldApartByTheCaseOfTheirNames) {
    const FreshRun fresh;
    TextureRecord image = imageOf("grass");
    int index = -1;
    EXPECT_TRUE(registerPalette("Pal", {1}, image, index));
    EXPECT_TRUE(registerPalette("pal", {2}, image, index));
    EXPECT_EQ(index, 1);
}

TEST(Palettes, WithoutNameClashLikeAllOthers) {
    const FreshRun fresh;
    TextureRecord first = imageOf("grass");
    TextureRecord second = imageOf("stone");
    int index = -1;
    EXPECT_TRUE(registerPalette("", {1}, first, index));
    EXPECT_TRUE(registerPalette("", {1}, second, index));
    EXPECT_FALSE(registerPalette("", {2}, second, index));
    EXPECT_EQ(fresh.messages(), "Error: Texture palette data is not identical: \n       (used by grass and stone)\n");
}

} // namespace
} // namespace tvk
