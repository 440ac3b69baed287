#include "image/formatChoice.h"

#include "writers/Picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ImageRecord imageOf(const std::vector<Rgba>& pixels, bool hasAlpha = true) {
    ImageRecord image;
    image.width = static_cast<uint16_t>(pixels.size());
    image.height = 1;
    image.hasAlpha = hasAlpha;
    for (const Rgba& pixel : pixels) {
        image.pixels.insert(image.pixels.end(), {pixel.r, pixel.g, pixel.b, pixel.a});
    }
    return image;
}

// The i-th of many colours that differ in their top five bits.
Rgba colorOf(std::size_t i, std::uint8_t alpha = 255) {
    return {static_cast<std::uint8_t>(i % 32 * 8), static_cast<std::uint8_t>(i / 32 % 32 * 8), 64, alpha};
}

std::vector<Rgba> colors(std::size_t count, std::uint8_t alpha = 255) {
    std::vector<Rgba> all;
    for (std::size_t i = 0; i < count; ++i) {
        all.push_back(colorOf(i, alpha));
    }
    return all;
}

std::vector<Rgba> with(std::vector<Rgba> pixels, const std::vector<Rgba>& more) {
    pixels.insert(pixels.end(), more.begin(), more.end());
    return pixels;
}

// ---- names

TEST(FormatChoice, NamesAskForTex4x4BehindAtLeastOneCharacter) {
    for (const auto& [name, format] : {std::pair("a_cmp2", NamedFormat::kTex4x4TwoColors),
                                       {"wood_cmp4", NamedFormat::kTex4x4FourColors},
                                       {"_cmp2", NamedFormat::kAutomatic},
                                       {"_cmp4", NamedFormat::kAutomatic},
                                       {"", NamedFormat::kAutomatic},
                                       {"cmp2", NamedFormat::kAutomatic},
                                       {"wood_cmp", NamedFormat::kAutomatic},
                                       {"wood_cmp3", NamedFormat::kAutomatic},
                                       {"wood_CMP2", NamedFormat::kAutomatic},
                                       {"wood_cmp2x", NamedFormat::kAutomatic},
                                       {"wood_cmp2_cmp4", NamedFormat::kTex4x4FourColors}}) {
        EXPECT_EQ(namedFormat(name), format) << name;
    }
}

TEST(FormatChoice, FormatsHaveTheirNamesAndAllOtherCodesAreErr) {
    const std::vector<std::string> names{"a3i5", "palette4", "palette16", "palette256", "tex4x4", "a5i3", "direct"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(textureFormatName(static_cast<int32_t>(i)), names[i]);
        EXPECT_EQ(textureFormatRow(static_cast<TextureFormat>(i)).name, names[i]);
    }
    for (const int32_t code : {-1, 7, 1000, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(textureFormatName(code), "err") << code;
    }
}

// ---- colours and alpha

TEST(FormatChoice, ColourKeysHoldTheTopFiveBitsRedLowest) {
    const std::uint8_t dark[] = {7, 7, 7}, red[] = {8, 0, 0}, green[] = {0, 255, 0}, blue[] = {0, 0, 15},
                       white[] = {248, 249, 255};
    EXPECT_EQ(colorKey(dark), 0);
    EXPECT_EQ(colorKey(red), 1);
    EXPECT_EQ(colorKey(green), 0x03E0);
    EXPECT_EQ(colorKey(blue), 0x0400);
    EXPECT_EQ(colorKey(white), 0x7FFF);
}

TEST(FormatChoice, AlphaModeIsTranslucentAsSoonAsOneAlphaIsBetween) {
    const Rgba opaque{1, 2, 3, 255}, hole{1, 2, 3, 0}, faint{1, 2, 3, 1}, strong{1, 2, 3, 254};
    EXPECT_EQ(alphaMode(imageOf({opaque, opaque})), AlphaMode::kOpaque);
    EXPECT_EQ(alphaMode(imageOf({opaque, hole})), AlphaMode::kHoles);
    EXPECT_EQ(alphaMode(imageOf({hole})), AlphaMode::kHoles);
    EXPECT_EQ(alphaMode(imageOf({opaque, hole, faint})), AlphaMode::kTranslucent);
    EXPECT_EQ(alphaMode(imageOf({strong})), AlphaMode::kTranslucent);
    EXPECT_EQ(alphaMode(imageOf({hole, faint}, false)), AlphaMode::kOpaque) << "an image without alpha";
}

// ---- formats

TEST(FormatChoice, OpaqueImagesGoByTheNumberOfTheirColours) {
    struct Row {
        std::size_t colors;
        TextureFormat format;
        std::size_t paletteSize;
    };
    for (const Row& row : {Row{1, TextureFormat::kPalette4, 4}, Row{4, TextureFormat::kPalette4, 4},
                           Row{5, TextureFormat::kPalette16, 8}, Row{8, TextureFormat::kPalette16, 8},
                           Row{9, TextureFormat::kPalette16, 16}, Row{16, TextureFormat::kPalette16, 16},
                           Row{17, TextureFormat::kPalette256, 24}, Row{255, TextureFormat::kPalette256, 256},
                           Row{256, TextureFormat::kPalette256, 256}, Row{257, TextureFormat::kDirect, 0},
                           Row{1024, TextureFormat::kDirect, 0}}) {
        const FormatChoice choice = chooseFormat(imageOf(with(colors(row.colors), colors(row.colors))));
        EXPECT_EQ(choice.format, row.format) << row.colors;
        EXPECT_EQ(choice.hasPalette, row.paletteSize > 0) << row.colors;
        EXPECT_EQ(choice.palette.size(), row.paletteSize) << row.colors;
        EXPECT_FALSE(choice.color0Transparent) << row.colors;
        EXPECT_FALSE(choice.alphaIsReduced) << row.colors;
    }
}

TEST(FormatChoice, HolesCountAsOneColourMore) {
    struct Row {
        std::size_t colors;
        TextureFormat format;
        std::size_t paletteSize;
    };
    for (const Row& row : {Row{0, TextureFormat::kPalette4, 4}, Row{3, TextureFormat::kPalette4, 4},
                           Row{4, TextureFormat::kPalette16, 8}, Row{15, TextureFormat::kPalette16, 16},
                           Row{16, TextureFormat::kPalette256, 24}, Row{255, TextureFormat::kPalette256, 256},
                           Row{256, TextureFormat::kDirect, 0}}) {
        // Holes of many colours are one marker all the same.
        const FormatChoice choice = chooseFormat(imageOf(with(colors(row.colors), colors(300, 0))));
        EXPECT_EQ(choice.format, row.format) << row.colors;
        EXPECT_EQ(choice.color0Transparent, row.paletteSize > 0) << row.colors;
        EXPECT_EQ(choice.palette.size(), row.paletteSize) << row.colors;
        EXPECT_FALSE(choice.alphaIsReduced) << row.colors;
    }
}

TEST(FormatChoice, ThreeOpaqueColoursAndHolesArePalette4WithTheMarkerFirst) {
    const FormatChoice choice =
        chooseFormat(imageOf({{255, 0, 0}, {9, 9, 9, 0}, {0, 255, 0}, {255, 0, 0}, {0, 0, 255}, {1, 1, 1, 0}}));
    EXPECT_EQ(choice.format, TextureFormat::kPalette4);
    EXPECT_TRUE(choice.color0Transparent);
    EXPECT_THAT(choice.palette, ElementsAre(0xFFFF, 0x001F, 0x03E0, 0x7C00));
}

TEST(FormatChoice, PalettesKeepTheOrderInWhichColoursAreMetAndAreFilledWithWhite) {
    const FormatChoice choice = chooseFormat(imageOf({{0, 0, 255}, {255, 0, 0}, {0, 0, 255}, {0, 255, 0}}));
    EXPECT_THAT(choice.palette, ElementsAre(0x7C00, 0x001F, 0x03E0, 0x7FFF));
}

TEST(FormatChoice, TheMarkerMovesToTheFrontAndTheOthersKeepTheirOrder) {
    const FormatChoice choice = chooseFormat(imageOf(with(with(colors(4), {{0, 0, 0, 0}}), {{255, 255, 255}})));
    EXPECT_EQ(choice.format, TextureFormat::kPalette16);
    EXPECT_THAT(choice.palette, ElementsAre(0xFFFF, 0x2000, 0x2001, 0x2002, 0x2003, 0x7FFF, 0x7FFF, 0x7FFF));
}

TEST(FormatChoice, AllPixelsTransparentArePalette4OfTheMarker) {
    const FormatChoice choice = chooseFormat(imageOf(colors(500, 0)));
    EXPECT_EQ(choice.format, TextureFormat::kPalette4);
    EXPECT_TRUE(choice.color0Transparent);
    EXPECT_THAT(choice.palette, ElementsAre(0xFFFF, 0x7FFF, 0x7FFF, 0x7FFF));
}

TEST(FormatChoice, TranslucentImagesOfFewColoursKeepTheirAlpha) {
    struct Row {
        std::size_t colors;
        TextureFormat format;
        std::size_t paletteSize;
    };
    for (const Row& row :
         {Row{1, TextureFormat::kA5i3, 8}, Row{8, TextureFormat::kA5i3, 8}, Row{9, TextureFormat::kA3i5, 16},
          Row{16, TextureFormat::kA3i5, 16}, Row{17, TextureFormat::kA3i5, 24}, Row{32, TextureFormat::kA3i5, 32}}) {
        const FormatChoice choice = chooseFormat(imageOf(colors(row.colors, 200)));
        EXPECT_EQ(choice.format, row.format) << row.colors;
        EXPECT_EQ(choice.palette.size(), row.paletteSize) << row.colors;
        EXPECT_TRUE(choice.hasPalette);
        EXPECT_FALSE(choice.color0Transparent) << row.colors;
        EXPECT_FALSE(choice.alphaIsReduced) << row.colors;
    }
}

TEST(FormatChoice, FaintColoursStandInThePaletteOfATranslucentImage) {
    const FormatChoice choice = chooseFormat(imageOf({{255, 0, 0, 5}, {0, 0, 0, 0}, {0, 255, 0, 250}}));
    EXPECT_EQ(choice.format, TextureFormat::kA5i3);
    EXPECT_THAT(choice.palette, ElementsAre(0x001F, 0, 0x03E0, 0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF));
}

TEST(FormatChoice, TranslucentImagesOfManyColoursLoseTheirAlphaAndSaySo) {
    const FormatChoice few = chooseFormat(imageOf(with(colors(33), {{0, 0, 0, 127}})));
    EXPECT_EQ(few.format, TextureFormat::kPalette256);
    EXPECT_TRUE(few.color0Transparent);
    EXPECT_TRUE(few.alphaIsReduced);
    EXPECT_EQ(few.palette.front(), 0xFFFF);

    const FormatChoice strong = chooseFormat(imageOf(colors(33, 128)));
    EXPECT_EQ(strong.format, TextureFormat::kPalette256);
    EXPECT_FALSE(strong.color0Transparent) << "128 counts as there";
    EXPECT_TRUE(strong.alphaIsReduced);

    const FormatChoice many = chooseFormat(imageOf(colors(300, 100)));
    EXPECT_EQ(many.format, TextureFormat::kPalette4) << "nothing is there at all";
    EXPECT_TRUE(many.alphaIsReduced);

    const FormatChoice direct = chooseFormat(imageOf(with(colors(300, 128), {{0, 0, 0, 0}})));
    EXPECT_EQ(direct.format, TextureFormat::kDirect);
    EXPECT_FALSE(direct.color0Transparent);
    EXPECT_TRUE(direct.alphaIsReduced);
    EXPECT_THAT(direct.palette, IsEmpty());
}

TEST(FormatChoice, ColoursThatDifferInTheirLowBitsOnlyAreOne) {
    const FormatChoice choice = chooseFormat(imageOf({{8, 16, 24}, {15, 23, 31}, {16, 16, 24}}));
    EXPECT_THAT(choice.palette, ElementsAre(0x0C41, 0x0C42, 0x7FFF, 0x7FFF));
}

} // namespace
} // namespace tvk
