// What artists texture, from the image files to what a reader of the model sees.

#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "sceneText.h"
#include "shownPictures.h"
#include "textureScene.h"
#include "writers/extensionWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

#include <filesystem>

namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TextureExport : public testing::Test, public ExportSession {
protected:
    void make(const std::string& name, const Picture& picture) { writeImage(folder.path(name), picture); }
    std::string textured(const std::string& fileNode, const std::string& image, const std::string& attributes = "") {
        return texturedText(fileNode, folder.path(image), attributes);
    }
    decode::ModelTextures exported(const std::string& options = "") {
        EXPECT_TRUE(exportAll(options));
        messages = takeMessages();
        file = decode::readIntermediateFile(fileText("model.imd"));
        return decode::readModelTextures(file);
    }
    void expectFailure(const std::string& message) {
        EXPECT_FALSE(exportAll());
        EXPECT_THAT(takeMessages(), HasSubstr(message));
        EXPECT_EQ(infos.back(), "---- No Output File ----");
    }
    const decode::FileElement& material(std::size_t index) const {
        return file.find("body")->find("material_array")->children.at(index);
    }

    decode::FileElement file;
    std::string messages;
};

TEST_F(TextureExport, OfAMissingImageFailsAndWritesNothing) {
    open(textured("file1", "none.tga"));
    expectFailure("Error: Can't open file: " + folder.path("none.tga") + "\n       (used by file1)\n");
    EXPECT_FALSE(hasFile("model.imd"));
}

TEST_F(TextureExport, OfAFolderFailsAndWritesNothing) {
    fs::create_directory(fs::u8path(folder.path("a.tga")));
    open(textured("file1", "a.tga"));
    expectFailure("Error: Can't open file: " + folder.path("a.tga") + "\n       (used by file1)\n");
    EXPECT_FALSE(hasFile("model.imd"));
}

TEST_F(TextureExport, OfAnotherTypeOfImageFailsAndWritesNothing) {
    writeBytes(folder.path("a.png"), {0x89, 'P', 'N', 'G'});
    open(textured("file1", "a.png"));
    expectFailure("Error: Image type is not supported: " + folder.path("a.png") + "\n       (used by file1)\n");
    EXPECT_FALSE(hasFile("model.imd"));
}

TEST_F(TextureExport, Of1025WideImageFailsAndWritesNothing) {
    make("wide.tga", Picture(1025, 8));
    open(textured("file1", "wide.tga"));
    expectFailure("Error: Texture size over: wide (1025 x 8)\n");
    EXPECT_FALSE(hasFile("model.imd"));
}

TEST_F(TextureExport, OfATruncatedRunLengthImageFailsWithoutCompletingTheFile) {
    TgaOptions options;
    options.type = 10;
    std::vector<std::uint8_t> bytes = writeTga(makeScatteredPicture(16, 16), options);
    bytes.resize(bytes.size() / 2);
    writeBytes(folder.path("a.tga"), bytes);
    open(textured("file1", "a.tga"));
    expectFailure("Error: Invalid TGA file (unexpected end of file): " + folder.path("a.tga") +
                  "\n       (used by file1)\n");
    EXPECT_THAT(fileText("model.imd"), Not(HasSubstr("</imd>")));
}

TEST_F(TextureExport, OfClashingPalettesFailsWithBothNamesWithoutCompletingTheFile) {
    for (const auto& [name, color] : {std::pair{"grass.tga", 4}, std::pair{"stone.tga", 5}}) {
        const std::vector<std::uint16_t> colors{1, 2, 3, static_cast<std::uint16_t>(color)};
        writeBytes(folder.path(name),
                   tgaWithBlock(8, 8,
                                joined({chunk("tvk_frmt", "palette4"), chunk("tvk_txel", std::vector<uint8_t>(16)),
                                        chunk("tvk_pnam", "shared"), chunk("tvk_pcol", wordBytes(colors))})));
    }
    open(textured("file1", "grass.tga") + textured("file2", "stone.tga"));
    expectFailure("Error: Texture palette data is not identical: shared\n       (used by grass and stone)\n");
    EXPECT_THAT(fileText("model.imd"), Not(HasSubstr("</imd>")));
}

TEST_F(TextureExport, OfAFileTextureWithoutImageNameFails) {
    open(texturedText("file1", ""));
    expectFailure("Error: No texture image name: file1\n");
}

TEST_F(TextureExport, WithoutTexturesWritesNoTextureSections) {
    open(shaderText("plain", "") + texturedSquareText("square", "plain"));
    EXPECT_THAT(exported().images, IsEmpty());
    EXPECT_EQ(file.find("body")->find("tex_image_array"), nullptr);
    EXPECT_EQ(file.find("body")->find("tex_palette_array"), nullptr);
    EXPECT_EQ(material(0).value("tex_image_idx"), "-1");
}

TEST_F(TextureExport, SectionsStandInTheOrderOfTheFormat) {
    make("a.tga", Picture(8, 8));
    open(textured("file1", "a.tga"));
    exported();
    std::vector<std::string> sections;
    for (const decode::FileElement& section : file.find("body")->children) {
        if (section.name.rfind("tex_", 0) == 0 || section.name == "material_array" || section.name == "node_array") {
            sections.push_back(section.name);
        }
    }
    EXPECT_THAT(sections, ElementsAre("tex_image_array", "tex_palette_array", "material_array", "node_array"));
}

TEST_F(TextureExport, Of100By64IsPaddedWithItsEdge) {
    const Picture picture = makeScatteredPicture(100, 64);
    Picture opaque = picture;
    for (Rgba& pixel : opaque.pixels) {
        pixel.a = 255;
    }
    make("a.tga", opaque);
    open(textured("file1", "a.tga", "setAttr \".wu\" no;\n\tsetAttr \".wv\" no;"));
    const decode::ModelTextures textures = exported();
    expectShows(textures.image("a"), opaque);
    EXPECT_EQ(textures.image("a").width, 128);
    EXPECT_EQ(material(0).value("tex_tiling"), "clamp clamp");
    EXPECT_THAT(messages, HasSubstr("Warning: Size of texture is wrong: a (100 x 64)\n"));
    EXPECT_THAT(messages, Not(HasSubstr("repeat/flip")));
}

TEST_F(TextureExport, WithHolesHasTheMarkerFirstAndShowsThemClear) {
    Picture picture = pictureOfColors(8, 8, 3);
    for (const std::size_t i : {0U, 9U, 63U}) {
        picture.pixels[i].a = 0;
    }
    make("a.tga", picture);
    open(textured("file1", "a.tga"));
    const decode::ModelTextures textures = exported();
    const decode::ModelTexture& image = textures.image("a");
    EXPECT_EQ(image.format, "palette4");
    EXPECT_EQ(image.color0Mode, "transparency");
    EXPECT_EQ(textures.palette("a").colors.at(0), 0xFFFF);
    expectShows(image, picture);
    EXPECT_EQ(image.at(0, 0).a, 0);
    EXPECT_EQ(image.at(1, 1).a, 0);
}

TEST_F(TextureExport, OfEightTranslucentColorsKeepsAFaintOneThatNoOtherPixelHas) {
    Picture picture = pictureOfColors(16, 8, 7);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        picture.pixels[i].a = static_cast<std::uint8_t>(255 - i);
    }
    picture.at(5, 3) = {8, 248, 128, 3};
    make("a.tga", picture);
    open(textured("file1", "a.tga"));
    const decode::ModelTextures textures = exported();
    EXPECT_EQ(textures.image("a").format, "a5i3");
    EXPECT_EQ(textures.image("a").color0Mode, std::nullopt);
    expectShows(textures.image("a"), picture);
    EXPECT_TRUE(textures.image("a").at(5, 3) == (decode::ShownTexel{1, 31, 16, 0}));
}

TEST_F(TextureExport, Of32BitsWithoutAlphaBitsIsOpaque) {
    Picture picture = pictureOfColors(8, 8, 4);
    for (Rgba& pixel : picture.pixels) {
        pixel.a = 0;
    }
    TgaOptions options;
    options.bits = 32;
    writeBytes(folder.path("a.tga"), writeTga(picture, options));
    open(textured("file1", "a.tga"));
    const decode::ModelTextures textures = exported();
    EXPECT_EQ(textures.image("a").color0Mode, "color");
    expectShows(textures.image("a"), pictureOfColors(8, 8, 4));
}

struct FormatCase {
    const char* format;
    std::size_t colors;
    std::uint8_t alpha; // of every third pixel
};

class ExportedFormat : public TextureExport, public testing::WithParamInterface<FormatCase> {};

TEST_P(ExportedFormat, ShowsThePictureAgain) {
    Picture picture = pictureOfColors(32, 16, GetParam().colors);
    for (std::size_t i = 0; i < picture.pixels.size(); i += 3) {
        picture.pixels[i].a = GetParam().alpha;
    }
    make("a.tga", picture);
    open(textured("file1", "a.tga"));
    const decode::ModelTextures textures = exported();
    EXPECT_EQ(textures.image("a").format, GetParam().format);
    expectShows(textures.image("a"), picture);
    EXPECT_THAT(messages, Not(HasSubstr("exture ")));
    EXPECT_EQ(material(0).value("tex_image_idx"), "0");
}

INSTANTIATE_TEST_SUITE_P(Opaque, ExportedFormat,
                         testing::Values(FormatCase{"palette4", 4, 255}, FormatCase{"palette16", 16, 255},
                                         FormatCase{"palette256", 17, 255}, FormatCase{"palette256", 256, 255},
                                         FormatCase{"direct", 257, 255}));
INSTANTIATE_TEST_SUITE_P(WithHoles, ExportedFormat,
                         testing::Values(FormatCase{"palette4", 3, 0}, FormatCase{"palette16", 15, 0},
                                         FormatCase{"palette256", 255, 0}, FormatCase{"direct", 400, 0}));
INSTANTIATE_TEST_SUITE_P(Translucent, ExportedFormat,
                         testing::Values(FormatCase{"a5i3", 8, 77}, FormatCase{"a3i5", 9, 77},
                                         FormatCase{"a3i5", 32, 200}));
INSTANTIATE_TEST_SUITE_P(TranslucentWithTooManyColors, ExportedFormat,
                         testing::Values(FormatCase{"palette256", 33, 77}, FormatCase{"direct", 300, 200}));

// The judge of all tests above.
TEST_F(TextureExport, ComparisonSeesASingleWrongPixel) {
    static decode::ModelTexture image;
    static Picture other(0, 0);
    const Picture picture = pictureOfColors(16, 8, 20);
    make("a.tga", picture);
    open(textured("file1", "a.tga"));
    image = exported().image("a");
    other = picture;
    other.at(5, 3).g = static_cast<std::uint8_t>(other.at(5, 3).g ^ 8U);
    EXPECT_FATAL_FAILURE(expectShows(image, other), "a (5, 3) shows");
    other = picture;
    other.at(15, 7).a = 127;
    EXPECT_FATAL_FAILURE(expectShows(image, other), "a (15, 7) shows");
    other = picture;
    other.at(15, 7) = {picture.at(15, 7).b, picture.at(15, 7).g, picture.at(15, 7).r};
    EXPECT_FATAL_FAILURE(expectShows(image, other), "a (15, 7) shows");
}

TEST_F(TextureExport, TakesTheTextureOfAnExtensionBlockAsItIs) {
    std::vector<std::uint8_t> texels(128, 0);
    texels[2] = 0x1F;
    texels[3] = 0x80;
    writeBytes(folder.path("a.tga"),
               tgaWithBlock(8, 8, joined({chunk("tvk_frmt", "direct"), chunk("tvk_txel", texels)})));
    open(textured("file1", "a.tga"));
    const decode::ModelTextures textures = exported();
    EXPECT_EQ(textures.image("a").format, "direct");
    EXPECT_TRUE(textures.image("a").at(0, 0) == (decode::ShownTexel{0, 0, 0, 0}));
    EXPECT_TRUE(textures.image("a").at(1, 0) == (decode::ShownTexel{31, 0, 0, 31}));
}

TEST_F(TextureExport, SharesAnImageBetweenMaterialsAndReferencesByTiling) {
    make("a.tga", Picture(8, 8));
    open(textured("file1", "a.tga") + textured("file2", "a.tga", "setAttr \".mu\" yes;"));
    EXPECT_EQ(exported().images.size(), 1U);
    EXPECT_EQ(material(0).value("tex_tiling"), "repeat repeat");
    EXPECT_EQ(material(1).value("tex_tiling"), "flip repeat");
}

TEST_F(TextureExport, NumbersImagesAndPalettesByName) {
    make("b.tga", pictureOfColors(8, 8, 2));
    make("a.tga", pictureOfColors(32, 16, 300));
    make("c.tga", pictureOfColors(8, 8, 3));
    open(textured("file1", "c.tga") + textured("file2", "b.tga") + textured("file3", "a.tga"));
    const decode::ModelTextures textures = exported();
    EXPECT_EQ(textures.image("a").index, 0);
    EXPECT_EQ(textures.palette("c").index, 1);
    // Materials in the order of their names: that of file1 first.
    EXPECT_EQ(material(0).value("tex_image_idx") + material(0).value("tex_palette_idx"), "21");
    EXPECT_EQ(material(1).value("tex_image_idx") + material(1).value("tex_palette_idx"), "10");
    EXPECT_EQ(material(2).value("tex_image_idx") + material(2).value("tex_palette_idx"), "0-1");
}

TEST_F(TextureExport, LeavesUnusedTexturesOutUnlessAllAreAskedFor) {
    make("a.tga", Picture(8, 8));
    make("b.tga", Picture(8, 8));
    open(textured("file1", "b.tga") + fileTextureText("unused", folder.path("a.tga")));
    EXPECT_EQ(exported().images.size(), 1U);
    const decode::ModelTextures textures = exported("out_all_tex=1");
    EXPECT_EQ(textures.images.size(), 2U);
    EXPECT_EQ(material(0).value("tex_image_idx"), "1");
}

TEST_F(TextureExport, UnusedTextureThatCannotBeReadFailsOnlyWhenAllAreAskedFor) {
    make("b.tga", Picture(8, 8));
    open(textured("file1", "b.tga") + fileTextureText("unused", folder.path("none.tga")));
    EXPECT_TRUE(exportAll());
    takeMessages();
    EXPECT_FALSE(exportAll("out_all_tex=1"));
    EXPECT_THAT(takeMessages(),
                HasSubstr("Error: Can't open file: " + folder.path("none.tga") + "\n       (used by unused)\n"));
}

TEST_F(TextureExport, WritesThePlacementOfTheTexture) {
    make("a.tga", Picture(8, 8));
    open(placedTextureText("file1", folder.path("a.tga"),
                           "setAttr \".re\" -type \"float2\" 2 0.5;\n\tsetAttr \".rf\" 190;\n"
                           "\tsetAttr \".tf\" -type \"float2\" 0.25 -3;") +
         shaderText("shader", "file1") + texturedSquareText("square", "shader"));
    exported();
    EXPECT_EQ(material(0).value("tex_scale"), "2.000000 0.500000");
    EXPECT_EQ(material(0).value("tex_rotate"), "-170.000000");
    EXPECT_EQ(material(0).value("tex_translate"), "0.250000 -3.000000");
    EXPECT_EQ(material(0).value("tex_gen_mode"), "tex");
}

TEST_F(TextureExport, IsTheSameInAnySequenceOfRuns) {
    make("a.tga", makeRunPicture(64, 64));
    open(textured("file1", "a.tga"));
    const decode::ModelTextures first = exported();
    const decode::ModelTextures second = exported();
    ASSERT_EQ(first.images.size(), second.images.size());
    EXPECT_TRUE(first.images[0].texels == second.images[0].texels);
    EXPECT_EQ(first.palettes.size(), second.palettes.size());
}

} // namespace
} // namespace tvk
