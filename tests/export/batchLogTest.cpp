#include "export/batchLog.h"

#include "EnvironmentVariable.h"
#include "ExportSession.h"
#include "FreshRun.h"
#include "sceneText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BatchRun : public testing::Test {
protected:
    void SetUp() override { session.open(nodeText("transform", "a")); }

    MStatus run(const std::string& options = "") {
        return session.exportAll("batch_flag=1;batch_log_path=" + log + ";" + options);
    }

    ExportSession session;
    std::string log = session.folder.path("log.txt");
};

// --- refusals

TEST_F(BatchRun, ALogThatCannotBeOpenedEndsTheRun) {
    log = session.folder.path("missing/log.txt");
    EXPECT_FALSE(run());
    EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + log + "\n");
    EXPECT_FALSE(session.hasFile("model.imd"));
    EXPECT_THAT(session.infos, IsEmpty());
    EXPECT_THAT(session.progress, IsEmpty());
}

TEST_F(BatchRun, ALogOnAFullDiskIsReportedAndTheFilesStand) {
    std::filesystem::create_symlink("/dev/full", log);
    EXPECT_TRUE(run());
    EXPECT_EQ(session.takeMessages(), "Error: Can't write file: " + log + "\n");
    EXPECT_THAT(session.model().names(), ElementsAre("a"));
}

TEST_F(BatchRun, AFailedRunLogsItsErrorWithoutSuccess) {
    session.open("");
    EXPECT_FALSE(run());
    EXPECT_EQ(session.fileText("log.txt"), "Error: No effective node\n\n");
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BatchRun, OptionsThatAreRefusedAreLogged) {
    EXPECT_FALSE(run("imd_file_out=0"));
    EXPECT_EQ(session.fileText("log.txt"), "Error: No output file\n\n");
}

// --- what is logged

TEST_F(BatchRun, ACleanRunLogsSuccess) {
    EXPECT_TRUE(run());
    EXPECT_EQ(session.fileText("log.txt"), "Success\n\n");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_THAT(session.infos, IsEmpty()); // header, summary and time are for people
    EXPECT_THAT(session.progress, ElementsAre("Getting Data ...", "Making ... imd"));
}

TEST_F(BatchRun, AWarningTakesTheSuccessAway) {
    session.open(nodeText("transform", "world_root") + nodeText("transform", "b"));
    EXPECT_TRUE(run());
    EXPECT_EQ(session.fileText("log.txt"), "Warning: Node name changed: world_root -> world_root_1\n\n");
}

TEST_F(BatchRun, EachRunIsAppended) {
    EXPECT_TRUE(run());
    EXPECT_FALSE(run("imd_file_out=0"));
    EXPECT_TRUE(run());
    EXPECT_EQ(session.fileText("log.txt"), "Success\n\nError: No output file\n\nSuccess\n\n");
}

TEST_F(BatchRun, MessagesGoToStandardErrorAgainAfterwards) {
    EXPECT_TRUE(run());
    EXPECT_EQ(tvk::run().messages, &std::cerr);
    EXPECT_FALSE(session.exportAll("imd_file_out=0"));
    EXPECT_EQ(session.takeMessages(), "Error: No output file\n\n");
}

// --- the log of a run's own

TEST(DefaultBatchLog, LiesInTheFolderForTemporaryFiles) {
    {
        const EnvironmentVariable temp("TEMP", "/some/where");
        EXPECT_EQ(defaultBatchLogPath(), "/some/where/maya50_batch_log.txt");
    }
    const EnvironmentVariable temp("TEMP", nullptr);
    const EnvironmentVariable folder("TMPDIR", "/else/where");
    EXPECT_EQ(defaultBatchLogPath(), "/else/where/maya50_batch_log.txt");
    const EnvironmentVariable none("TMPDIR", nullptr);
    EXPECT_EQ(defaultBatchLogPath(), "/tmp/maya50_batch_log.txt");
}

TEST_F(BatchRun, TheDefaultLogIsDeletedAfterASuccess) {
    const EnvironmentVariable temp("TEMP", session.folder.path().c_str());
    log.clear();
    EXPECT_TRUE(run());
    EXPECT_TRUE(session.hasFile("model.imd"));
    EXPECT_FALSE(session.hasFile("maya50_batch_log.txt"));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BatchRun, TheDefaultLogIsDeletedAfterAFailureToo) {
    const EnvironmentVariable temp("TEMP", session.folder.path().c_str());
    log.clear();
    EXPECT_FALSE(run("imd_file_out=0"));
    EXPECT_FALSE(session.hasFile("maya50_batch_log.txt"));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(BatchRun, ADefaultLogThatCannotBeOpenedIsNamed) {
    const EnvironmentVariable temp("TEMP", session.folder.path("missing").c_str());
    log.clear();
    EXPECT_FALSE(run());
    EXPECT_EQ(session.takeMessages(),
              "Error: Can't open file: " + session.folder.path("missing/maya50_batch_log.txt") + "\n");
}

// --- the class itself

TEST(BatchLog, ThatIsNotFinishedEndsLikeThatOfAFailedRun) {
    const TemporaryFolder folder;
    const FreshRun fresh;
    run().options.batchLogPath = folder.path("log.txt");
    {
        BatchLog log;
        ASSERT_TRUE(log.open());
        *run().messages << "Error: x\n";
    }
    EXPECT_EQ(run().messages, &std::cerr);
    std::ifstream in(folder.path("log.txt"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "Error: x\n\n");
}

} // namespace
} // namespace tvk
