// Thirty exports of samples and real scenes, shared in every way that the guide to farms shows: the same bytes each
// time. Commands and job script are those of the guide.

#include "FinishedProgram.h"
#include "guidePages.h"
#include "runShell.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>

namespace tvk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFiles = 49; // that the list stands for: 26 models, and 23 animations of 7 of its scenes

class ThirtyScenes : public testing::Test {
protected:
    void SetUp() override {
        fs::copy_file(TVK_BATCH_DATA "/thirty.z3be", program.path("list.z3be"));
        fs::create_directory_symlink(TVK_BATCH_DATA "/settings", program.path("settings"));
        fs::create_directory_symlink(TVK_SAMPLES, program.path("samples"));
        fs::create_directory_symlink(TVK_SCENES, program.path("scenes"));
        const ProgramRun run = program.run({"--batch", "list.z3be"});
        ASSERT_EQ(run.status, 0) << run.error;
        ASSERT_EQ(run.errorLines().back(), "Batch Export is finished. Total 30 scenes.");
        expected = takeFiles();
        ASSERT_EQ(expected.size(), kFiles);
    }

    /// The written files without what tells when and by whom they were made; they are removed.
    std::map<std::string, std::string> takeFiles() const {
        std::map<std::string, std::string> taken;
        for (const std::string& name : program.names("out")) {
            taken[name] = withoutMaker(program.bytes("out/" + name));
        }
        fs::remove_all(program.path("out"));
        return taken;
    }

    ShellRun shell(const std::string& lines) const { return runShell(program.path(), lines); }

    FinishedProgram program;
    std::map<std::string, std::string> expected;
};

TEST_F(ThirtyScenes, TwoProcessesWriteWhatOneWrites) {
    const std::string log = program.bytes("log.txt");
    EXPECT_EQ(program.run({"--batch", "list.z3be", "--jobs", "2"}).status, 0);
    EXPECT_EQ(takeFiles(), expected);
    const auto withoutDate = [](std::string text) {
        const std::size_t date = text.find("# date: ");
        return text.erase(date, text.find('\n', date) - date);
    };
    EXPECT_EQ(withoutDate(program.bytes("log.txt")), withoutDate(log));
}

TEST_F(ThirtyScenes, GnuParallelWritesWhatTheBatchWrites) {
    ASSERT_EQ(shell("parallel --version | grep '^GNU parallel'").status, 0)
        << "GNU parallel is not installed (Debian: apt-get install parallel)";
    const ShellRun run = shell(guideCommands("farm.md", "parallel").front());
    EXPECT_EQ(run.status, 0) << run.said;
    EXPECT_EQ(takeFiles(), expected);
}

TEST_F(ThirtyScenes, SlurmWritesWhatTheBatchWrites) {
    const std::string print = guideCommands("farm.md", "> commands.txt").front();
    const std::string submit = guideCommands("farm.md", "sbatch --array").front();
    const std::string withSlurm = "SBATCH_WAIT=1 '" TVK_ONE_NODE_SLURM "' \"$PWD/slurm\" sh -c ";
    program.write("farm.sh", guideBlock("farm.md", "#!/bin/sh\n"));
    const ShellRun run = shell(print + "\n" + withSlurm + "'" + submit + "'");
    ASSERT_EQ(run.status, 0) << run.said; // one line of it says why, when no Slurm could be started
    EXPECT_EQ(takeFiles(), expected);
    EXPECT_THAT(program.bytes("farm-30.txt"), testing::HasSubstr("Written: "));

    // Slurm hands on that a scene failed.
    program.write("out", "a file where the folder of the files was");
    const ShellRun failing =
        shell("sed -n 30p commands.txt >one\nmv one commands.txt\nrm -r slurm\n" + withSlurm + "'" + submit + "'");
    EXPECT_EQ(failing.status, 1) << failing.said;
}

} // namespace
} // namespace tvk
