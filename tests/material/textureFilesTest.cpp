#include "material/textureFiles.h"

#include "MaterialSession.h"
#include "scene/messages.h"
#include "sceneText.h"
#include "textureScene.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

// The workspace is the test's folder.
class TextureFiles : public testing::Test, public MaterialSession {
protected:
    std::string made(const std::string& name, std::size_t width, std::size_t height) {
        writeImage(folder.path(name), Picture(width, height));
        return folder.path(name);
    }
    // What was written of the paths below the folder, without the folder.
    std::string said() {
        std::string text = takeMessages();
        for (auto at = text.find(folder.path()); at != std::string::npos; at = text.find(folder.path())) {
            text.replace(at, folder.path().size(), "@");
        }
        return text;
    }
    bool isRegistered(const std::string& path, const std::string& fileNode = "") {
        int index = -7;
        const bool success = registerTextureFile(path.c_str(), index, fileNode) == MS::kSuccess;
        EXPECT_EQ(index == -7, !success);
        return success;
    }
};

TEST_F(TextureFiles, MissingFileFailsAndNamesItsUser) {
    EXPECT_FALSE(isRegistered(folder.path("none.tga"), "file1"));
    EXPECT_EQ(said(), "Error: Can't open file: @/none.tga\n       (used by file1)\n");
    EXPECT_THAT(run().scene.textures, IsEmpty());
    EXPECT_FALSE(warningRaised());
}

TEST_F(TextureFiles, MissingFileFailsWithoutUserToo) {
    EXPECT_FALSE(isRegistered("C:/old/none.tga"));
    EXPECT_EQ(said(), "Error: Can't open file: C:/old/none.tga\n");
}

TEST_F(TextureFiles, FolderInPlaceOfAFileFails) {
    fs::create_directory(fs::u8path(folder.path("a.tga")));
    EXPECT_FALSE(isRegistered(folder.path("a.tga"), "file1"));
    EXPECT_EQ(said(), "Error: Can't open file: @/a.tga\n       (used by file1)\n");
}

TEST_F(TextureFiles, OtherTypesOfImagesFailWhetherTheyExistOrNot) {
    writeBytes(folder.path("a.png"), {1, 2, 3});
    for (const char* name : {"a.png", "b.jpg", "noextension", "tga"}) {
        EXPECT_FALSE(isRegistered(folder.path(name), "file1"));
        EXPECT_EQ(said(), std::string("Error: Image type is not supported: @/") + name + "\n       (used by file1)\n");
    }
}

TEST_F(TextureFiles, HeaderThatMakesNoSenseFails) {
    writeBytes(folder.path("a.tga"), std::vector<uint8_t>(18));
    EXPECT_FALSE(isRegistered(folder.path("a.tga"), "file1"));
    EXPECT_EQ(said(), "Error: Invalid TGA file (invalid image type): @/a.tga\n       (used by file1)\n");
    writeBytes(folder.path("b.pic"), {1, 2});
    EXPECT_FALSE(isRegistered(folder.path("b.pic"), "file1"));
    EXPECT_EQ(said(), "Error: Invalid PIC file: @/b.pic\n       (used by file1)\n");
}

TEST_F(TextureFiles, NameCheckTakesAnUnreadableImageForASmallOne) {
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(isRegistered(folder.path("none.tga")));
    EXPECT_EQ(said(), "");
    const TextureRecord& image = run().scene.textures.at(0);
    EXPECT_EQ(image.width, 8);
    EXPECT_EQ(image.originalHeight, 8);
}

TEST_F(TextureFiles, NameCheckRegistersTheWorkspaceItselfForAnEmptyName) {
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(isRegistered(folder.path() + "/"));
    EXPECT_EQ(run().scene.textures.at(0).name, "");
    EXPECT_EQ(run().scene.textures.at(0).width, 8);
}

struct LargeCase {
    std::size_t width, height;
    const char* size;
};

class LargeImage : public TextureFiles, public testing::WithParamInterface<LargeCase> {};

TEST_P(LargeImage, Fails) {
    EXPECT_FALSE(isRegistered(made("big.tga", GetParam().width, GetParam().height), "file1"));
    EXPECT_EQ(said(), std::string("Error: Texture size over: big (") + GetParam().size + ")\n");
    EXPECT_THAT(run().scene.textures, IsEmpty());
}

TEST_P(LargeImage, IsCutInANameCheckWhoseRoundedSizesStay) {
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(isRegistered(made("big.tga", GetParam().width, GetParam().height)));
    EXPECT_EQ(said(), "");
    const TextureRecord& image = run().scene.textures.at(0);
    EXPECT_EQ(image.originalWidth, 1024);
    EXPECT_EQ(image.originalHeight, 1024);
    EXPECT_EQ(std::max(image.width, image.height), 2048);
}

INSTANTIATE_TEST_SUITE_P(Of2048By16, LargeImage, testing::Values(LargeCase{2048, 16, "2048 x 16"}));
INSTANTIATE_TEST_SUITE_P(Of1025Wide, LargeImage, testing::Values(LargeCase{1025, 8, "1025 x 8"}));
INSTANTIATE_TEST_SUITE_P(Of1025High, LargeImage, testing::Values(LargeCase{8, 1025, "8 x 1025"}));

TEST_F(TextureFiles, LargestSizeIs65535) {
    std::vector<uint8_t> header = writeTga(Picture(8, 8), TgaOptions());
    header[12] = header[13] = header[14] = header[15] = 0xFF;
    writeBytes(folder.path("huge.tga"), header);
    EXPECT_FALSE(isRegistered(folder.path("huge.tga")));
    EXPECT_EQ(said(), "Error: Texture size over: huge (65535 x 65535)\n");
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(isRegistered(folder.path("huge.tga")));
    EXPECT_EQ(run().scene.textures.at(0).width, 65536);
}

struct SizeCase {
    std::size_t width, height;
    int roundedWidth, roundedHeight;
    const char* warning; // its sizes; "" for none
};

class ImageSize : public TextureFiles, public testing::WithParamInterface<SizeCase> {};

TEST_P(ImageSize, IsRoundedUpAndWarnedOfWhenItIsNoTextureSize) {
    const SizeCase row = GetParam();
    EXPECT_TRUE(isRegistered(made("a.tga", row.width, row.height)));
    const TextureRecord& image = run().scene.textures.at(0);
    EXPECT_EQ(image.width, row.roundedWidth);
    EXPECT_EQ(image.height, row.roundedHeight);
    EXPECT_EQ(image.originalWidth, static_cast<int>(row.width));
    EXPECT_EQ(image.originalHeight, static_cast<int>(row.height));
    const std::string warning = row.warning;
    EXPECT_EQ(said(), warning.empty() ? "" : "Warning: Size of texture is wrong: a (" + warning + ")\n");
    EXPECT_EQ(warningRaised(), !warning.empty());
}

TEST_P(ImageSize, IsNotWarnedOfInANameCheck) {
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(isRegistered(made("a.tga", GetParam().width, GetParam().height)));
    EXPECT_EQ(said(), "");
    EXPECT_EQ(run().scene.textures.at(0).width, GetParam().roundedWidth);
}

INSTANTIATE_TEST_SUITE_P(All, ImageSize,
                         testing::Values(SizeCase{8, 8, 8, 8, ""}, SizeCase{16, 512, 16, 512, ""},
                                         SizeCase{1024, 1024, 1024, 1024, ""}, SizeCase{100, 64, 128, 64, "100 x 64"},
                                         SizeCase{4, 4, 8, 8, "4 x 4"}, SizeCase{1, 8, 8, 8, "1 x 8"},
                                         SizeCase{8, 9, 8, 16, "8 x 9"},
                                         SizeCase{513, 1000, 1024, 1024, "513 x 1000"}));

TEST_F(TextureFiles, NewImageHasItsDefaults) {
    const std::string path = made("wood.v2.tga", 16, 8);
    EXPECT_TRUE(isRegistered(path, "file1"));
    const TextureRecord& image = run().scene.textures.at(0);
    EXPECT_EQ(image.path, path);
    EXPECT_EQ(image.name, "wood.v2");
    EXPECT_EQ(image.index, 0);
    EXPECT_EQ(image.format, 6);
    EXPECT_EQ(image.color0Mode, 0);
    EXPECT_EQ(image.paletteIndex, -1);
    EXPECT_THAT(infos, IsEmpty());
}

TEST_F(TextureFiles, OneFileIsRegisteredOnceHoweverItsPathIsSpelled) {
    made("a.tga", 8, 8);
    for (const char* name : {"/a.tga", "//a.tga", "/./A.TGA", "\\a.tga"}) {
        int index = -7;
        EXPECT_TRUE(registerTextureFile((folder.path() + name).c_str(), index)) << name;
        EXPECT_EQ(index, 0) << name;
    }
    EXPECT_EQ(run().scene.textures.size(), 1U);
    EXPECT_EQ(run().scene.textures[0].path, folder.path("a.tga"));
}

TEST_F(TextureFiles, EqualNamesOfOtherFilesAreWarnedOf) {
    fs::create_directory(fs::u8path(folder.path("x")));
    fs::create_directory(fs::u8path(folder.path("y")));
    EXPECT_TRUE(isRegistered(made("a.tga", 8, 8)));
    EXPECT_TRUE(isRegistered(made("x/a.tga", 8, 8)));
    EXPECT_EQ(said(), "Warning: Same named texture file exist: a\n         @/a.tga\n         @/x/a.tga\n");
    EXPECT_TRUE(isRegistered(made("y/a.tga", 8, 8)));
    EXPECT_EQ(said(), "Warning: Same named texture file exist: a\n         @/a.tga\n         @/y/a.tga\n");
    EXPECT_TRUE(isRegistered(made("A.tga", 8, 8)) && run().scene.textures.size() == 3) << "the first file again";
    EXPECT_TRUE(warningRaised());
}

TEST_F(TextureFiles, EqualNamesAreNotWarnedOfInANameCheck) {
    fs::create_directory(fs::u8path(folder.path("x")));
    run().options.quietTextureWarnings = true;
    EXPECT_TRUE(isRegistered(made("a.tga", 8, 8)));
    EXPECT_TRUE(isRegistered(made("x/a.tga", 8, 8)));
    EXPECT_EQ(said(), "");
    EXPECT_EQ(run().scene.textures.size(), 2U);
}

TEST_F(TextureFiles, SizeIsWarnedOfBeforeTheName) {
    fs::create_directory(fs::u8path(folder.path("x")));
    EXPECT_TRUE(isRegistered(made("a.tga", 8, 8)));
    EXPECT_TRUE(isRegistered(made("x/a.tga", 9, 8)));
    EXPECT_EQ(said(), "Warning: Size of texture is wrong: a (9 x 8)\n"
                      "Warning: Same named texture file exist: a\n         @/a.tga\n         @/x/a.tga\n");
}

TEST_F(TextureFiles, ImageFromAnotherMachineIsFoundInTheWorkspaceWithOneInformationLine) {
    fs::create_directory(fs::u8path(folder.path("sourceimages")));
    const std::string found = made("sourceimages/a.tga", 16, 8);
    EXPECT_TRUE(isRegistered("C:/old//sourceimages/a.tga", "file1"));
    EXPECT_TRUE(isRegistered("C:/old//sourceimages/a.tga", "file2"));
    EXPECT_EQ(run().scene.textures.at(0).path, "C:/old//sourceimages/a.tga");
    EXPECT_EQ(run().scene.textures.at(0).file, found);
    EXPECT_EQ(run().scene.textures.at(0).width, 16);
    EXPECT_THAT(infos, ElementsAre("Texture image is read from another place: C:/old//sourceimages/a.tga -> " + found));
    EXPECT_EQ(said(), "");
    EXPECT_FALSE(warningRaised());
}

TEST_F(TextureFiles, AllFileTexturesOfTheSceneAreRegisteredInTheOrderInWhichTheyWereMade) {
    made("b.tga", 8, 8);
    made("a.tga", 8, 8);
    open(fileTextureText("z", "b.tga") + fileTextureText("y", "a.tga") + fileTextureText("x", "b.tga") +
         nodeText("psdFileTex", "psd", "", "setAttr \".ftn\" -type \"string\" \"none.psd\";"));
    EXPECT_TRUE(registerAllTextureFiles());
    EXPECT_EQ(said(), "");
    ASSERT_EQ(run().scene.textures.size(), 2U);
    EXPECT_EQ(run().scene.textures[0].name, "b");
    EXPECT_EQ(run().scene.textures[1].name, "a");
    EXPECT_THAT(run().scene.textureRefs, IsEmpty());
}

TEST_F(TextureFiles, FileTextureWithoutImageNameIsWarnedOfAndPassedOver) {
    made("a.tga", 8, 8);
    open(fileTextureText("empty", "") + fileTextureText("good", "a.tga"));
    EXPECT_TRUE(registerAllTextureFiles());
    EXPECT_EQ(said(), "Warning: No texture image name: empty\n");
    EXPECT_EQ(run().scene.textures.size(), 1U);
}

TEST_F(TextureFiles, FileTextureWithoutImageNameIsPassedOverSilentlyInANameCheck) {
    run().options.quietTextureWarnings = true;
    open(fileTextureText("empty", ""));
    EXPECT_TRUE(registerAllTextureFiles());
    EXPECT_EQ(said(), "");
    EXPECT_THAT(run().scene.textures, IsEmpty());
}

TEST_F(TextureFiles, FirstUnreadableImageOfTheSceneEndsTheRegistration) {
    made("c.tga", 8, 8);
    open(fileTextureText("one", "none.tga") + fileTextureText("two", "none2.tga") + fileTextureText("three", "c.tga"));
    EXPECT_FALSE(registerAllTextureFiles());
    EXPECT_EQ(said(), "Error: Can't open file: @/none.tga\n       (used by one)\n");
    EXPECT_THAT(run().scene.textures, IsEmpty());
}

} // namespace
} // namespace tvk
