// Textures whose name asks for compression into blocks.

#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "shownPictures.h"
#include "textureScene.h"
#include "writers/extensionWriter.h"

#include <gmock/gmock.h>

#include <cmath>

namespace tvk {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

class Tex4x4Export : public testing::Test, public ExportSession {
protected:
    decode::ModelTextures exported(const std::string& name, const Picture& picture) {
        writeImage(folder.path(name + ".tga"), picture);
        return exported(name);
    }
    decode::ModelTextures exported(const std::string& name) {
        open(texturedText("file1", folder.path(name + ".tga")));
        EXPECT_TRUE(exportAll()) << takeMessages();
        return decode::readModelTextures(decode::readIntermediateFile(fileText("model.imd")));
    }
};

// A colour of the console, so that nothing is lost by rounding.
Rgba console(int r, int g, int b) {
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value << 3 | value >> 2); };
    return {channel(r), channel(g), channel(b)};
}

void fillBlock(Picture& picture, std::size_t block, const std::vector<Rgba>& colors) {
    for (std::size_t i = 0; i < 16; ++i) {
        picture.at(block * 4 + i % 4, i / 4) = colors[i % colors.size()];
    }
}

TEST_F(Tex4x4Export, OfTwoColorsABlockIsExactUnderCmp2) {
    Picture picture(16, 8, console(3, 5, 7));
    fillBlock(picture, 0, {console(31, 0, 0), console(0, 0, 31)});
    fillBlock(picture, 1, {console(1, 2, 3)});
    fillBlock(picture, 2, {console(0, 31, 0), console(0, 30, 0)});
    const decode::ModelTextures textures = exported("x_cmp2", picture);
    const decode::ModelTexture& image = textures.image("x_cmp2");
    EXPECT_EQ(image.format, "tex4x4");
    EXPECT_EQ(image.paletteName, "x_cmp2");
    expectShows(image, picture, 2);
}

TEST_F(Tex4x4Export, OfAGradientABlockTakesMode3UnderCmp2) {
    Picture picture(8, 8, console(0, 0, 0));
    // The steps that eighths of two colours give: 0, (5*0 + 3*8)/8, (3*0 + 5*8)/8, 8.
    fillBlock(picture, 0, {console(0, 0, 0), console(3, 3, 3), console(5, 5, 5), console(8, 8, 8)});
    const decode::ModelTextures textures = exported("x_cmp2", picture);
    EXPECT_EQ(textures.image("x_cmp2").blockModes.at(0), 3);
    expectShows(textures.image("x_cmp2"), picture, 4);
}

TEST_F(Tex4x4Export, WithHolesABlockTakesMode1UnderCmp2) {
    Picture picture(8, 8, console(0, 0, 0));
    fillBlock(picture, 0, {console(31, 0, 0), console(0, 0, 31)});
    picture.at(2, 1).a = 0;
    const decode::ModelTextures textures = exported("x_cmp2", picture);
    EXPECT_EQ(textures.image("x_cmp2").blockModes.at(0), 1);
    EXPECT_EQ(textures.image("x_cmp2").at(2, 1).a, 0);
    expectShows(textures.image("x_cmp2"), picture, 2);
}

TEST_F(Tex4x4Export, OfFourColorsABlockIsExactInMode2UnderCmp4) {
    Picture picture(8, 8, console(9, 9, 9));
    fillBlock(picture, 0, {console(31, 0, 0), console(0, 31, 0), console(0, 0, 31), console(31, 31, 0)});
    const decode::ModelTextures textures = exported("y_cmp4", picture);
    EXPECT_EQ(textures.image("y_cmp4").blockModes.at(0), 2);
    expectShows(textures.image("y_cmp4"), picture, 4);
}

TEST_F(Tex4x4Export, OfAFlatImageUsesOneEntry) {
    const Picture picture(64, 64, console(12, 4, 30));
    const decode::ModelTextures textures = exported("flat_cmp4", picture);
    EXPECT_THAT(textures.image("flat_cmp4").blockPlaces, Each(0));
    EXPECT_EQ(textures.palette("flat_cmp4").colors.size(), 8U);
    expectShows(textures.image("flat_cmp4"), picture, 1);
}

TEST_F(Tex4x4Export, ShowsASoftPictureNearlyAsWellAsFiveBitsCan) {
    // Ramps across each other. Their blocks hold many colours that lie near a line.
    Picture picture(64, 64);
    for (std::size_t row = 0; row < 64; ++row) {
        for (std::size_t column = 0; column < 64; ++column) {
            picture.at(column, row) = {static_cast<std::uint8_t>(column * 4), static_cast<std::uint8_t>(255 - row * 3),
                                       static_cast<std::uint8_t>(column + 2 * row)};
        }
    }
    for (const char* name : {"soft_cmp2", "soft_cmp4"}) {
        const decode::ModelTextures textures = exported(name, picture);
        expectShows(textures.image(name), picture, 2);
        const double quality = peakSignalToNoise(textures.image(name), picture);
        EXPECT_GE(quality, bestSignalToNoise(picture) - 3.0) << name;
        EXPECT_GE(quality, plainBlocksSignalToNoise(picture) + 1.0) << name;
    }
}

TEST_F(Tex4x4Export, OfNoiseOf512By512StaysWithin32768Colors) {
    Picture picture = makeScatteredPicture(512, 512);
    for (Rgba& pixel : picture.pixels) {
        pixel.a = 255;
    }
    const decode::ModelTextures textures = exported("noise_cmp2", picture);
    EXPECT_LE(textures.palette("noise_cmp2").colors.size(), 32768U);
    expectShows(textures.image("noise_cmp2"), picture);
    EXPECT_GE(peakSignalToNoise(textures.image("noise_cmp2"), picture), plainBlocksSignalToNoise(picture) + 1.0);
}

TEST_F(Tex4x4Export, OfCmp2AloneIsAutomatic) {
    const decode::ModelTextures textures = exported("_cmp2", Picture(8, 8, console(1, 1, 1)));
    EXPECT_EQ(textures.image("_cmp2").format, "palette4");
}

TEST_F(Tex4x4Export, GivesWayToAnExtensionBlock) {
    writeBytes(folder.path("a_cmp4.tga"),
               tgaWithBlock(8, 8,
                            joined({chunk("tvk_frmt", "palette4"), chunk("tvk_txel", std::vector<uint8_t>(16, 0xE4)),
                                    chunk("tvk_pnam", "own"), chunk("tvk_pcol", wordBytes({1, 2, 3, 4}))})));
    const decode::ModelTextures textures = exported("a_cmp4");
    EXPECT_EQ(textures.image("a_cmp4").format, "palette4");
    EXPECT_THAT(textures.palette("own").colors, ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(textures.image("a_cmp4").at(2, 0) == (decode::ShownTexel{3, 0, 0, 31}));
}

TEST_F(Tex4x4Export, BeyondTheConsolesMemoryIsWrittenWithAWarning) {
    exported("big_cmp2", Picture(1024, 1024, console(1, 2, 3)));
    EXPECT_THAT(takeMessages(), HasSubstr("Warning: Texture is too large for tex4x4: big_cmp2 (1024 x 1024)\n"));
}

} // namespace
} // namespace tvk
