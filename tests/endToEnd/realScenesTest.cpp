// Scenes that the real host wrote, through the finished program.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

namespace tvk {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> realScenes() {
    std::vector<std::string> scenes;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(TVK_SCENES)) {
        if (entry.path().extension() == ".ma") {
            scenes.push_back(entry.path().generic_string());
        }
    }
    std::sort(scenes.begin(), scenes.end());
    return scenes;
}

std::string folderOf(const std::string& scene) {
    return fs::path(scene).parent_path().filename().string();
}

// Its nodes all stand in a reference whose file its origin does not have.
constexpr const char* kNothingToExport = "missing-reference-rig";

// Their pictures are of types that no console tool reads.
constexpr std::array<const char*, 2> kRefusedPictures{"image-formats", "phong-textures"};

// Some of their meshes are in no shading group.
constexpr std::array<const char*, 2> kUnshaded{"color-sets", "face-shading"};

template <std::size_t N>
bool isAmong(const std::array<const char*, N>& folders, const std::string& scene) {
    return std::find(folders.begin(), folders.end(), folderOf(scene)) != folders.end();
}

class RealScene : public testing::TestWithParam<std::string> {};

TEST_P(RealScene, IsExportedAndTheSameBytesEveryTime) {
    const FinishedProgram program;
    const ProgramRun run = program.run({GetParam(), "-o", "first", "--kinds", "imd,iva"});
    if (folderOf(GetParam()) == kNothingToExport) {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errorLines().back(), "Error: No effective node");
        EXPECT_THAT(program.names(), testing::IsEmpty());
        return;
    }
    const bool isUnshaded = isAmong(kUnshaded, GetParam());
    if (isUnshaded || isAmong(kRefusedPictures, GetParam())) {
        const char* const reason = isUnshaded ? "Error: No shading group: " : "Error: Image type is not supported: ";
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.errorLines(), testing::Contains(testing::StartsWith(reason)));
        EXPECT_THAT(program.names(), testing::IsEmpty());
        return;
    }
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(), testing::Each(testing::StartsWith("Warning: ")));
    EXPECT_FALSE(decode::readModelFile(program.bytes("first.imd")).nodes.empty());

    ASSERT_EQ(program.run({GetParam(), "-q", "-o", "second", "--kinds", "imd,iva"}).status, 0);
    for (const char* kind : {".imd", ".iva"}) {
        EXPECT_EQ(withoutMaker(program.bytes(std::string("second") + kind)),
                  withoutMaker(program.bytes(std::string("first") + kind)));
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, RealScene, testing::ValuesIn(realScenes()), [](const auto& row) {
    std::string name = folderOf(row.param);
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
});

TEST(RealScenes, AreThere) {
    EXPECT_EQ(realScenes().size(), 20U);
}

} // namespace
} // namespace tvk
