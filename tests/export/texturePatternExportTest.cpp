// Textures that flip through numbered images: what the model holds of them.

#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "sceneText.h"
#include "shownPictures.h"
#include "textureScene.h"

#include <gmock/gmock.h>

#include <map>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kUseFrames = "setAttr \".ufe\" yes;";
constexpr const char* kList = "\n\taddAttr -ci true -ln \"tvk_fe_list\" -dt \"string\";\n"
                              "\tsetAttr \".tvk_fe_list\" -type \"string\" \"1-3,7\";";

// Images "tex.N.tga" of as many colours as their number, and a texture that shows them.
class PatternExport : public testing::Test, public ExportSession {
protected:
    PatternExport() {
        for (const int number : {1, 2, 3, 5, 7, 10}) {
            const std::string name = "tex." + std::to_string(number);
            pictures.emplace(name, pictureOfColors(8, 8, static_cast<std::size_t>(number)));
            writeImage(folder.path(name + ".tga"), pictures.at(name));
        }
    }
    std::string textured(const std::string& attributes) {
        return texturedText("file1", folder.path("tex.1.tga"), kUseFrames + attributes);
    }
    std::vector<std::string> exportedNames() {
        EXPECT_TRUE(exportAll());
        messages = takeMessages();
        std::vector<std::string> names;
        for (const decode::ModelTexture& image :
             decode::readModelTextures(decode::readIntermediateFile(fileText("model.imd"))).images) {
            names.push_back(image.name);
        }
        return names;
    }

    std::map<std::string, Picture> pictures;
    std::string messages;
};

TEST_F(PatternExport, HasTheImagesOfListAndKeysInTheModel) {
    open(textured(kList) + flippedText("file1", "1 1 5 5 9 10", 3));
    EXPECT_THAT(exportedNames(), ElementsAre("tex.1", "tex.10", "tex.2", "tex.3", "tex.5", "tex.7"));
    EXPECT_THAT(messages, Not(HasSubstr("exture")));
    const decode::ModelTextures textures =
        decode::readModelTextures(decode::readIntermediateFile(fileText("model.imd")));
    for (const auto& [name, picture] : pictures) {
        expectShows(textures.image(name), picture);
    }
    EXPECT_EQ(textures.palettes.size(), 6U);
}

TEST_F(PatternExport, IsThatOfItsKeysThroughACharacterToo) {
    open(textured("") + steppedCurveText("frames", "1 1 5 5 9 10", 3) + nodeText("character", "character1") +
         "connectAttr \"frames.o\" \"character1.uv[2]\";\nconnectAttr \"character1.uv[2]\" \"file1.fe\";\n");
    EXPECT_THAT(exportedNames(), ElementsAre("tex.1", "tex.10", "tex.5"));
}

TEST_F(PatternExport, DrivenByAnExpressionSucceedsWithAWarningAndTheMaterialsOwnImage) {
    open(textured(kList) +
         nodeText("expression", "expression1", "",
                  "setAttr -k on \".nds\";\n\tsetAttr \".ixp\" -type \"string\" \".O[0]=frame\";") +
         "connectAttr \"expression1.out[0]\" \"file1.fe\";\n");
    EXPECT_THAT(exportedNames(), ElementsAre("tex.1"));
    EXPECT_THAT(messages, HasSubstr("Warning: Animation curve is not connected to frame extension: file1\n"));
}

TEST_F(PatternExport, WithAMissingImageFails) {
    open(textured(kList) + flippedText("file1", "1 1 5 6", 2));
    EXPECT_FALSE(exportAll());
    EXPECT_THAT(takeMessages(),
                HasSubstr("Error: Can't open file: " + folder.path("tex.6.tga") + "\n       (used by file1)\n"));
    EXPECT_FALSE(hasFile("model.imd"));
}

TEST_F(PatternExport, OfABadListFails) {
    open(texturedText("file1", folder.path("tex.1.tga"),
                      std::string(kUseFrames) + "\n\taddAttr -ci true -ln \"tvk_fe_list\" -dt \"string\";\n"
                                                "\tsetAttr \".tvk_fe_list\" -type \"string\" \"3-1\";") +
         flippedText("file1", "1 1 5 5", 2));
    EXPECT_FALSE(exportAll());
    EXPECT_THAT(takeMessages(), HasSubstr("Error: Invalid frame extension list: file1: 3-1\n"));
    EXPECT_FALSE(hasFile("model.imd"));
}

} // namespace
} // namespace tvk
