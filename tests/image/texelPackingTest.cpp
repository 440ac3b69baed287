#include "image/texelPacking.h"

#include "texelDecoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;

ImageRecord imageOf(const Picture& picture) {
    ImageRecord image;
    image.width = static_cast<uint16_t>(picture.width);
    image.height = static_cast<uint16_t>(picture.height);
    image.hasAlpha = true;
    image.pixels = picture.bytes();
    return image;
}

TextureData packed(const Picture& picture, FormatChoice& choice) {
    const ImageRecord image = imageOf(picture);
    choice = chooseFormat(image);
    TextureData data;
    data.format = choice.format;
    data.color0Transparent = choice.color0Transparent;
    data.palette = choice.palette;
    data.texels = packTexels(image, choice);
    return data;
}

// A picture of 16 by 16 pixels that takes its colours in turn from so many.
Picture pictureOf(std::size_t colors, const std::vector<std::uint8_t>& alphas) {
    Picture picture(16, 16);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const std::size_t c = i * 7 % colors;
        picture.pixels[i] = {static_cast<std::uint8_t>(c % 32 * 8 + 3), static_cast<std::uint8_t>(c / 32 * 8 + 7), 200,
                             alphas[i % alphas.size()]};
    }
    return picture;
}

struct Row {
    TextureFormat format;
    std::size_t colors;
    std::vector<std::uint8_t> alphas;
    unsigned int alphaSteps; // how many values of alpha are told apart
};

const std::vector<Row> kRows{
    {TextureFormat::kPalette4, 4, {255}, 1},
    {TextureFormat::kPalette4, 3, {255, 0}, 2},
    {TextureFormat::kPalette16, 5, {255}, 1},
    {TextureFormat::kPalette16, 16, {255}, 1},
    {TextureFormat::kPalette16, 15, {255, 255, 0}, 2},
    {TextureFormat::kPalette256, 17, {255}, 1},
    {TextureFormat::kPalette256, 256, {255}, 1},
    {TextureFormat::kPalette256, 100, {255, 0}, 2},
    {TextureFormat::kA5i3, 8, {0, 7, 8, 100, 128, 255}, 32},
    {TextureFormat::kA3i5, 32, {0, 31, 32, 127, 128, 224, 255}, 8},
    {TextureFormat::kA3i5, 9, {1}, 8},
};

void expectDecoded(const Picture& picture, const std::vector<Rgba>& decoded, unsigned int alphaSteps) {
    ASSERT_EQ(decoded.size(), picture.pixels.size());
    for (std::size_t i = 0; i < decoded.size(); ++i) {
        const Rgba& pixel = picture.pixels[i];
        const unsigned int step = 256 / alphaSteps;
        const unsigned int alpha = alphaSteps <= 2 ? (pixel.a >= 128 ? 255U : 0U) : pixel.a / step * step;
        ASSERT_EQ(decoded[i].a, alpha) << i;
        if (alphaSteps > 2 || alpha > 0) { // what is not there has no colour
            ASSERT_EQ(decoded[i].r, pixel.r / 8 * 8) << i;
            ASSERT_EQ(decoded[i].g, pixel.g / 8 * 8) << i;
            ASSERT_EQ(decoded[i].b, pixel.b / 8 * 8) << i;
        }
    }
}

TEST(TexelPacking, EveryPixelOfAPaletteOrTranslucentFormatIsFoundAgainInFiveBits) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(textureFormatName(static_cast<int32_t>(row.format))) + " of " +
                     std::to_string(row.colors));
        const Picture picture = pictureOf(row.colors, row.alphas);
        FormatChoice choice;
        const TextureData data = packed(picture, choice);
        ASSERT_EQ(data.format, row.format);
        const auto bits = static_cast<std::size_t>(textureFormatRow(row.format).bitsPerTexel);
        EXPECT_EQ(data.texels.size(), 256 * bits / 8);
        expectDecoded(picture, decodeTexels(data, 256), row.alphaSteps);
    }
}

TEST(TexelPacking, EveryPixelOfADirectImageIsFoundAgainInFiveBits) {
    Picture picture = makeScatteredPicture(64, 64);
    for (std::size_t i = 0; i < picture.pixels.size(); i += 3) {
        picture.pixels[i].a = static_cast<std::uint8_t>(i % 2 * 127); // both sides of the line are scattered anyway
    }
    FormatChoice choice;
    const TextureData data = packed(picture, choice);
    ASSERT_EQ(data.format, TextureFormat::kDirect);
    EXPECT_EQ(data.texels.size(), 64U * 64U * 2U);
    const std::vector<Rgba> decoded = decodeTexels(data, picture.pixels.size());
    for (std::size_t i = 0; i < decoded.size(); ++i) { // direct texels keep the colour of what is not there
        const Rgba& pixel = picture.pixels[i];
        ASSERT_EQ(
            decoded[i],
            (Rgba{static_cast<std::uint8_t>(pixel.r / 8 * 8), static_cast<std::uint8_t>(pixel.g / 8 * 8),
                  static_cast<std::uint8_t>(pixel.b / 8 * 8), static_cast<std::uint8_t>(pixel.a >= 128 ? 255 : 0)}))
            << i;
    }
}

TEST(TexelPacking, TheFirstTexelOfAWordStandsInItsLowestBits) {
    Picture picture(8, 1);
    for (std::size_t i = 0; i < 8; ++i) {
        picture.pixels[i] = {static_cast<std::uint8_t>(i % 4 * 8), 0, 0};
    }
    const ImageRecord image = imageOf(picture);
    FormatChoice choice;
    choice.hasPalette = true;
    choice.palette = {0, 1, 2, 3};
    choice.format = TextureFormat::kPalette4; // 0 1 2 3 from the lowest bits up
    EXPECT_THAT(packTexels(image, choice), ElementsAre(0xE4, 0xE4));
    choice.format = TextureFormat::kPalette16;
    EXPECT_THAT(packTexels(image, choice), ElementsAre(0x10, 0x32, 0x10, 0x32));
    choice.format = TextureFormat::kPalette256;
    EXPECT_THAT(packTexels(image, choice), ElementsAre(0, 1, 2, 3, 0, 1, 2, 3));
}

TEST(TexelPacking, DirectTexelsHaveTheTopBitWhereAlphaIsAtLeast128) {
    Picture picture(4, 1);
    picture.pixels = {{255, 0, 0, 255}, {0, 255, 0, 128}, {0, 0, 255, 127}, {255, 255, 255, 0}};
    EXPECT_THAT(packTexels(imageOf(picture), {}), ElementsAre(0x1F, 0x80, 0xE0, 0x83, 0x00, 0x7C, 0xFF, 0x7F));
}

TEST(TexelPacking, TranslucentTexelsHoldTheTopBitsOfAlphaAboveTheIndex) {
    Picture picture(4, 1);
    picture.pixels = {{8, 0, 0, 0xFF}, {16, 0, 0, 0x7F}, {8, 0, 0, 0x07}, {99, 99, 99, 0x20}};
    FormatChoice choice;
    choice.hasPalette = true;
    choice.palette = {0, 1, 2};
    choice.format = TextureFormat::kA3i5;
    EXPECT_THAT(packTexels(imageOf(picture), choice), ElementsAre(0xE1, 0x62, 0x01, 0x20));
    choice.format = TextureFormat::kA5i3;
    EXPECT_THAT(packTexels(imageOf(picture), choice), ElementsAre(0xF9, 0x7A, 0x01, 0x20));
}

TEST(TexelPacking, ColoursThatThePaletteLacksTakeEntry0AndOfEqualEntriesTheFirst) {
    Picture picture(4, 1);
    picture.pixels = {{99, 99, 99}, {8, 0, 0}, {16, 0, 0}, {8, 0, 0, 127}};
    FormatChoice choice;
    choice.format = TextureFormat::kPalette256;
    choice.hasPalette = true;
    choice.palette = {7, 2, 1, 1, 2};
    EXPECT_THAT(packTexels(imageOf(picture), choice), ElementsAre(0, 2, 1, 0));
    choice.palette = {7, 2, 1, 0xFFFF};
    EXPECT_THAT(packTexels(imageOf(picture), choice), ElementsAre(0, 2, 1, 3)) << "holes take the marker's entry";
}

TEST(TexelPacking, PaletteFormatsWithoutAPaletteGetDirectTexels) {
    Picture picture(8, 8, {255, 0, 0});
    for (const TextureFormat format :
         {TextureFormat::kPalette4, TextureFormat::kPalette16, TextureFormat::kPalette256}) {
        FormatChoice choice;
        choice.format = format;
        const std::vector<uint8_t> texels = packTexels(imageOf(picture), choice);
        EXPECT_EQ(texels.size(), 128U);
        EXPECT_EQ(texels, packTexels(imageOf(picture), {}));
    }
}

} // namespace
} // namespace tvk
