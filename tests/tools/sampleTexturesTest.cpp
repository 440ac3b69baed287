#include "sampleTextures/sampleTextures.h"

#include "sampleTextures/paintSurfaces.h"
#include "sampleTextures/paintThings.h"
#include "sampleTextures/picFile.h"
#include "sampleTextures/textureBlock.h"

#include "image/TextureFormat.h"
#include "image/imageFile.h"
#include "image/textureConversion.h"

#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace tvk {
namespace {

using samples::FileBytes;
using samples::Picture;
using samples::SampleTexture;
using samples::sampleTextures;

const std::string kFolder = std::string(TVK_SOURCE_DIR) + "/samples/sourceimages/";

FileBytes readBytes(const std::string& path) {
    std::ifstream in(path, std::ios_base::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

ImageRecord openSample(const std::string& fileName) {
    ImageRecord image;
    const ImageResult result = openImage(kFolder + fileName, ImageReading::kTexture, image);
    EXPECT_TRUE(result.ok()) << fileName;
    return image;
}

// 'makeSampleTextures samples/sourceimages' writes them anew.
TEST(SampleTextures, AreWhatTheGeneratorMakes) {
    for (const SampleTexture& texture : sampleTextures()) {
        EXPECT_TRUE(texture.make() == readBytes(kFolder + std::string(texture.fileName))) << texture.fileName;
    }
}

TEST(SampleTextures, NoOtherFileLiesBesideThem) {
    std::set<std::string> made, found;
    for (const SampleTexture& texture : sampleTextures()) {
        made.emplace(texture.fileName);
    }
    std::uintmax_t total = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
        found.insert(entry.path().filename().string());
        total += entry.file_size();
    }
    EXPECT_EQ(found, made);
    EXPECT_LT(total, 200000U);
}

TEST(SampleTextures, ShowEveryFormat) {
    std::set<std::string_view> formats;
    for (const SampleTexture& texture : sampleTextures()) {
        const std::string fileName(texture.fileName);
        const ImageRecord image = openSample(fileName);
        ConvertedTexture converted;
        ASSERT_TRUE(convertTexture(image, fileName.substr(0, fileName.rfind('.')), converted).ok()) << fileName;
        EXPECT_EQ(textureFormatRow(converted.data.format).name, texture.format) << fileName;
        EXPECT_EQ(converted.width, image.width) << fileName;
        EXPECT_EQ(converted.height, image.height) << fileName;
        EXPECT_FALSE(converted.alphaIsReduced) << fileName;
        formats.insert(texture.format);
    }
    EXPECT_EQ(formats.size(), kTextureFormats.size());
}

TEST(SampleTextures, BlocksAreInBothKindsOfFileAndOneOfThemIsShared) {
    const ImageRecord off = openSample("lamp_off.tga"), on = openSample("lamp_on.tga"), sign = openSample("sign.pic");
    for (const ImageRecord* image : {&off, &on, &sign}) {
        EXPECT_TRUE(image->hasExtension) << image->fileName;
        EXPECT_TRUE(image->extension.hasPalette) << image->fileName;
    }
    EXPECT_EQ(off.extension.paletteName, "lamps");
    EXPECT_EQ(on.extension.paletteName, "lamps");
    EXPECT_EQ(off.extension.palette, on.extension.palette);
    EXPECT_NE(off.extension.texels, on.extension.texels);
    EXPECT_TRUE(sign.extension.color0Transparent);
    EXPECT_FALSE(openSample("leaf.tga").hasExtension);
}

void expectPixels(const std::string& fileName, const FileBytes& file, const Picture& picture, bool hasAlpha) {
    const TemporaryFolder folder;
    const std::string path = folder.path(fileName);
    std::ofstream(path, std::ios_base::binary)
        .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    ImageRecord image;
    ASSERT_TRUE(openImage(path, ImageReading::kTexture, image).ok()) << fileName;
    std::vector<uint8_t> expected;
    for (const samples::Pixel& pixel : picture.pixels) {
        expected.insert(expected.end(),
                        {pixel.red, pixel.green, pixel.blue, hasAlpha ? pixel.alpha : static_cast<uint8_t>(255)});
    }
    EXPECT_TRUE(image.pixels == expected) << fileName;
}

TEST(SampleTextures, EveryKindOfFileHoldsItsPicture) {
    using samples::TgaKind;
    const Picture leaf = samples::paintLeaf(), checker = samples::paintChecker();
    expectPixels("runs32.tga", writeTga(leaf, TgaKind::kRuns32), leaf, true);
    expectPixels("plain32.tga", writeTga(leaf, TgaKind::kPlain32), leaf, true);
    expectPixels("runs24.tga", writeTga(leaf, TgaKind::kRuns24), leaf, false);
    expectPixels("plain24.tga", writeTga(leaf, TgaKind::kPlain24), leaf, false);
    expectPixels("map.tga", writeTga(leaf, TgaKind::kColorMapped), leaf, false);
    expectPixels("alpha.pic", writePic(leaf), leaf, true);
    expectPixels("opaque.pic", writePic(checker), checker, false);
}

// The pixels that other programs show and the texture in the block are one picture.
TEST(SampleTextures, PicturesWithBlocksShowWhatTheBlockHolds) {
    for (const samples::IndexedPicture& picture : {samples::paintLamp(true), samples::paintSign()}) {
        const std::vector<uint8_t> block = textureBlock(picture, "p");
        EXPECT_THAT(std::string(block.begin(), block.end()), testing::HasSubstr("tvk_pnam"));
        const Picture shown = pictureOf(picture);
        for (std::size_t at = 0; at < shown.pixels.size(); ++at) {
            const uint16_t color = picture.palette[picture.indices[at]];
            EXPECT_EQ(shown.pixels[at].red >> 3 | shown.pixels[at].green >> 3 << 5 | shown.pixels[at].blue >> 3 << 10,
                      color);
        }
    }
}

} // namespace
} // namespace tvk
