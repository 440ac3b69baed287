// Lists of scenes and checks of names, as a build farm runs them.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <future>
#include <sstream>
#include <thread>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kLongName = "a2345678901234567";

class Batch : public testing::Test {
protected:
    void SetUp() override {
        for (const char* folder : {"scenes", "settings"}) {
            std::filesystem::create_directories(program.path(folder));
        }
        for (const char* name : {"house", "tree", "car"}) {
            program.write(std::string("scenes/") + name + ".ma", sceneOf(nodeText("transform", name)));
        }
        program.write("settings/model.z3es", "# TVK_Export settings\noutput_imd=\"on\"\nmagnify=\"2\"\n");
    }

    // A list of the folders' own names, seen from where the program runs, and these lines.
    ProgramRun batch(const std::string& lines, const std::vector<std::string>& options = {}) {
        program.write("list.z3be", "# TVK_Batch_Export\nlog \"log.txt\"\ninput_folder \"scenes\"\n"
                                   "output_folder \"out\"\nz3es_folder \"settings\"\nz3es \"model.z3es\"\n" +
                                       lines);
        std::vector<std::string> arguments = {"--batch", "list.z3be"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return program.run(arguments);
    }

    // The exports' messages in the log, without what the command writes.
    std::vector<std::string> logged() const {
        std::vector<std::string> lines;
        std::istringstream in(program.bytes("log.txt"));
        for (std::string line; std::getline(in, line);) {
            if (!line.empty() && line[0] != '#') {
                lines.push_back(line[0] == '[' ? line.substr(0, 3) : line);
            }
        }
        return lines;
    }

    FinishedProgram program;
};

TEST_F(Batch, ASceneThatFailsInTheMiddleKeepsWhatWasExported) {
    program.write("scenes/broken.ma", "//Maya ASCII 2020 scene\ncreateNode {\n");
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"broken.ma\"\nscene \"tree.ma\"\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines().back(), "Error: \"scene\" is wrong: broken.ma");
    EXPECT_THAT(program.names("out"), ElementsAre("house.imd"));
    EXPECT_THAT(logged(), ElementsAre("[1]", "Success", "[2]"));
    EXPECT_THAT(program.bytes("log.txt"), HasSubstr("# scene: broken.ma\n"));
}

TEST_F(Batch, AFullDiskEndsItWithTheFileNamed) {
    std::filesystem::create_directories(program.path("out"));
    std::filesystem::create_symlink("/dev/full", program.path("out/tree.imd"));
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"tree.ma\"\nscene \"car.ma\"\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines().back(), "Error: Failed to export");
    EXPECT_THAT(logged(),
                ElementsAre("[1]", "Success", "[2]", "Error: Can't write file: " + program.path("out/tree.imd")));
    EXPECT_THAT(program.names("out"), ElementsAre("house.imd", "tree.imd"));
}

// The list and the log are those of the guide to batches.
TEST_F(Batch, AListIsExportedSceneByScene) {
    const ProgramRun run =
        batch("scene \"house.ma\"\nscene \"tree.ma\" -name \"oak\"\nscene \"car.ma\" -root \"car\"\n", {"--strict"});
    EXPECT_EQ(run.status, 0) << run.error;
    const std::string rule = "] " + std::string(50, '-');
    EXPECT_THAT(run.errorLines(),
                ElementsAre("[1" + rule, "# scene: scenes/house.ma", "[2" + rule, "# scene: scenes/tree.ma",
                            "[3" + rule, "# scene: scenes/car.ma", "Batch Export is finished. Total 3 scenes."));
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(program.names("out"), ElementsAre("car.imd", "house.imd", "oak.imd"));
    EXPECT_EQ(decode::readModelFile(program.bytes("out/oak.imd")).info->value("magnify"), "2.000000");
    EXPECT_THAT(logged(), ElementsAre("[1]", "Success", "[2]", "Success", "[3]", "Success"));
    EXPECT_THAT(program.bytes("log.txt"), HasSubstr("# scene: car.ma (root: car)\n"));
}

// Warnings go to the log, and are counted all the same.
TEST_F(Batch, StrictTellsOfWarningsInTheLog) {
    program.write("scenes/long.ma", sceneOf(nodeText("transform", kLongName)));
    const std::string lines = "scene \"long.ma\"\nscene \"house.ma\"\n";
    EXPECT_EQ(batch(lines).status, 0);
    EXPECT_EQ(batch(lines, {"--strict"}).status, 2);
    EXPECT_THAT(logged(),
                ElementsAre("[1]", "Warning: Length of name over 16 characters: node: " + kLongName, "[2]", "Success"));
}

TEST_F(Batch, ItIsTheSameAsSingleExports) {
    ASSERT_EQ(batch("scene \"house.ma\"\nscene \"car.ma\"\n").status, 0);
    for (const char* name : {"house", "car"}) {
        ASSERT_EQ(program.run({std::string("scenes/") + name + ".ma", "-o", name, "--settings", "settings/model.z3es"})
                      .status,
                  0);
        EXPECT_EQ(withoutMaker(program.bytes(std::string(name) + ".imd")),
                  withoutMaker(program.bytes(std::string("out/") + name + ".imd")));
    }
}

// --- places and languages

TEST_F(Batch, PlacesInAReadOnlyFolderAreToldBeforeAnyExport) {
    namespace fs = std::filesystem;
    fs::create_directories(program.path("sealed"));
    fs::permissions(program.path("sealed"),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    FinishedProgram::Surroundings surroundings;
    surroundings.asNobody = true;
    const std::pair<const char*, const char*> cases[] = {
        {"log \"sealed/log.txt\"", "Error: Can't open file: sealed/log.txt"},
        {"output_folder \"sealed/out\"", "Error: \"output_folder\" is wrong: sealed/out"}};
    for (const auto& [line, error] : cases) {
        program.write("list.z3be", std::string("# TVK_Batch_Export\n") + line + "\n");
        const ProgramRun run = program.run({"--batch", "list.z3be"}, surroundings);
        EXPECT_EQ(run.status, 1) << line;
        ASSERT_FALSE(run.errorLines().empty()) << line;
        EXPECT_EQ(run.errorLines().front(), error);
    }
}

// Katakana "so", whose second byte in Shift_JIS is that of a backslash, a decimal comma, and a Windows editor.
TEST_F(Batch, ListsOfEveryCountryAreExported) {
    const std::string so = "\xE3\x82\xBD";
    std::filesystem::create_directories(program.path(so));
    program.write(so + "/" + so + ".v2.ma", sceneOf(nodeText("transform", "a", "", set3("t", 0.25, 0, 0))));
    program.write("settings/" + so + ".z3es", "\xEF\xBB\xBF# TVK_Export settings\r\nmagnify=\"1.5\"\r\n"
                                              "output_imd=\"on\"\r\n");
    program.write("list.z3be", "\xEF\xBB\xBF# TVK_Batch_Export\r\nlog \"" + so + ".txt\"\r\ninput_folder \"" + so +
                                   "\"\r\noutput_folder \"out\"\r\nz3es_folder \"settings\"\r\nz3es \"" + so +
                                   ".z3es\"\r\nscene \"" + so + ".v2.ma\"\r\nscene \"" + so +
                                   ".v2.ma\" -root \"gone\"");
    FinishedProgram::Surroundings there;
    there.environment = {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}};
    const ProgramRun run = program.run({"--batch", "list.z3be"}, there);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), testing::Contains("Error: Node is not found: gone").Times(1));
    EXPECT_THAT(program.names("out"), ElementsAre(so + ".v2.imd")) << "what was exported remains";
    const decode::ModelFile model = decode::readModelFile(program.bytes("out/" + so + ".v2.imd"));
    EXPECT_EQ(model.info->value("magnify"), "1.500000");
    EXPECT_EQ(model.node("a").translate.x, 0.375);
    EXPECT_THAT(program.bytes(so + ".txt"), HasSubstr("# output: " + so + ".v2.imd\n\nSuccess\n"));
}

// --- checks of names

TEST_F(Batch, LongNamesAreListedWithTheirPlaces) {
    program.write("scene.ma", sceneOf(nodeText("transform", "top") + nodeText("transform", kLongName, "top") +
                                      nodeText("transform", kLongName + "8")));
    const ProgramRun run = program.run({"--check", "scene.ma"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "|" + kLongName + "8\t" + kLongName + "8\n|top|" + kLongName + "\t" + kLongName + "\n");
    EXPECT_THAT(run.errorLines(), IsEmpty());
    EXPECT_EQ(program.run({"--check", "scene.ma", "--strict"}).status, 2);
    const ProgramRun selection = program.run({"--check", "scene.ma", "--select", "top", "-q"});
    EXPECT_EQ(selection.out, "|top|" + kLongName + "\t" + kLongName + "\n");
    const ProgramRun nothing = program.run({"--check", "scene.ma", "--target", "selection"});
    EXPECT_EQ(nothing.status, 0);
    EXPECT_EQ(nothing.out, "");
    EXPECT_THAT(nothing.errorLines(), ElementsAre("Warning: No effective node"));
    EXPECT_THAT(program.names(), ElementsAre("scene.ma", "scenes", "settings"));
}

TEST_F(Batch, ACleanSceneIsCheckedInSilence) {
    const ProgramRun run = program.run({"scenes/house.ma", "--check", "--strict"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.error, "");
}

// --- the Material Workbench

TEST_F(Batch, TheWorkbenchIsStartedOnWhatWasWritten) {
    program.write("TVK_MTWB_Starter.exe", "#!/bin/sh\nprintf '%s\\n' \"$@\" > started.txt\n");
    std::filesystem::permissions(program.path("TVK_MTWB_Starter.exe"), std::filesystem::perms::owner_all);
    FinishedProgram::Surroundings surroundings;
    surroundings.environment["TVK_MTWB_ROOT"] = program.path();
    const ProgramRun run =
        program.run({"scenes/house.ma", "-o", "my house", "--kinds", "imd,ica", "--set", "use_mtworkbench=1", "--set",
                     "merge_imd_flag=1", "--set", "merge_imd_path=old.imd"},
                    surroundings);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errorLines(), IsEmpty());
    EXPECT_EQ(program.bytes("started.txt"), "-name\n" + program.path("my house") + "\n-imd\n-ica\n-merge\nold.imd\n");
}

// It waits as long as it takes. Somebody loses patience and ends the starter: the files stand, and a word is said.
TEST_F(Batch, AStarterThatNeverReturnsIsWaitedForUntilItIsEnded) {
    program.write("TVK_MTWB_Starter.exe", "#!/bin/sh\necho $$ >pid.new\nmv pid.new pid\nexec sleep 600\n");
    std::filesystem::permissions(program.path("TVK_MTWB_Starter.exe"), std::filesystem::perms::owner_all);
    FinishedProgram::Surroundings surroundings;
    surroundings.environment["TVK_MTWB_ROOT"] = program.path();
    auto exporting = std::async(std::launch::async, [&] {
        return program.run({"scenes/house.ma", "-o", "house", "--set", "use_mtworkbench=1"}, surroundings);
    });
    for (int i = 0; i < 1000 && !std::filesystem::exists(program.path("pid")); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_EQ(exporting.wait_for(std::chrono::seconds(1)), std::future_status::timeout);
    EXPECT_THAT(program.bytes("house.imd"), HasSubstr("</imd>"));
    kill(static_cast<pid_t>(std::stoi(program.bytes("pid"))), SIGTERM);
    const ProgramRun run = exporting.get();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errorLines().back(), "Error: Failed to start Material Workbench");
}

} // namespace
} // namespace tvk
