// Where files and words cannot go.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <filesystem>
namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct BadPlace {
    const char* name;
    std::string base;
    std::string error; // "@" stands for the folder
};

void PrintTo(const BadPlace& row, std::ostream* out) {
    *out << row.name;
}

class BadOutputPlace : public testing::TestWithParam<BadPlace> {};

TEST_P(BadOutputPlace, IsNamedAndLeavesNoFile) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    fs::create_directories(program.path("taken/base.imd"));
    fs::create_symlink("/dev/full", program.path("full.imd"));
    fs::create_symlink("nowhere/at/all", program.path("lost.imd"));
    const std::vector<std::string> before = program.names();
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", GetParam().base});
    std::string error = GetParam().error;
    if (const std::size_t at = error.find('@'); at != std::string::npos) {
        error.replace(at, 1, program.path());
    }
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), ElementsAre("Error: " + error));
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(program.names(), before);
    EXPECT_TRUE(fs::is_directory(program.path("taken/base.imd")));
}

INSTANTIATE_TEST_SUITE_P(
    All, BadOutputPlace,
    testing::Values(BadPlace{"Missing", "no/where/base", "the output folder does not exist: @/no/where"},
                    BadPlace{"BelowAFile", "scene.ma/base", "the output folder is a file: @/scene.ma"},
                    BadPlace{"FarBelowAFile", "scene.ma/x/base", "the output folder does not exist: @/scene.ma/x"},
                    BadPlace{"InASystemFolder", "/proc/base", "Can't open file: /proc/base.imd"},
                    BadPlace{"NewInASystemFolder", "/proc/new/base",
                             "the output folder cannot be made: /proc/new (No such file or directory)"},
                    BadPlace{"AFolderInItsPlace", "taken/base", "Can't open file: @/taken/base.imd"},
                    BadPlace{"ALinkToNowhere", "lost", "Can't open file: @/lost.imd"},
                    BadPlace{"AFullDisk", "full", "Can't write file: @/full.imd"}),
    [](const auto& row) { return row.param.name; });

TEST(ReadOnlyFolder, IsNamed) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    fs::create_directories(program.path("sealed"));
    fs::permissions(program.path("sealed"),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    FinishedProgram::Surroundings surroundings;
    surroundings.asNobody = true;
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "sealed/base"}, surroundings);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), ElementsAre("Error: the output folder is not writable: " + program.path("sealed")));
    EXPECT_THAT(program.names("sealed"), testing::IsEmpty());
}

TEST(StandardOutput, ThatIsFullFailsTheRunAfterTheExport) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    for (const char* out : {"/dev/full", "-"}) {
        const ProgramRun run = program.run({"scene.ma"}, {{}, out});
        EXPECT_EQ(run.status, 1) << out;
        EXPECT_THAT(run.errorLines(), ElementsAre("Error: cannot write to standard output")) << out;
        EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre("a")) << out;
        fs::remove(program.path("scene.imd"));
    }
}

TEST(StandardOutput, ThatIsClosedMattersNotWhenNothingIsPrinted) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    const ProgramRun run = program.run({"scene.ma", "-q"}, {{}, "-"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre("a"));
}

TEST(ExistingFile, IsReplacedWhole) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    program.write("scene.imd", std::string(100000, 'x'));
    ASSERT_EQ(program.run({"scene.ma"}).status, 0);
    EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre("a"));
}

TEST(ExistingFile, SurvivesASceneThatCannotBeOpened) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf("createNode transform -n \"a"));
    program.write("scene.imd", "kept");
    EXPECT_EQ(program.run({"scene.ma"}).status, 1);
    EXPECT_EQ(program.bytes("scene.imd"), "kept");
}

} // namespace
} // namespace tvk
