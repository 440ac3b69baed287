#include "material/texturePaths.h"

#include "MaterialSession.h"
#include "sceneText.h"
#include "textureScene.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tvk {
namespace {

namespace fs = std::filesystem;

struct ResolveCase {
    const char *name, *root, *path;
};

class ResolvedPath : public testing::TestWithParam<ResolveCase> {};

TEST_P(ResolvedPath, Follows) {
    EXPECT_STREQ(resolveTexturePath(GetParam().name, GetParam().root).asUTF8(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(LowercaseDriveIsMadeUppercase, ResolvedPath,
                         testing::Values(ResolveCase{"c:/a.tga", "D:/p/", "C:/a.tga"},
                                         ResolveCase{"z:a.tga", "D:/p/", "Z:a.tga"}, ResolveCase{"c:", "D:/p/", "C:"}));
INSTANTIATE_TEST_SUITE_P(UppercaseDriveStays, ResolvedPath,
                         testing::Values(ResolveCase{"C:/a.tga", "D:/p/", "C:/a.tga"},
                                         ResolveCase{"C:\\a.tga", "D:/p/", "C:\\a.tga"},
                                         ResolveCase{"1:/a.tga", "D:/p/", "1:/a.tga"}));
INSTANTIATE_TEST_SUITE_P(RelativeNameStandsBehindTheRoot, ResolvedPath,
                         testing::Values(ResolveCase{"sourceimages/a.tga", "D:/p/", "D:/p/sourceimages/a.tga"},
                                         ResolveCase{"a.tga", "D:/p", "D:/pa.tga"}, // as it is, no slash added
                                         ResolveCase{"../a.tga", "/p/", "/p/../a.tga"}, ResolveCase{"a", "/p/", "/p/a"},
                                         ResolveCase{"", "/p/", "/p/"}));
INSTANTIATE_TEST_SUITE_P(DriveOfTheRootIsMadeUppercase, ResolvedPath,
                         testing::Values(ResolveCase{"a.tga", "d:/p/", "D:/p/a.tga"}));
INSTANTIATE_TEST_SUITE_P(NetworkPathStays, ResolvedPath,
                         testing::Values(ResolveCase{"//server/a.tga", "D:/p/", "//server/a.tga"},
                                         ResolveCase{"//a", "D:/p/", "//a"}));
INSTANTIATE_TEST_SUITE_P(JapaneseNameIsKeptByteForByte, ResolvedPath,
                         testing::Values(ResolveCase{"\xE3\x82\xBD.tga", "/p/", "/p/\xE3\x82\xBD.tga"}));
#ifndef _WIN32
INSTANTIATE_TEST_SUITE_P(AbsolutePathOfPosixStays, ResolvedPath,
                         testing::Values(ResolveCase{"/home/a.tga", "/p/", "/home/a.tga"},
                                         ResolveCase{"/", "/p/", "/"}));
#endif

TEST(NormalisedPath, IsEqualForPathsOfOneFile) {
    const std::string expected = "c:/proj/sourceimages/a.tga";
    for (const char* path :
         {"C:/proj/sourceimages/a.tga", "c:\\Proj\\SourceImages\\A.TGA", "C:/proj//sourceimages///a.tga",
          "C:/./proj/sourceimages/./a.tga", "C:\\proj/./sourceimages\\a.tga"}) {
        EXPECT_EQ(normalisedPath(path), expected) << path;
    }
}

TEST(NormalisedPath, ResolvesNothingFurther) {
    EXPECT_EQ(normalisedPath("/p/b/../a.tga"), "/p/b/../a.tga");
    EXPECT_EQ(normalisedPath(""), "");
    EXPECT_EQ(normalisedPath("/"), "/");
    EXPECT_EQ(normalisedPath("./a"), "a");
    EXPECT_EQ(normalisedPath("/./a"), "/a");
    EXPECT_EQ(normalisedPath("//server/a"), "/server/a");
}

TEST(NormalisedPath, DiffersForOtherFiles) {
    EXPECT_NE(normalisedPath("/p/a.tga"), normalisedPath("p/a.tga"));
    EXPECT_NE(normalisedPath("/p/a.tga"), normalisedPath("/p/a .tga"));
    EXPECT_NE(normalisedPath("/p/\xC3\xA4.tga"), normalisedPath("/p/\xC3\x84.tga")); // no ASCII letters
}

TEST(ImageName, IsTheFileNameWithoutFolderAndLastExtension) {
    EXPECT_EQ(imageNameOf("C:/a.b/tex.tga"), "tex");
    EXPECT_EQ(imageNameOf("C:\\a\\tex.v2.tga"), "tex.v2");
    EXPECT_EQ(imageNameOf("tex"), "tex");
    EXPECT_EQ(imageNameOf(".tga"), "");
    EXPECT_EQ(imageNameOf("/p/"), "");
    EXPECT_EQ(imageNameOf("/p/\x83\x5C.tga"), "\x83\x5C");         // Shift_JIS whose second byte is 5C
    EXPECT_EQ(imageNameOf("/p/\xE3\x82\xBD.tga"), "\xE3\x82\xBD"); // the same in UTF-8
}

// A project in <folder>/p, a scene in <folder>/scenes.
class FindImage : public testing::Test, public MaterialSession {
protected:
    FindImage() {
        for (const char* name : {"p", "p/sourceimages", "p/sub", "scenes"}) {
            fs::create_directory(fs::u8path(folder.path(name)));
        }
        openFile("scenes/a.ma", sceneOf(""));
        run().options.workspaceRoot = folder.path("p") + "/";
    }
    std::string made(const std::string& name) {
        writeBytes(folder.path(name), {1});
        return folder.path(name);
    }
};

TEST_F(FindImage, GivesThePathItselfWhenThereIsNoSuchFileAnywhere) {
    EXPECT_EQ(findImageFile("C:/old//sourceimages/a.tga"), "C:/old//sourceimages/a.tga");
}

TEST_F(FindImage, PrefersThePathOverAllOtherPlaces) {
    const std::string path = made("p/sub/a.tga");
    made("p/sourceimages/a.tga");
    made("scenes/a.tga");
    EXPECT_EQ(findImageFile(path), path);
}

TEST_F(FindImage, LooksBelowTheWorkspaceForWhatFollowsTheLastDoubleSlash) {
    const std::string found = made("p/sub/a.tga");
    made("p/sourceimages/a.tga");
    EXPECT_EQ(findImageFile("C:/old//x//sub/a.tga"), found);
}

TEST_F(FindImage, LooksInTheWorkspacesSourceimagesForTheFileName) {
    const std::string found = made("p/sourceimages/a.tga");
    made("scenes/a.tga");
    EXPECT_EQ(findImageFile("C:/old//x/a.tga"), found);
    EXPECT_EQ(findImageFile("C:\\old\\x\\a.tga"), found);
}

TEST_F(FindImage, LooksBesideTheSceneForTheFileName) {
    const std::string found = made("scenes/a.tga");
    EXPECT_EQ(findImageFile("C:/old/x/a.tga"), found);
}

TEST_F(FindImage, TakesNoFolderForAFile) {
    fs::create_directory(fs::u8path(folder.path("p/sourceimages/a.tga")));
    EXPECT_EQ(findImageFile("C:/old/a.tga"), "C:/old/a.tga");
}

} // namespace
} // namespace tvk
