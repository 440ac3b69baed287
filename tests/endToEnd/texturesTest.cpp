// Textured scenes through the finished program.

#include "FinishedProgram.h"
#include "decode/ModelTextures.h"
#include "sceneText.h"
#include "shownPictures.h"
#include "textureScene.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace tvk {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

decode::ModelTextures texturesOf(const FinishedProgram& program, const std::string& file) {
    return decode::readModelTextures(decode::readIntermediateFile(program.bytes(file)));
}

TEST(Textures, OfASceneAreFoundBesideItAndShowTheirPictures) {
    const FinishedProgram program;
    const Picture wood = pictureOfColors(32, 16, 12);
    const Picture leaf = pictureOfColors(64, 64, 1000);
    writeImage(program.path("wood.tga"), wood);
    writeImage(program.path("leaf.tga"), leaf);
    program.write("scene.ma", sceneOf(texturedText("file1", "D:/old/wood.tga") + texturedText("file2", "leaf.tga")));
    const ProgramRun run = program.run({"scene.ma", "-o", "out"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out,
                HasSubstr("Texture image is read from another place: D:/old/wood.tga -> " + program.path("wood.tga")));
    const decode::ModelTextures textures = texturesOf(program, "out.imd");
    EXPECT_EQ(textures.image("wood").format, "palette16");
    EXPECT_EQ(textures.image("wood").path, "D:/old/wood.tga");
    EXPECT_EQ(textures.image("leaf").format, "direct");
    expectShows(textures.image("wood"), wood);
    expectShows(textures.image("leaf"), leaf);
}

struct BadImage {
    const char *name, *image;
    std::string message; // "@" stands for the folder
};

void PrintTo(const BadImage& row, std::ostream* out) {
    *out << row.name;
}

class BadImageOfAScene : public testing::TestWithParam<BadImage> {};

TEST_P(BadImageOfAScene, FailsWithFileReasonAndNode) {
    const FinishedProgram program;
    std::filesystem::create_directory(program.path("folder.tga"));
    program.write("photo.jpg", "\xFF\xD8\xFF\xE0");
    program.write("short.tga", "ab");
    program.write("empty.pic", "");
    writeImage(program.path("wide.tga"), Picture(1025, 8));
    program.write("scene.ma", sceneOf(texturedText("file1", program.path(GetParam().image))));
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "out"});
    std::string message = GetParam().message;
    if (const std::size_t at = message.find('@'); at != std::string::npos) {
        message.replace(at, 1, program.path());
    }
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.error, HasSubstr(message));
    EXPECT_THAT(program.names(), Not(Contains("out.imd")));
}

INSTANTIATE_TEST_SUITE_P(
    All, BadImageOfAScene,
    testing::Values(BadImage{"Missing", "none.tga", "Error: Can't open file: @/none.tga\n       (used by file1)\n"},
                    BadImage{"AFolder", "folder.tga", "Error: Can't open file: @/folder.tga\n       (used by file1)\n"},
                    BadImage{"AnotherType", "photo.jpg",
                             "Error: Image type is not supported: @/photo.jpg\n       (used by file1)\n"},
                    BadImage{"Truncated", "short.tga",
                             "Error: Invalid TGA file (unexpected end of file): @/short.tga\n       (used by file1)\n"},
                    BadImage{"Empty", "empty.pic", "Error: Invalid PIC file: @/empty.pic\n       (used by file1)\n"},
                    BadImage{"TooWide", "wide.tga", "Error: Texture size over: wide (1025 x 8)\n"}),
    [](const auto& row) { return row.param.name; });

TEST(Textures, ThatNobodyMayReadFailWithFileReasonAndNode) {
    const FinishedProgram program;
    writeImage(program.path("secret.tga"), Picture(8, 8));
    std::filesystem::permissions(program.path("secret.tga"), std::filesystem::perms::none);
    std::filesystem::create_directory(program.path("open"));
    std::filesystem::permissions(program.path("open"), std::filesystem::perms::all);
    program.write("scene.ma", sceneOf(texturedText("file1", program.path("secret.tga"))));
    FinishedProgram::Surroundings surroundings;
    surroundings.asNobody = true;
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "open/out"}, surroundings);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.error,
                HasSubstr("Error: Can't open file: " + program.path("secret.tga") + "\n       (used by file1)\n"));
}

TEST(Textures, WithJapaneseNamesAreWrittenInShiftJis) {
    const FinishedProgram program;
    const Picture picture = pictureOfColors(8, 8, 3);
    writeImage(program.path("\xE3\x82\xBD.tga"), picture); // its second byte in Shift_JIS is that of a backslash
    program.write("scene.ma", sceneOf(texturedText("file1", program.path("\xE3\x82\xBD.tga"))));
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "out"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(), Each(Not(HasSubstr("Shift_JIS"))));
    const decode::ModelTextures textures = texturesOf(program, "out.imd");
    expectShows(textures.image("\x83\x5C"), picture);
    EXPECT_EQ(textures.image("\x83\x5C").paletteName, "\x83\x5C");
}

// What users of the real host really connect: image types that the console's tools do not read.
TEST(Textures, OfARealSceneWithOtherImageTypesFailWithFileReasonAndNode) {
    const FinishedProgram program;
    program.write("scene.ma", realScene("image-formats/CubesImageFormat.ma"));
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "out"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.error, testing::ContainsRegex(
                               "Error: (Image type is not supported|Can't open file): "
                               "D:/Fabrice/Projets/BabylonJS/Exporters/Maya/Samples/sourceModels/CubesImageFormat/"
                               "CubesImageFormat\\.fbm/[A-Z_0-9]+\\.[a-z]+\n       \\(used by [A-Za-z0-9_]+\\)\n"));
    EXPECT_THAT(program.names(), ElementsAre("scene.ma"));
}

TEST(Textures, ThatLieBesideARealSceneButAreOfAnotherTypeFailByTheirOwnPath) {
    const FinishedProgram program;
    program.write("scene.ma", realScene("phong-textures/Std_Textures.ma"));
    for (const char* name : {"bump.jpg", "gradation_horizontal.jpg", "sun.jpg", "wood.jpg", "wood_spec.jpg"}) {
        program.write(name, "\xFF\xD8");
    }
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "out"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.error, HasSubstr("Error: Image type is not supported: " + program.path()));
    EXPECT_THAT(run.error, HasSubstr("\n       (used by "));
}

} // namespace
} // namespace tvk
