#include "image/textureConversion.h"

#include "tex4x4/tex4x4Decoder.h"
#include "texelDecoder.h"
#include "writers/Picture.h"
#include "writers/extensionWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;

ImageRecord imageOf(const Picture& picture) {
    ImageRecord image;
    image.fileName = "a.tga";
    image.width = static_cast<uint16_t>(picture.width);
    image.height = static_cast<uint16_t>(picture.height);
    image.hasAlpha = true;
    image.pixels = picture.bytes();
    return image;
}

ConvertedTexture converted(const ImageRecord& image, const std::string& name) {
    ConvertedTexture texture;
    EXPECT_EQ(convertTexture(image, name, texture).error, "");
    return texture;
}

std::string errorOf(const ImageRecord& image, const std::string& name) {
    ConvertedTexture texture;
    return convertTexture(image, name, texture).error;
}

// An image of a file whose block has a format, texels of zeros, and colours where there are to be some.
ImageRecord withBlock(TextureFormat format, std::size_t texelBytes, std::size_t indices, std::size_t colors,
                      uint16_t width = 16, uint16_t height = 8) {
    ImageRecord image;
    image.fileName = "a.tga";
    image.width = width;
    image.height = height;
    image.hasExtension = true;
    image.extension.hasFormat = true;
    image.extension.format = format;
    image.extension.texels.resize(texelBytes);
    image.extension.paletteIndices.resize(indices);
    image.extension.hasPalette = colors > 0;
    image.extension.palette.resize(colors);
    image.extension.paletteName = colors > 0 ? "oak" : "";
    return image;
}

// ---- refusals

TEST(TextureConversion, ABlockWithAPaletteFormatButNoColoursHasNoPaletteData) {
    for (const TextureFormatRow& row : kTextureFormats) {
        if (row.paletteSize > 0) {
            const auto bytes = static_cast<std::size_t>(128 * row.bitsPerTexel / 8);
            EXPECT_EQ(errorOf(withBlock(row.format, bytes, 0, 0), "wood"), "No palette data: wood") << row.name;
            EXPECT_EQ(errorOf(withBlock(row.format, bytes, 0, 4), "wood"), "") << row.name;
        }
    }
}

TEST(TextureConversion, ABlockMustFillTheTextureExactly) {
    const std::string invalid = "Invalid additional information: a.tga";
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kDirect, 256, 0, 0), "wood"), "");
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kDirect, 254, 0, 0), "wood"), invalid);
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kDirect, 257, 0, 0), "wood"), invalid);
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kPalette16, 64, 0, 16), "wood"), "");
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kPalette16, 63, 0, 16), "wood"), invalid);
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kTex4x4, 32, 8, 16), "wood"), "");
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kTex4x4, 32, 7, 16), "wood"), invalid);
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kTex4x4, 28, 8, 16), "wood"), invalid);
    EXPECT_EQ(errorOf(withBlock(TextureFormat::kDirect, 256, 0, 0, 12, 5), "wood"), "") << "of 16 by 8";
}

// ---- blocks

TEST(TextureConversion, ABlockWinsOverPixelsAndOverTheName) {
    ImageRecord image = withBlock(TextureFormat::kPalette16, 64, 0, 16);
    image.extension.color0Transparent = true;
    image.extension.texels[0] = 0x21;
    for (const std::string name : {"wood", "wood_cmp2", "wood_cmp4"}) {
        const ConvertedTexture texture = converted(image, name);
        EXPECT_EQ(texture.data.format, TextureFormat::kPalette16);
        EXPECT_TRUE(texture.data.color0Transparent);
        EXPECT_EQ(texture.data.texels[0], 0x21);
        EXPECT_EQ(texture.data.paletteName, "oak");
        EXPECT_EQ(texture.width, 16U);
        EXPECT_EQ(texture.height, 8U);
    }
}

// ---- pixels

TEST(TextureConversion, AutomaticPalettesAreNamedLikeTheImageAndPaddingAddsNoColours) {
    Picture picture(100, 64, {255, 0, 0});
    picture.at(99, 63) = {0, 255, 0, 0};
    const ConvertedTexture texture = converted(imageOf(picture), "wood");
    EXPECT_EQ(texture.width, 128U);
    EXPECT_EQ(texture.height, 64U);
    EXPECT_EQ(texture.originalWidth, 100);
    EXPECT_EQ(texture.originalHeight, 64);
    EXPECT_EQ(texture.data.format, TextureFormat::kPalette4);
    EXPECT_EQ(texture.data.paletteName, "wood");
    EXPECT_THAT(texture.data.palette, ElementsAre(0xFFFF, 0x001F, 0x7FFF, 0x7FFF));
    const std::vector<Rgba> texels = decodeTexels(texture.data, 128 * 64);
    EXPECT_EQ(texels[0], (Rgba{248, 0, 0, 255}));
    EXPECT_EQ(texels[62 * 128 + 127], (Rgba{248, 0, 0, 255})) << "the last column goes on";
    EXPECT_EQ(texels[63 * 128 + 127].a, 0) << "alpha included";
}

TEST(TextureConversion, DirectTexturesHaveNoPalette) {
    Picture picture = makeScatteredPicture(32, 32);
    for (Rgba& pixel : picture.pixels) {
        pixel.a = 255;
    }
    const ConvertedTexture texture = converted(imageOf(picture), "wood");
    EXPECT_EQ(texture.data.format, TextureFormat::kDirect);
    EXPECT_FALSE(texture.data.hasPalette);
    EXPECT_EQ(texture.data.paletteName, "");
    EXPECT_EQ(texture.data.texels.size(), 2048U);
}

TEST(TextureConversion, ReducedAlphaIsTold) {
    const ConvertedTexture texture = converted(imageOf(makeScatteredPicture(32, 32)), "wood");
    EXPECT_TRUE(texture.alphaIsReduced);
    EXPECT_FALSE(converted(imageOf(Picture(8, 8, {1, 2, 3, 100})), "wood").alphaIsReduced);
}

TEST(TextureConversion, NamesSelectTex4x4AndTheSuffixAloneDoesNot) {
    const std::vector<Rgba> colors{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};
    Picture picture(13, 8);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        picture.pixels[i] = colors[i % 4];
    }
    const ImageRecord image = imageOf(picture);
    EXPECT_EQ(converted(image, "_cmp2").data.format, TextureFormat::kPalette4);
    EXPECT_EQ(converted(image, "_cmp4").data.format, TextureFormat::kPalette4);

    const ConvertedTexture four = converted(image, "x_cmp4");
    EXPECT_EQ(four.data.format, TextureFormat::kTex4x4);
    EXPECT_EQ(four.data.paletteName, "x_cmp4");
    EXPECT_TRUE(four.data.hasPalette);
    EXPECT_EQ(decodeBlock(four.data, 0).mode, 2U);
    const std::vector<uint8_t> texels = decodeTex4x4(four.data, 16, 8);
    EXPECT_EQ(std::vector<uint8_t>(texels.begin(), texels.begin() + 52),
              std::vector<uint8_t>(image.pixels.begin(), image.pixels.begin() + 52));

    const ConvertedTexture two = converted(image, "x_cmp2");
    EXPECT_EQ(two.data.format, TextureFormat::kTex4x4);
    EXPECT_EQ(decodeBlock(two.data, 0).mode % 2, 1U);
}

TEST(TextureConversion, Tex4x4AboveTheMemoryOfBlocksIsTold) {
    EXPECT_FALSE(converted(imageOf(Picture(1024, 512)), "x_cmp2").exceedsBlockMemory);
    EXPECT_TRUE(converted(imageOf(Picture(1024, 513)), "x_cmp2").exceedsBlockMemory);
    EXPECT_FALSE(converted(imageOf(Picture(1024, 1024)), "x").exceedsBlockMemory) << "other formats have no such limit";
    const ImageRecord block = withBlock(TextureFormat::kTex4x4, 1024 * 1024 / 4, 1024 * 1024 / 16, 8, 1024, 1024);
    EXPECT_TRUE(converted(block, "x").exceedsBlockMemory);
}

} // namespace
} // namespace tvk
