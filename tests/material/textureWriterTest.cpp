#include "material/textureWriter.h"

#include "MaterialSession.h"
#include "material/textureFiles.h"
#include "material/textureReferences.h"
#include "scene/messages.h"
#include "textureScene.h"
#include "writers/extensionWriter.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextureWriter : public testing::Test, public MaterialSession {
protected:
    // Registers an image that is already there, with a reference that repeats.
    void use(const std::string& name) {
        int image = -1;
        ASSERT_TRUE(registerTextureFile(folder.path(name).c_str(), image, "file_" + name)) << takeMessages();
        referTo(image, kTilingRepeat, kTilingRepeat);
    }
    void make(const std::string& name, const Picture& picture) {
        writeImage(folder.path(name), picture);
        use(name);
    }
    // An image whose block holds a palette4 texture with this palette.
    void makeWithBlock(const std::string& name, const std::string& paletteName,
                       const std::vector<std::uint16_t>& colors) {
        writeBytes(folder.path(name),
                   tgaWithBlock(8, 8,
                                joined({chunk("tvk_frmt", "palette4"), chunk("tvk_txel", std::vector<uint8_t>(16)),
                                        chunk("tvk_pnam", paletteName), chunk("tvk_pcol", wordBytes(colors)),
                                        chunk("tvk_endb", "")})));
        use(name);
    }
    std::string written(bool write = true) {
        sortTextures();
        std::ostringstream out;
        succeeded = writeTexImageArray(out, write) == MS::kSuccess;
        return out.str();
    }
    std::string elementOf(const std::string& attributes, const std::string& path) const {
        return attributes + "\t\tpath=\"" + folder.path(path) + "\"\n\t>\n";
    }
    bool succeeded = false;
};

TEST_F(TextureWriter, WritesNothingWithoutImages) {
    EXPECT_EQ(written(), "");
    EXPECT_TRUE(succeeded);
}

TEST_F(TextureWriter, ImageThatWentAwayFailsAndStaysOpen) {
    make("a.tga", Picture(8, 8));
    std::filesystem::remove(folder.path("a.tga"));
    EXPECT_EQ(written(), "<tex_image_array size=\"1\">\n");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(takeMessages(), "Error: Can't open file: " + folder.path("a.tga") + "\n       (used by file_a.tga)\n");
}

TEST_F(TextureWriter, TruncatedImageFailsAndKeepsWhatWasWritten) {
    make("a.tga", Picture(8, 8));
    std::vector<std::uint8_t> bytes = writeTga(Picture(8, 8), TgaOptions());
    bytes.resize(bytes.size() - 1);
    writeBytes(folder.path("b.tga"), bytes);
    use("b.tga");
    const std::string text = written();
    EXPECT_FALSE(succeeded);
    EXPECT_NE(text.find("name=\"a\""), std::string::npos);
    EXPECT_EQ(text.find("name=\"b\""), std::string::npos);
    EXPECT_EQ(text.find("</tex_image_array>"), std::string::npos);
    EXPECT_EQ(takeMessages(), "Error: Invalid TGA file (unexpected end of file): " + folder.path("b.tga") +
                                  "\n       (used by file_b.tga)\n");
}

struct BadBlock {
    std::vector<std::vector<std::uint8_t>> chunks;
    std::string message; // "@" stands for the folder
};

class TextureWriterWithBadBlock : public TextureWriter, public testing::WithParamInterface<BadBlock> {};

TEST_P(TextureWriterWithBadBlock, FailsAndSaysWhy) {
    writeBytes(folder.path("a.tga"), tgaWithBlock(8, 8, joined(GetParam().chunks)));
    use("a.tga");
    EXPECT_EQ(written(), "<tex_image_array size=\"1\">\n");
    EXPECT_FALSE(succeeded);
    std::string message = GetParam().message;
    if (const auto at = message.find('@'); at != std::string::npos) {
        message.replace(at, 1, folder.path());
    }
    EXPECT_EQ(takeMessages(), "Error: " + message + "\n       (used by file_a.tga)\n");
}

std::vector<std::uint8_t> zeros(std::size_t count) {
    return std::vector<std::uint8_t>(count);
}

INSTANTIATE_TEST_SUITE_P(
    All, TextureWriterWithBadBlock,
    testing::Values(BadBlock{{chunk("tvk_frmt", "direct")}, "Invalid additional information: @/a.tga"},
                    BadBlock{{chunk("tvk_frmt", "direct"), chunk("tvk_txel", zeros(126))},
                             "Invalid additional information: @/a.tga"},
                    BadBlock{{chunk("tvk_frmt", "tex4x4"), chunk("tvk_txel", zeros(16))},
                             "Invalid additional information: @/a.tga"},
                    BadBlock{{chunk("tvk_frmt", "palette8"), chunk("tvk_txel", zeros(16))},
                             "Invalid texture format: palette8"},
                    BadBlock{{chunk("tvk_frmt", "palette4"), chunk("tvk_txel", zeros(16))}, "No palette data: a"}));

TEST_F(TextureWriter, PalettesOfOneNameWithOneOtherColorFailAndNameBothImages) {
    makeWithBlock("x.tga", "shared", {1, 2, 3, 4});
    makeWithBlock("y.tga", "shared", {1, 2, 3, 5});
    written();
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(takeMessages(), "Error: Texture palette data is not identical: shared\n       (used by x and y)\n");
}

TEST_F(TextureWriter, DirectTextureHasNoColorModeAndNoPaletteName) {
    // More colours than a palette holds.
    make("a.tga", pictureOfColors(32, 16, 300));
    const std::string text = written();
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(text.substr(0, text.find("\t\t<bitmap")),
              elementOf("<tex_image_array size=\"1\">\n"
                        "\t<tex_image index=\"0\" name=\"a\"\n"
                        "\t\twidth=\"32\" height=\"16\" original_width=\"32\" original_height=\"16\"\n"
                        "\t\tformat=\"direct\"\n",
                        "a.tga"));
    EXPECT_THAT(run().scene.palettes, IsEmpty());
    EXPECT_EQ(run().scene.textureRefs[0].paletteIndex, -1);
    EXPECT_EQ(run().scene.textureRefs[0].format, 6);
    EXPECT_EQ(run().scene.textures[0].format, 6);
}

TEST_F(TextureWriter, PaletteTextureIsWrittenLineByLine) {
    Picture picture(8, 8, {255, 0, 0});
    picture.at(1, 0) = {0, 0, 255};
    make("a.tga", picture);
    EXPECT_EQ(written(), elementOf("<tex_image_array size=\"1\">\n"
                                   "\t<tex_image index=\"0\" name=\"a\"\n"
                                   "\t\twidth=\"8\" height=\"8\" original_width=\"8\" original_height=\"8\"\n"
                                   "\t\tformat=\"palette4\"\n"
                                   "\t\tcolor0_mode=\"color\"\n"
                                   "\t\tpalette_name=\"a\"\n",
                                   "a.tga") +
                             "\t\t<bitmap size=\"8\">\n"
                             "\t\t\t0004 0000 0000 0000 0000 0000 0000 0000\n"
                             "\t\t</bitmap>\n"
                             "\t</tex_image>\n"
                             "</tex_image_array>\n\n");
    EXPECT_TRUE(succeeded);
    ASSERT_EQ(run().scene.palettes.size(), 1U);
    EXPECT_THAT(run().scene.palettes[0].colors, ElementsAre(0x001F, 0x7C00, 0x7FFF, 0x7FFF));
    EXPECT_EQ(run().scene.palettes[0].user, "a");
    EXPECT_EQ(run().scene.textureRefs[0].paletteIndex, 0);
    EXPECT_EQ(run().scene.textureRefs[0].format, 1);
    EXPECT_EQ(run().scene.textures[0].paletteIndex, 0);
}

TEST_F(TextureWriter, HolesAreColor0Transparency) {
    Picture picture(8, 8, {255, 0, 0});
    picture.at(0, 0).a = 0;
    make("a.tga", picture);
    EXPECT_NE(written().find("\t\tcolor0_mode=\"transparency\"\n"), std::string::npos);
    EXPECT_EQ(run().scene.textures[0].color0Mode, 1);
    EXPECT_EQ(run().scene.palettes.at(0).colors.at(0), 0xFFFF);
}

TEST_F(TextureWriter, TranslucentTextureHasAPaletteButNoColorMode) {
    make("a.tga", Picture(8, 8, {255, 0, 0, 100}));
    const std::string text = written();
    EXPECT_NE(text.find("\t\tformat=\"a5i3\"\n\t\tpalette_name=\"a\"\n\t\tpath="), std::string::npos) << text;
}

TEST_F(TextureWriter, CompressedTextureHasTwoBlocksOfData) {
    make("a_cmp4.tga", Picture(16, 8, {255, 0, 0}));
    const std::string text = written();
    EXPECT_NE(text.find("\t\tformat=\"tex4x4\"\n\t\tpalette_name=\"a_cmp4\"\n\t\tpath="), std::string::npos) << text;
    EXPECT_NE(text.find("\t\t<bitmap size=\"8\">\n\t\t\t00000000 00000000 00000000 00000000\n"), std::string::npos);
    EXPECT_NE(text.find("\t\t<tex4x4_palette_idx size=\"8\">\n\t\t\t"), std::string::npos);
}

TEST_F(TextureWriter, SmallPictureIsWrittenInItsTextureSizeWithItsOwnBesideIt) {
    make("a.tga", Picture(5, 3));
    EXPECT_NE(written().find("\t\twidth=\"8\" height=\"8\" original_width=\"5\" original_height=\"3\"\n"),
              std::string::npos);
}

TEST_F(TextureWriter, NothingIsWrittenWhenImagesAreOnlyConverted) {
    make("a.tga", Picture(8, 8));
    EXPECT_EQ(written(false), "");
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(run().scene.palettes.size(), 1U);
    EXPECT_EQ(run().scene.textureRefs[0].paletteIndex, 0);
    EXPECT_THAT(run().scene.paletteOrder, ElementsAre(0));
}

TEST_F(TextureWriter, ClashFailsWhenImagesAreOnlyConverted) {
    makeWithBlock("x.tga", "shared", {1, 2, 3, 4});
    makeWithBlock("y.tga", "shared", {9, 2, 3, 4});
    EXPECT_EQ(written(false), "");
    EXPECT_FALSE(succeeded);
}

TEST_F(TextureWriter, PaletteOfOneNameIsSharedByImagesWithEqualColors) {
    makeWithBlock("x.tga", "shared", {1, 2, 3, 4});
    makeWithBlock("y.tga", "shared", {1, 2, 3, 4});
    written();
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(run().scene.palettes.size(), 1U);
    EXPECT_EQ(run().scene.textures[1].paletteIndex, 0);
}

TEST_F(TextureWriter, ImagesAndReferencesAreNumberedByName) {
    make("b.tga", Picture(8, 8));
    make("c.tga", Picture(8, 8));
    make("a.tga", Picture(8, 8));
    referTo(0, kTilingClamp, kTilingClamp);
    sortTextures();
    EXPECT_THAT(run().scene.textureOrder, ElementsAre(2, 0, 1));
    EXPECT_EQ(run().scene.textures[0].index, 1);
    EXPECT_EQ(run().scene.textures[1].index, 2);
    EXPECT_EQ(run().scene.textures[2].index, 0);
    // Of one image in the order in which they were made.
    const std::vector<MaterialTextureRef>& refs = run().scene.textureRefs;
    EXPECT_EQ(refs[2].index, 0);
    EXPECT_EQ(refs[0].index, 1);
    EXPECT_EQ(refs[3].index, 2);
    EXPECT_EQ(refs[1].index, 3);
    EXPECT_EQ(refs[3].position, 3);
}

TEST_F(TextureWriter, ImagesOfEqualNamesAreNumberedByPath) {
    std::filesystem::create_directory(folder.path("Y"));
    std::filesystem::create_directory(folder.path("x"));
    make("Y/a.tga", Picture(8, 8));
    make("x/a.tga", Picture(8, 8));
    sortTextures();
    EXPECT_THAT(run().scene.textureOrder, ElementsAre(1, 0)) << "whatever the case of the folders";
}

TEST_F(TextureWriter, LossOfAlphaIsToldInAnInformationLine) {
    Picture picture = pictureOfColors(8, 8, 33);
    picture.at(0, 0).a = 100;
    make("a.tga", picture);
    written();
    EXPECT_TRUE(succeeded);
    EXPECT_THAT(infos, ElementsAre("Too many colors for a translucent texture, alpha becomes on or off: a"));
    EXPECT_FALSE(warningRaised());
}

TEST_F(TextureWriter, BlocksBeyondTheConsolesMemoryAreWarnedOf) {
    make("a_cmp2.tga", Picture(1024, 1024));
    written(false);
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(takeMessages(), "Warning: Texture is too large for tex4x4: a_cmp2 (1024 x 1024)\n");
    EXPECT_TRUE(warningRaised());
}

TEST_F(TextureWriter, PathIsWrittenAsItWasResolvedThoughTheImageLiesElsewhere) {
    std::filesystem::create_directory(folder.path("sourceimages"));
    writeImage(folder.path("sourceimages/a.tga"), Picture(8, 8));
    int image = -1;
    ASSERT_TRUE(registerTextureFile("C:/old/a.tga", image));
    EXPECT_NE(written().find("\t\tpath=\"C:/old/a.tga\"\n"), std::string::npos);
    EXPECT_TRUE(succeeded);
}

TEST_F(TextureWriter, NamesAndPathsAreWrittenInShiftJis) {
    make("\xE3\x82\xBD.tga", Picture(8, 8));
    const std::string text = written();
    EXPECT_NE(text.find("name=\"\x83\x5C\"\n"), std::string::npos);
    EXPECT_NE(text.find("palette_name=\"\x83\x5C\"\n"), std::string::npos);
    EXPECT_NE(text.find("/\x83\x5C.tga\"\n"), std::string::npos);
}

} // namespace
} // namespace tvk
