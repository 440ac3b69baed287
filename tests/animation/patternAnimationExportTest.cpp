// Textures that flip: the itp file as a reader plays it, with and without a model in the same run.

#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "decode/PatternFile.h"
#include "sceneText.h"
#include "shadingText.h"
#include "shownPictures.h"
#include "textureScene.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kUseFrames = "setAttr \".ufe\" yes;";
constexpr const char* kList = "\n\taddAttr -ci true -ln \"tvk_fe_list\" -dt \"string\";\n"
                              "\tsetAttr \".tvk_fe_list\" -type \"string\" \"1-3,7\";";
constexpr const char* kKeys = "0 1 3 5 5 10 7 6.5"; // with the list: images 1 2 3 5 7 10

class PatternAnimation : public testing::Test, public ExportSession {
protected:
    PatternAnimation() {
        for (const int number : {1, 2, 3, 5, 7, 10}) {
            const std::string name = "tex." + std::to_string(number);
            pictures.emplace(name, pictureOfColors(8, 8, static_cast<std::size_t>(number)));
            writeImage(folder.path(name + ".tga"), pictures.at(name));
        }
    }
    std::string textured(const std::string& attributes) const {
        return texturedText("file1", folder.path("tex.1.tga"), kUseFrames + attributes) + playback(0, 8);
    }
    decode::PatternFile play(const std::string& statements, const std::string& options = "itp_file_out=1") {
        open(statements);
        EXPECT_TRUE(exportAll(options));
        messages = takeMessages();
        return decode::readPatternFile(fileText("model.itp"));
    }

    std::map<std::string, Picture> pictures;
    std::string messages;
};

TEST_F(PatternAnimation, ShowsTheNearestOfItsImagesAndListsThoseThatAreShown) {
    const decode::PatternFile file = play(textured(kList) + flippedText("file1", kKeys, 4));
    EXPECT_EQ(messages, ""); // 6.5 is 7
    EXPECT_THAT(file.of("file1_shader").images,
                ElementsAre("tex.1", "tex.1", "tex.1", "tex.5", "tex.5", "tex.10", "tex.10", "tex.7", "tex.7"));
    EXPECT_THAT(file.images, testing::UnorderedElementsAre("tex.1", "tex.5", "tex.7", "tex.10"));
    EXPECT_EQ(file.root.find("body")->find("tex_image_array"), nullptr);
}

TEST_F(PatternAnimation, WithoutAFrameOfTheCurveShowsTheNearestAndWarnsOnce) {
    const decode::PatternFile file = play(textured(kList) +
                                          nodeText("animCurveTU", "ramp", "",
                                                   "setAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n\tsetAttr "
                                                   "-s 2 \".ktv[0:1]\" 0 2 8 10;") +
                                          connectText("ramp.o", "file1.fe"));
    EXPECT_EQ(messages, "Warning: Texture pattern animation invalid frame extension (use nearest): file1.fe: fe = 4 -> "
                        "3\n\n");
    EXPECT_THAT(file.of("file1_shader").images,
                ElementsAre("tex.2", "tex.3", "tex.3", "tex.3", "tex.7", "tex.7", "tex.7", "tex.10", "tex.10"));
}

// The image array is sorted by name; the list of the patterns is in the order in which images were met.
TEST_F(PatternAnimation, WithoutAModelHoldsAllItsImagesAndNoOthers) {
    writeImage(folder.path("other.tga"), pictureOfColors(8, 8, 2));
    const decode::PatternFile file =
        play(textured(kList) + flippedText("file1", kKeys, 4) + texturedText("file2", folder.path("other.tga")),
             "imd_file_out=0;itp_file_out=1");
    EXPECT_FALSE(hasFile("model.imd"));
    const decode::ModelTextures textures = decode::readModelTextures(file.root);
    std::vector<std::string> names;
    for (const decode::ModelTexture& image : textures.images) {
        names.push_back(image.name);
        expectShows(image, pictures.at(image.name));
    }
    EXPECT_THAT(names, ElementsAre("tex.1", "tex.10", "tex.2", "tex.3", "tex.5", "tex.7"));
    EXPECT_EQ(textures.palettes.size(), 6U);
    EXPECT_THAT(file.images, ElementsAre("tex.1", "tex.5", "tex.7", "tex.10"));
    EXPECT_THAT(file.palettes, ElementsAre("tex.1", "tex.10", "tex.5", "tex.7")); // as they were converted
    EXPECT_EQ(file.root.find("body")->children.at(1).name, "tex_image_array");
    EXPECT_EQ(file.root.find("body")->children.at(2).name, "tex_palette_array");
}

TEST_F(PatternAnimation, IsTheSameWithAndWithoutAModel) {
    const std::string scene = textured(kList) + flippedText("file1", kKeys, 4);
    const decode::PatternFile with = play(scene);
    const decode::PatternFile without = play(scene, "imd_file_out=0;itp_file_out=1");
    EXPECT_EQ(with.of("file1_shader").images, without.of("file1_shader").images);
    EXPECT_EQ(with.images, without.images);
}

TEST_F(PatternAnimation, OfImagesOfManyColoursHasNoPalettes) {
    for (const int number : {1, 2}) {
        writeImage(folder.path("sky." + std::to_string(number) + ".tga"), pictureOfColors(32, 32, 1000));
    }
    const decode::PatternFile file = play(texturedText("file1", folder.path("sky.1.tga"), kUseFrames) +
                                          flippedText("file1", "0 1 4 2", 2) + playback(0, 8));
    EXPECT_TRUE(file.palettes.empty());
    for (const decode::PatternFile::Key& key : file.of("file1_shader").keys) {
        EXPECT_EQ(key.palette, -1);
    }
    EXPECT_THAT(file.images, ElementsAre("sky.1", "sky.2"));
}

TEST_F(PatternAnimation, IsThatOfItsKeysThroughACharacterToo) {
    const decode::PatternFile file =
        play(textured("") + steppedCurveText("frames", "0 1 3 5 5 10", 3) + nodeText("character", "character1") +
             "connectAttr \"frames.o\" \"character1.uv[2]\";\n"
             "connectAttr \"character1.uv[2]\" \"file1.fe\";\n");
    EXPECT_THAT(file.of("file1_shader").images,
                ElementsAre("tex.1", "tex.1", "tex.1", "tex.5", "tex.5", "tex.10", "tex.10", "tex.10", "tex.10"));
}

TEST_F(PatternAnimation, DrivenByAnExpressionIsNoneAndWarns) {
    const decode::PatternFile file =
        play(textured(kList) +
             nodeText("expression", "expression1", "",
                      "setAttr -k on \".nds\";\n\tsetAttr \".ixp\" -type \"string\" \".O[0]=frame\";") +
             "connectAttr \"expression1.out[0]\" \"file1.fe\";\n");
    EXPECT_TRUE(file.entries.empty());
    EXPECT_EQ(messages, "Warning: Animation curve is not connected to frame extension: file1\n"
                        "Warning: No texture pattern animation\n\n");
}

} // namespace
} // namespace tvk
