#include "material/texturePattern.h"

#include "MaterialSession.h"
#include "material/textureSource.h"
#include "sceneText.h"
#include "textureScene.h"

#include <gmock/gmock.h>

#include <set>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kUseFrames = "setAttr \".ufe\" yes;";

// A scene whose file1 flips through images "tex.N.tga" in the test's folder, which is the workspace.
class TexturePattern : public testing::Test, public MaterialSession {
protected:
    void makeFrames(const std::set<std::string>& numbers) {
        for (const std::string& number : numbers) {
            writeImage(folder.path("tex." + number + ".tga"), Picture(8, 8));
        }
    }
    // The text of a file texture with a list of frames.
    static std::string listed(const std::string& list, const std::string& image = "tex.1.tga") {
        return fileTextureText("file1", image,
                               std::string(kUseFrames) +
                                   "\n\taddAttr -ci true -ln \"tvk_fe_list\" -dt \"string\";\n"
                                   "\tsetAttr \".tvk_fe_list\" -type \"string\" \"" +
                                   list + "\";");
    }
    bool isGathered() {
        int source = -1;
        int ref = -1;
        return getTextureSource(node("file1"), 0, source, ref) == MS::kSuccess;
    }
    std::vector<int64_t> frames() const {
        return run().scene.texturePatterns.empty() ? std::vector<int64_t>() : run().scene.texturePatterns[0].frames;
    }
    std::vector<std::string> imageNames() const {
        std::vector<std::string> names;
        for (const int32_t ref : run().scene.texturePatterns.at(0).textureRefs) {
            const int32_t image = run().scene.textureRefs.at(static_cast<std::size_t>(ref)).imageIndex;
            names.push_back(run().scene.textures.at(static_cast<std::size_t>(image)).name);
        }
        return names;
    }
};

TEST_F(TexturePattern, OfAPathWithoutTwoDotsFails) {
    writeImage(folder.path("tex.tga"), Picture(8, 8));
    open(fileTextureText("file1", "tex.tga", kUseFrames) + flippedText("file1", "1 1 5 2", 2));
    EXPECT_FALSE(isGathered());
    EXPECT_EQ(takeMessages(), "Error: Texture animation path: file1: " + folder.path("tex.tga") + "\n");
}

TEST_F(TexturePattern, OfAPathWithoutTwoDotsIsNoneInANameCheck) {
    run().options.quietTextureWarnings = true;
    open(fileTextureText("file1", "tex.tga", kUseFrames) + flippedText("file1", "1 1 5 2", 2));
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, WithABadListFailsAndShowsIt) {
    makeFrames({"1", "2"});
    open(listed("1,,-3") + flippedText("file1", "1 1 5 2", 2));
    EXPECT_FALSE(isGathered());
    EXPECT_EQ(takeMessages(), "Error: Invalid frame extension list: file1: 1,,-3\n");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, WithABadListFailsSilentlyInANameCheck) {
    run().options.quietTextureWarnings = true;
    open(listed("x") + flippedText("file1", "1 1 5 2", 2));
    EXPECT_FALSE(isGathered());
    EXPECT_EQ(takeMessages(), "");
}

TEST_F(TexturePattern, OfMoreThan4095FramesInAllFails) {
    makeFrames({"1"});
    open(listed("1-4095") + flippedText("file1", "1 1 5 5000", 2));
    EXPECT_FALSE(isGathered());
    EXPECT_EQ(takeMessages(), "Error: Invalid frame extension list: file1: 1-4095\n");
    EXPECT_EQ(run().scene.textures.size(), 1U) << "images are looked for when the frames are known to be few enough";
}

TEST_F(TexturePattern, WithAMissingImageFailsAndNamesIt) {
    makeFrames({"1", "2"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + flippedText("file1", "1 1 2 2 3 3", 3));
    EXPECT_FALSE(isGathered());
    EXPECT_EQ(takeMessages(), "Error: Can't open file: " + folder.path("tex.3.tga") + "\n       (used by file1)\n");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, WithoutCurveIsNoneWithAWarning) {
    makeFrames({"1"});
    open(listed("1-3"));
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Animation curve is not connected to frame extension: file1\n");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, DrivenByAnExpressionIsNoneWithAWarning) {
    makeFrames({"1"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) +
         nodeText("expression", "expression1", "",
                  "setAttr -k on \".nds\";\n\tsetAttr \".ixp\" -type \"string\" \".O[0]=frame\";") +
         "connectAttr \"expression1.out[0]\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Animation curve is not connected to frame extension: file1\n");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, DrivenByAnotherAttributeIsNoneWithAWarning) {
    makeFrames({"1"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) +
         nodeText("animCurveUU", "driven", "", "setAttr -s 2 \".ktv[0:1]\" 0 1 1 5;") +
         "connectAttr \"driven.o\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Driven key is not supported for texture pattern animation: file1\n");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, OfACurveInOtherUnitsIsNoneWithTheSameWarning) {
    makeFrames({"1"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) +
         nodeText("animCurveTL", "lengths", "", "setAttr -s 2 \".ktv[0:1]\" 0 1 1 5;") +
         "connectAttr \"lengths.o\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Driven key is not supported for texture pattern animation: file1\n");
}

TEST_F(TexturePattern, IsSilentlyNoneInANameCheck) {
    run().options.quietTextureWarnings = true;
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) +
         nodeText("animCurveUU", "driven", "", "setAttr -s 2 \".ktv[0:1]\" 0 1 1 5;") +
         "connectAttr \"driven.o\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
}

TEST_F(TexturePattern, IsNoneWhenTheFrameExtensionIsNotUsed) {
    makeFrames({"1"});
    open(fileTextureText("file1", "tex.1.tga") + flippedText("file1", "1 1 2 2", 2));
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
    EXPECT_FALSE(run().scene.textureSources.at(0).texPatternAnimated);
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, HasTheFramesOfListAndKeysInOrderAndOnce) {
    makeFrames({"1", "2", "3", "5", "7", "10"});
    open(listed("1-3,7") + flippedText("file1", "1 1 5 5 9 10 12 5", 4));
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
    EXPECT_THAT(frames(), ElementsAre(1, 2, 3, 5, 7, 10));
    EXPECT_THAT(imageNames(), ElementsAre("tex.1", "tex.2", "tex.3", "tex.5", "tex.7", "tex.10"));
    const TexturePatternRecord& pattern = run().scene.texturePatterns.at(0);
    EXPECT_EQ(pattern.fileNodeName, "file1");
    EXPECT_EQ(pattern.textureSource, 0);
    EXPECT_EQ(pattern.curve, node("file1_curve"));
    EXPECT_EQ(run().scene.textures.size(), 6U) << "the material's own image is one of them";
}

TEST_F(TexturePattern, RoundsKeysHalfAwayFromZero) {
    makeFrames({"1", "3", "7"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + flippedText("file1", "1 2.5 5 6.5 9 7.49", 3));
    EXPECT_TRUE(isGathered());
    EXPECT_THAT(frames(), ElementsAre(3, 7));
}

TEST_F(TexturePattern, TilesAllItsImagesLikeTheMaterialsOwn) {
    makeFrames({"1", "2"});
    open(fileTextureText("file1", "tex.1.tga", std::string(kUseFrames) + "\n\tsetAttr \".wu\" no;") +
         flippedText("file1", "1 1 2 2", 2));
    EXPECT_TRUE(isGathered());
    ASSERT_EQ(run().scene.textureRefs.size(), 2U);
    EXPECT_EQ(run().scene.textureRefs[1].tilingS, kTilingClamp);
    EXPECT_EQ(run().scene.textureRefs[1].tilingT, kTilingRepeat);
}

TEST_F(TexturePattern, SaysNothingOfTheTilingOfOtherImages) {
    makeFrames({"1"});
    writeImage(folder.path("tex.2.tga"), Picture(9, 8));
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + flippedText("file1", "1 1 2 2", 2));
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Size of texture is wrong: tex.2 (9 x 8)\n");
}

TEST_F(TexturePattern, TakesZeroPaddedNumbersWhenTheSceneHasThem) {
    makeFrames({"001", "002", "010"});
    open(fileTextureText("file1", "tex.001.tga", kUseFrames) + flippedText("file1", "1 1 2 2 3 10", 3));
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
    EXPECT_THAT(imageNames(), ElementsAre("tex.001", "tex.002", "tex.010"));
}

TEST_F(TexturePattern, PrefersPlainNumbersWhereThereAreSuchFiles) {
    makeFrames({"001", "1", "002"});
    open(fileTextureText("file1", "tex.001.tga", kUseFrames) + flippedText("file1", "1 1 2 2", 2));
    EXPECT_TRUE(isGathered());
    EXPECT_THAT(imageNames(), ElementsAre("tex.1", "tex.002"));
}

TEST_F(TexturePattern, OfACurveWithoutKeysHasTheFramesOfTheList) {
    makeFrames({"1", "4"});
    open(listed("1,4") + nodeText("animCurveTU", "empty") + "connectAttr \"empty.o\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
    EXPECT_THAT(frames(), ElementsAre(1, 4));
}

TEST_F(TexturePattern, OfACurveWithoutKeysAndNoListIsNoneWithAWarning) {
    makeFrames({"1"});
    open(listed("") + nodeText("animCurveTU", "empty") + "connectAttr \"empty.o\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Animation curve is not connected to frame extension: file1\n");
    EXPECT_THAT(run().scene.texturePatterns, IsEmpty());
}

TEST_F(TexturePattern, OfOneFileInTwoMaterialsAreTwoWithTheSameImages) {
    makeFrames({"1", "2"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + flippedText("file1", "1 1 2 2", 2));
    EXPECT_TRUE(isGathered());
    int source = -1;
    int ref = -1;
    EXPECT_TRUE(getTextureSource(node("file1"), 1, source, ref));
    ASSERT_EQ(run().scene.texturePatterns.size(), 2U);
    EXPECT_EQ(run().scene.texturePatterns[1].textureSource, 1);
    EXPECT_EQ(run().scene.texturePatterns[1].textureRefs, run().scene.texturePatterns[0].textureRefs);
    EXPECT_EQ(run().scene.textures.size(), 2U);
}

// A character set between curves and frame extension; its first element belongs to somebody else.
std::string characterText() {
    return nodeText("character", "character1") + steppedCurveText("other", "1 1 9 4", 2) +
           steppedCurveText("frames", "1 1 5 2", 2) + "connectAttr \"other.o\" \"character1.uv[0]\";\n" +
           "connectAttr \"frames.o\" \"character1.uv[3]\";\n";
}

TEST_F(TexturePattern, OfKeysThroughACharacterIsThatOfTheElementThatDrivesTheFrameExtension) {
    makeFrames({"1", "2"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + characterText() +
         "connectAttr \"character1.uv[3]\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "");
    EXPECT_THAT(frames(), ElementsAre(1, 2));
    EXPECT_EQ(run().scene.texturePatterns.at(0).curve, node("frames"));
}

TEST_F(TexturePattern, OfACharactersElementWithoutKeysIsThatOfItsFirstInput) {
    makeFrames({"1", "4"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + characterText() +
         "connectAttr \"character1.uv[5]\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_THAT(frames(), ElementsAre(1, 4));
}

TEST_F(TexturePattern, OfKeysThroughTwoCharactersIsNone) {
    makeFrames({"1"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + characterText() + nodeText("character", "character2") +
         "connectAttr \"character1.uv[3]\" \"character2.uv[0]\";\nconnectAttr \"character2.uv[0]\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_EQ(takeMessages(), "Warning: Animation curve is not connected to frame extension: file1\n");
}

TEST_F(TexturePattern, OfKeysThroughAConversionIsTheSame) {
    makeFrames({"1", "2"});
    open(fileTextureText("file1", "tex.1.tga", kUseFrames) + steppedCurveText("frames", "1 1 5 2", 2) +
         nodeText("unitConversion", "conversion") + "connectAttr \"frames.o\" \"conversion.i\";\n" +
         "connectAttr \"conversion.o\" \"file1.fe\";\n");
    EXPECT_TRUE(isGathered());
    EXPECT_THAT(frames(), ElementsAre(1, 2));
}

} // namespace
} // namespace tvk
