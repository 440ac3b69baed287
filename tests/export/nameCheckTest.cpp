#include "export/nameCheck.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"
#include "textureScene.h"
#include "writers/extensionWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

const std::string k16 = "a234567890123456";
const std::string k17 = "a2345678901234567";

class NameCheck : public testing::Test {
protected:
    // What is reported of the whole scene; a test failure when the check fails.
    std::vector<std::string> check(MPxFileTranslator::FileAccessMode mode = MPxFileTranslator::kExportAccessMode) {
        std::vector<std::string> pairs;
        EXPECT_TRUE(checkElementNames(mode, pairs));
        return pairs;
    }

    std::vector<std::string> checkSelection() { return check(MPxFileTranslator::kExportActiveAccessMode); }

    // An image file of that name, with a palette name in its extension block unless that is empty.
    std::string image(const std::string& name, const std::string& palette = "") const {
        const std::string path = session.folder.path(name);
        if (palette.empty()) {
            writeImage(path, pictureOfColors(8, 8, 4));
        } else {
            writeBytes(path, tgaWithBlock(8, 8,
                                          joined({chunk("tvk_frmt", "palette4"), chunk("tvk_pnam", palette),
                                                  chunk("tvk_endb", std::vector<std::uint8_t>{})})));
        }
        return path;
    }

    ExportSession session;
};

// --- what cannot be checked

TEST_F(NameCheck, AMeshInNoShadingGroupFailsAsAnExportWould) {
    session.open(nodeText("transform", "a") + meshText("aShape", "a"));
    std::vector<std::string> pairs;
    EXPECT_FALSE(checkElementNames(MPxFileTranslator::kExportAccessMode, pairs));
    const std::string said = session.takeMessages();
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), said + "\n") << "but for the empty line of an export";
    EXPECT_THAT(said, EndsWith("aShape\n"));
}

TEST_F(NameCheck, InsideAnExportItFailsInSilence) {
    session.open(nodeText("transform", k17));
    run().underWay = true;
    std::vector<std::string> pairs;
    EXPECT_FALSE(checkElementNames(MPxFileTranslator::kExportAccessMode, pairs));
    run().underWay = false;
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_THAT(pairs, IsEmpty());
}

TEST_F(NameCheck, AnEmptySceneHasNoLongNames) {
    session.open("");
    EXPECT_THAT(check(), IsEmpty());
    EXPECT_EQ(session.takeMessages(), "Warning: No effective node\n\n");
}

// --- nodes

TEST_F(NameCheck, SixteenCharactersAreNotTooMany) {
    session.open(nodeText("transform", k16));
    EXPECT_THAT(check(), IsEmpty());
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(NameCheck, NodesComeWithTheirPaths) {
    session.open(nodeText("transform", "top") + nodeText("transform", k17, "top") + nodeText("joint", k17 + "8", k17));
    EXPECT_THAT(check(), ElementsAre("|top|" + k17, k17, "|top|" + k17 + "|" + k17 + "8", k17 + "8"));
    EXPECT_EQ(session.takeMessages(), "");
}

// Names that are equal get numbers, which may make them too long, and nothing is said of that.
TEST_F(NameCheck, NamesAreCheckedAsTheyWouldBeWritten) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b") + nodeText("transform", k16, "a") +
                 nodeText("transform", k16, "b"));
    EXPECT_THAT(check(), ElementsAre("|b|" + k16, k16 + "_1"));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(NameCheck, NodesThatAnExportLeavesOutAreNotNamed) {
    session.open(nodeText("transform", "a") + nodeText("transform", k17) + nodeText("camera", "eye", k17));
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(NameCheck, ASelectionIsCheckedAlone) {
    session.open(nodeText("transform", k17 + "x") + nodeText("transform", "group") +
                 nodeText("transform", k17, "group"));
    session.mel("select -cl");
    EXPECT_THAT(checkSelection(), IsEmpty());
    EXPECT_EQ(session.takeMessages(), "Warning: No effective node\n\n");
    session.mel("select -r group");
    EXPECT_THAT(checkSelection(), ElementsAre("|group|" + k17, k17));
    EXPECT_EQ(session.mel("size(`ls -sl`)"), "1") << "and the selection stays";
}

// --- materials

TEST_F(NameCheck, MaterialsThatShadeAFaceAreNamed) {
    session.open(shadingText("lambert", k17) + shadedMesh("a", k17 + "SG") + shadingText("lambert", k16) +
                 shadedMesh("b", k16 + "SG") + shadingText("lambert", k17 + "unused"));
    EXPECT_THAT(check(), ElementsAre(k17, k17));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(NameCheck, AMaterialWithoutFacesIsNotNamed) {
    session.open(shadingText("lambert", k17) + nodeText("transform", "a") + nodeText("mesh", "aShape", "a") +
                 "connectAttr \"aShape.iog\" \"" + k17 + "SG.dsm\" -na;\n");
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(NameCheck, AMaterialsSecondTextIsItsShader) {
    // One shader in two groups makes two materials, of which the second gets a number.
    session.open(shadingText("lambert", k16) + nodeText("shadingEngine", "otherSG", "", "setAttr \".ro\" yes;") +
                 connectText(k16 + ".oc", "otherSG.ss") + shadedMesh("a", k16 + "SG") + shadedMesh("b", "otherSG"));
    EXPECT_THAT(check(), ElementsAre(k16 + "_1", k16));
}

// --- textures

TEST_F(NameCheck, TexturesComeWithTheirPaths) {
    const std::string path = image(k17 + ".tga");
    session.open(texturedText("t", path) + texturedText("u", image(k16 + ".tga")));
    EXPECT_THAT(check(), ElementsAre(path, k17));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(NameCheck, PalettesAreNamedInTheirFiles) {
    const std::string shortImage = image("pal.tga", k17 + "p");
    const std::string longImage = image(k17 + ".tga", k17 + "q");
    image("fits.tga", k16);
    session.open(texturedText("t", shortImage) + texturedText("u", longImage) +
                 texturedText("v", session.folder.path("fits.tga")));
    EXPECT_THAT(check(), ElementsAre(longImage, k17, longImage, k17 + "q", shortImage, k17 + "p"));
}

TEST_F(NameCheck, AnImageThatCannotBeOpenedIsPassedOverWithAWarning) {
    const std::string missing = session.folder.path(k17 + ".tga");
    session.open(texturedText("t", missing) + texturedText("u", image(k17 + "x.tga")));
    EXPECT_THAT(check(), ElementsAre(session.folder.path(k17 + "x.tga"), k17 + "x"));
    EXPECT_EQ(session.takeMessages(), "Warning: Can't open file: " + missing + "\n\n");
}

TEST_F(NameCheck, AFileTextureWithoutANameIsNoError) {
    session.open(texturedText("t", ""));
    EXPECT_THAT(check(), IsEmpty());
    EXPECT_THAT(session.takeMessages(), testing::StartsWith("Warning: No texture image name: t\n"));
}

// --- what is left behind

TEST_F(NameCheck, NothingIsWrittenAndNothingStays) {
    session.open(shadingText("lambert", k17) + shadedMesh(k17 + "m", k17 + "SG"));
    session.mel("currentTime 7");
    EXPECT_THAT(check(), ElementsAre("|" + k17 + "m", k17 + "m", k17, k17));
    EXPECT_EQ(session.currentTime(), 7.0);
    EXPECT_TRUE(run().scene.nodes.empty() && run().scene.materials.empty());
    EXPECT_FALSE(std::filesystem::exists("dummy.txt") || std::filesystem::exists("dummy.imd"));
    EXPECT_THAT(session.infos, IsEmpty());
    EXPECT_TRUE(session.exportAll()) << "the next export is an ordinary one";
    EXPECT_EQ(session.takeMessages(), "Warning: Length of name over 16 characters: node: " + k17 + "m\n" +
                                          "Warning: Length of name over 16 characters: material: " + k17 + "\n\n");
}

} // namespace
} // namespace tvk
