// Lists of scenes shared among processes, and as commands for the tools of a render farm.

#include "FinishedProgram.h"
#include "guidePages.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <regex>
#include <thread>
#include <unistd.h>

namespace tvk {
namespace {

namespace fs = std::filesystem;

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A blank, both quotes, a semicolon, and Katakana "so", whose second byte in Shift_JIS is that of a backslash.
const std::string kHardName = "it's; $(a) \xE3\x82\xBD";
const std::string kStart = "# TVK_Batch_Export\nlog \"log.txt\"\ninput_folder \"scenes\"\noutput_folder \"out\"\n"
                           "z3es_folder \"settings\"\nz3es \"model.z3es\"\n";

class BatchJobs : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(program.path("scenes"));
        fs::create_directories(program.path("settings"));
        for (const std::string& name : {std::string("house"), std::string("tree"), kHardName}) {
            program.write("scenes/" + name + ".ma",
                          sceneOf(nodeText("transform", "hat") + nodeText("transform", "hips")));
        }
        program.write("settings/model.z3es", "# TVK_Export settings\noutput_imd=\"on\"\nmagnify=\"2\"\n");
    }

    ProgramRun batch(const std::string& lines, std::vector<std::string> options = {}) {
        program.write("list.z3be", kStart + lines);
        options.insert(options.begin(), {"--batch", "list.z3be"});
        return program.run(options);
    }

    // The files of a folder without what tells when and by whom they were made.
    std::map<std::string, std::string> files(const std::string& folder) const {
        std::map<std::string, std::string> bytes;
        for (const std::string& name : program.names(folder)) {
            bytes[name] = withoutMaker(program.bytes(folder + "/" + name));
        }
        return bytes;
    }

    // They are moved away, so that the next run has to write its own.
    std::map<std::string, std::string> takeFiles(const std::string& folder) const {
        auto taken = files(folder);
        fs::remove_all(program.path(folder));
        return taken;
    }

    std::string takeLog() const {
        const std::string log = std::regex_replace(program.bytes("log.txt"), std::regex("# date: .*\n"), "");
        fs::remove(program.path("log.txt"));
        return log;
    }

    // The status of a shell that works in an empty folder, far from where the list was read.
    int shell(const std::string& command) const {
        fs::create_directories(program.path("elsewhere"));
        const int status = std::system(("cd '" + program.path("elsewhere") + "' && " + command).c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    FinishedProgram program;
};

TEST_F(BatchJobs, AListThatIsMissingIsTold) {
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{"--print-jobs"}, std::vector<std::string>{"--jobs", "2"}}) {
        std::vector<std::string> arguments = {"--batch", "none.z3be"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProgramRun run = program.run(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.errorLines(), Contains("Error: Can't open file: none.z3be"));
    }
}

TEST_F(BatchJobs, ALineThatCannotBeFollowedEndsItBeforeAnyExport) {
    const std::string lines = "scene \"house.ma\"\nz3es_folder \"gone\"\nscene \"tree.ma\"\n";
    const ProgramRun printed = batch(lines, {"--print-jobs"});
    EXPECT_EQ(printed.status, 1);
    EXPECT_EQ(printed.out, "");
    EXPECT_FALSE(fs::exists(program.path("log.txt"))) << "nothing runs that could be logged";
    const ProgramRun run = batch(lines, {"--jobs", "2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines().front(), "Error: \"z3es_folder\" is wrong: gone");
    EXPECT_THAT(program.names("out"), IsEmpty());
}

TEST_F(BatchJobs, AProjectThatIsNoFolderIsTold) {
    const ProgramRun run = program.run({"scenes/house.ma", "--project", "gone"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), ElementsAre("Error: the project is no folder: gone"));
    EXPECT_THAT(program.names(), ElementsAre("scenes", "settings"));
}

TEST_F(BatchJobs, ASceneThatFailsKeepsNoOtherFromBeingExported) {
    program.write("scenes/broken.ma", "//Maya ASCII 2020 scene\ncreateNode {\n");
    const ProgramRun run =
        batch("scene \"house.ma\"\nscene \"broken.ma\"\nscene \"gone.ma\"\nscene \"tree.ma\"\n", {"--jobs", "2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), Contains("Error: the scene does not exist: " + program.path("scenes/gone.ma")));
    EXPECT_THAT(run.error, testing::Not(HasSubstr("Batch Export is finished")));
    EXPECT_THAT(program.names("out"), ElementsAre("house.imd", "tree.imd"));
    const std::string log = program.bytes("log.txt");
    EXPECT_THAT(log, HasSubstr("# output: house.imd\n\nSuccess\n\n[2] "));
    EXPECT_THAT(log, HasSubstr("# output: broken.imd\n\n[3] "));
    EXPECT_THAT(log, HasSubstr("# output: gone.imd\n\n[4] "));
    EXPECT_THAT(program.names(), ElementsAre("list.z3be", "log.txt", "out", "scenes", "settings"));
}

TEST_F(BatchJobs, AFullDiskIsLoggedForItsSceneAlone) {
    fs::create_directories(program.path("out"));
    fs::create_symlink("/dev/full", program.path("out/house.imd"));
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"tree.ma\"\n", {"--jobs", "2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(program.bytes("log.txt"),
                HasSubstr("\nError: Can't write file: " + program.path("out/house.imd") + "\n\n[2] "));
    EXPECT_THAT(program.names("out"), ElementsAre("house.imd", "tree.imd"));
}

TEST_F(BatchJobs, ALogOnAFullDiskIsToldAndEveryFileWritten) {
    fs::create_symlink("/dev/full", program.path("log.txt"));
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"tree.ma\"\n", {"--jobs", "2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), Contains("Error: the log cannot be written: log.txt").Times(2));
    EXPECT_THAT(program.names("out"), ElementsAre("house.imd", "tree.imd"));
    EXPECT_THAT(program.names(), ElementsAre("list.z3be", "log.txt", "out", "scenes", "settings"));
}

TEST_F(BatchJobs, StrictTellsOfWarningsInTheLog) {
    program.write("scenes/long.ma", sceneOf(nodeText("transform", "a2345678901234567")));
    const std::string lines = "scene \"long.ma\"\nscene \"house.ma\"\n";
    EXPECT_EQ(batch(lines, {"--jobs", "2"}).status, 0);
    EXPECT_EQ(batch(lines, {"--jobs", "2", "--strict"}).status, 2);
    EXPECT_THAT(program.bytes("log.txt"), HasSubstr("\nWarning: Length of name over 16 characters: node: "));
}

// Log, messages and files, with more processes than scenes as well; the last scene writes over the first one's file.
TEST_F(BatchJobs, ProcessesWriteWhatOneWrites) {
    const std::string lines = "scene \"house.ma\"\nscene \"tree.ma\" -name \"" + kHardName +
                              "\" -root \" hips ,, \"\nscene \"" + kHardName + ".ma\" -name \"house\" -root \"hat\"\n";
    const ProgramRun serial = batch(lines);
    ASSERT_EQ(serial.status, 0) << serial.error;
    const auto expected = takeFiles("out");
    const std::string log = takeLog();
    ASSERT_EQ(expected.size(), 2U);
    for (const char* jobs : {"1", "2", "7"}) {
        const ProgramRun run = batch(lines, {"--jobs", jobs});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.error, serial.error);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(takeFiles("out"), expected) << jobs;
        EXPECT_EQ(takeLog(), log) << jobs;
    }
}

TEST_F(BatchJobs, PrintedCommandsTellOfScenesThatWriteTheSame) {
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"tree.ma\" -name \"house\"\n", {"--print-jobs"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errorLines(),
                ElementsAre("Warning: several scenes write the same files: " + program.path("out/house")));
}

TEST_F(BatchJobs, PrintedCommandsSurviveTheShell) {
    const std::string lines = "scene \"house.ma\" -root \"hips, hat\"\nscene \"" + kHardName + ".ma\" -root \"hat\"\n";
    ASSERT_EQ(batch(lines).status, 0);
    const auto expected = takeFiles("out");
    const std::string log = program.bytes("log.txt");
    const ProgramRun printed = batch(lines, {"--print-jobs"});
    ASSERT_EQ(printed.status, 0) << printed.error;
    EXPECT_EQ(std::count(printed.out.begin(), printed.out.end(), '\n'), 2);
    EXPECT_EQ(program.bytes("log.txt"), log) << "a log of an earlier run stays";
    program.write("commands.sh", printed.out);
    EXPECT_EQ(shell("sh -e ../commands.sh >../said.txt"), 0);
    EXPECT_EQ(takeFiles("out"), expected);
    EXPECT_THAT(program.names("elsewhere"), IsEmpty());
}

// A list of the samples, with their own project, and animation of all kinds.
class SampleJobs : public BatchJobs {
protected:
    void SetUp() override {
        BatchJobs::SetUp();
        std::string settings = "# TVK_Export settings\n";
        for (const char* kind : {"imd", "ica", "ima", "itp", "iva", "ita"}) {
            settings += std::string("output_") + kind + "=\"on\"\n";
        }
        program.write("settings/all.z3es", settings);
        program.write("samples.z3be", "# TVK_Batch_Export\nlog \"log.txt\"\ninput_folder \"" TVK_SAMPLES "\"\n"
                                      "output_folder \"out\"\nz3es_folder \"settings\"\nz3es \"all.z3es\"\n"
                                      "scene \"materials.ma\"\nscene \"walk.ma\"\nscene \"character.ma\"\n"
                                      "z3es \"model.z3es\"\nscene \"walk.ma\" -name \"model only\"\n");
        const ProgramRun run = program.run({"--batch", "samples.z3be"});
        ASSERT_EQ(run.status, 0) << run.error;
        expected = takeFiles("out");
        log = takeLog();
        ASSERT_GE(expected.size(), 10U);
    }

    void printCommands() {
        const ProgramRun run = program.run({"--batch", "samples.z3be", "--print-jobs"});
        ASSERT_EQ(run.status, 0) << run.error;
        program.write("commands.sh", run.out);
    }

    std::map<std::string, std::string> expected;
    std::string log;
};

TEST_F(SampleJobs, TwoProcessesWriteWhatOneWrites) {
    EXPECT_EQ(program.run({"--batch", "samples.z3be", "--jobs", "2"}).status, 0);
    EXPECT_EQ(takeFiles("out"), expected);
    EXPECT_EQ(takeLog(), log);
}

TEST_F(SampleJobs, AShellWritesWhatTheBatchWrites) {
    ASSERT_NO_FATAL_FAILURE(printCommands());
    EXPECT_EQ(shell("sh -e ../commands.sh >../said.txt"), 0);
    EXPECT_EQ(takeFiles("out"), expected);
}

// The samples name their images from their project on.
TEST_F(SampleJobs, TheProjectOfTheListWinsOverThatOfTheMachine) {
    FinishedProgram::Surroundings elsewhere;
    elsewhere.environment["MAYA_PROJECT"] = program.path("scenes");
    EXPECT_EQ(program.run({"--batch", "samples.z3be", "--jobs", "2"}, elsewhere).status, 0);
    EXPECT_EQ(takeFiles("out"), expected);
    EXPECT_EQ(program.run({TVK_SAMPLES "/materials.ma", "-o", "materials"}, elsewhere).status, 1)
        << "the images are found without a project";
}

TEST_F(SampleJobs, GnuParallelWritesWhatTheBatchWrites) {
    ASSERT_EQ(shell("parallel --version 2>/dev/null | grep -q '^GNU parallel'"), 0)
        << "GNU parallel is not installed (Debian: apt-get install parallel)";
    ASSERT_NO_FATAL_FAILURE(printCommands());
    EXPECT_EQ(shell("HOME=.. parallel -j 2 <../commands.sh >../said.txt 2>&1"), 0) << program.bytes("said.txt");
    EXPECT_EQ(takeFiles("out"), expected);
}

// The script of the guide, as each task of an array job runs it.
TEST_F(SampleJobs, TheArrayJobOfTheGuideWritesWhatTheBatchWrites) {
    ASSERT_NO_FATAL_FAILURE(printCommands());
    program.write("farm.sh", guideBlock("farm.md", "#!/bin/sh\n"));
    ASSERT_EQ(shell("cp ../commands.sh commands.txt"), 0);
    for (const char* task : {"3", "1", "4", "2"}) {
        EXPECT_EQ(shell(std::string("SLURM_ARRAY_TASK_ID=") + task + " sh ../farm.sh >../said.txt 2>&1"), 0);
    }
    EXPECT_EQ(takeFiles("out"), expected);
    program.write("out", "a file where the folder of the files was");
    EXPECT_EQ(shell("SLURM_ARRAY_TASK_ID=1 sh ../farm.sh >../said.txt 2>&1"), 1) << "a task that fails says so";
}

// An export into a pipe waits for somebody to read it, so it is under way for as long as the test wants.
TEST_F(BatchJobs, WhatEndsTheProgramEndsItsProcesses) {
    ASSERT_EQ(shell("mkdir ../out && mkfifo ../out/house.imd"), 0);
    program.write("list.z3be", kStart + "scene \"house.ma\"\n");
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGINT, SIG_DFL); // shells have what they start behind themselves ignore it
        unsetenv("TVK_PLUGIN");
        alarm(60);
        if (chdir(program.path().c_str()) == 0) {
            execl(TVK_PROGRAM, TVK_PROGRAM, "--batch", "list.z3be", "--jobs", "2", static_cast<char*>(nullptr));
        }
        _exit(127);
    }
    ASSERT_GT(child, 0);
    const std::string isRunning = "grep -lsx 'PPid:[[:space:]]*" + std::to_string(child) +
                                  "' /proc/[0-9]*/status >../children.txt; test -s ../children.txt";
    const auto waitFor = [&](const std::string& command) {
        int status = 1;
        for (int i = 0; i < 200 && status != 0; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            status = shell(command);
        }
        return status;
    };
    EXPECT_EQ(waitFor(isRunning), 0) << "no process was started";
    std::string grandchild = program.bytes("children.txt"); // "/proc/123/status"
    grandchild.erase(std::min(grandchild.find('\n'), grandchild.size()));
    ASSERT_NE(grandchild, "");
    kill(child, SIGINT);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
    EXPECT_EQ(waitFor("! grep -qs '^State:.[^Z]' " + grandchild), 0);
}

} // namespace
} // namespace tvk
