#include "export/workbenchLaunch.h"

#include "EnvironmentVariable.h"
#include "ExportSession.h"
#include "platform/fileSystem.h"
#include "sceneText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <future>
#include <string>
#include <thread>

namespace tvk {
namespace {

using testing::EndsWith;

const char* const kVariable = "TVK_MTWB_ROOT";

class WorkbenchLaunch : public testing::Test {
protected:
    void SetUp() override { session.open(nodeText("transform", "a")); }

    // A starter that writes each of its arguments on a line of "arguments", then does what it is told.
    void putStarter(const std::string& then = "", bool executable = true) const {
        const std::filesystem::path path = starter();
        std::ofstream(path) << "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > \""
                            << session.folder.path("arguments") << "\"\n"
                            << then << "\n";
        if (executable) {
            std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        }
    }

    std::string starter() const { return session.folder.path("TVK_MTWB_Starter.exe"); }
    std::string arguments() const { return session.fileText("arguments"); }

    // A successful export with the launch asked for.
    void exportAndStart(const std::string& options = "") {
        const EnvironmentVariable root(kVariable, session.folder.path().c_str());
        EXPECT_TRUE(session.exportAll("use_mtworkbench=1;" + options));
        EXPECT_TRUE(session.hasFile("model.imd"));
    }

    ExportSession session;
};

// --- what can go wrong: the export stands, and its warning flag is up

TEST_F(WorkbenchLaunch, WithoutTheVariableThereIsNone) {
    const EnvironmentVariable root(kVariable, nullptr);
    EXPECT_TRUE(session.exportAll("use_mtworkbench=1"));
    EXPECT_EQ(session.takeMessages(),
              "Error: Material Workbench is not found (environment variable does not exist)\n\n");
    EXPECT_TRUE(run().warningRaised && session.hasFile("model.imd"));
    EXPECT_THAT(session.infos.back(), testing::StartsWith("Finished"));
}

TEST_F(WorkbenchLaunch, WithoutTheStarterThereIsNone) {
    exportAndStart();
    EXPECT_EQ(session.takeMessages(), "Error: Material Workbench is not found (exe file does not exist)\n\n");
    EXPECT_TRUE(run().warningRaised);
    std::filesystem::create_directory(starter());
    exportAndStart();
    EXPECT_EQ(session.takeMessages(), "Error: Material Workbench is not found (exe file does not exist)\n\n");
}

TEST_F(WorkbenchLaunch, AStarterThatFailsIsTold) {
    for (const char* end : {"exit 1", "exit 255", "kill -9 $$"}) {
        putStarter(end);
        exportAndStart();
        EXPECT_EQ(session.takeMessages(), "Error: Failed to start Material Workbench\n\n") << end;
        EXPECT_TRUE(run().warningRaised);
    }
}

TEST_F(WorkbenchLaunch, AStarterThatMayNotRunIsTold) {
    putStarter("", false);
    exportAndStart();
    EXPECT_THAT(session.takeMessages(), EndsWith("Error: Failed to start Material Workbench\n\n"));
    EXPECT_FALSE(session.hasFile("arguments"));
}

TEST_F(WorkbenchLaunch, InABatchItsErrorsGoToTheLog) {
    exportAndStart("batch_flag=1;batch_log_path=" + session.folder.path("log.txt"));
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_EQ(session.fileText("log.txt"), "Error: Material Workbench is not found (exe file does not exist)\n\n");
}

// --- what it is started with

TEST_F(WorkbenchLaunch, GetsThePathThatTheFilesShare) {
    putStarter();
    exportAndStart();
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_EQ(arguments(), "-name\n" + session.folder.path("model") + "\n-imd\n");
}

TEST_F(WorkbenchLaunch, GetsTheKindsInTheirOrderAndTheMergeLast) {
    putStarter();
    exportAndStart("ita_file_out=1;iva_file_out=1;itp_file_out=1;ima_file_out=1;ica_file_out=1;"
                   "merge_imd_flag=1;merge_imd_path=/some where/other.imd");
    EXPECT_EQ(arguments(), "-name\n" + session.folder.path("model") +
                               "\n-imd\n-ica\n-ima\n-itp\n-iva\n-ita\n-merge\n/some where/other.imd\n");
}

TEST_F(WorkbenchLaunch, MergesOnlyWhenAskedTo) {
    putStarter();
    exportAndStart("merge_imd_path=/other.imd");
    EXPECT_THAT(arguments(), EndsWith("\n-imd\n"));
    exportAndStart("merge_imd_flag=1");
    EXPECT_THAT(arguments(), EndsWith("\n-imd\n-merge\n\n")) << "even with an empty path";
}

// The shell that starts it must not read them.
TEST_F(WorkbenchLaunch, NamesArriveAsTheyAre) {
    putStarter();
    const EnvironmentVariable root(kVariable, session.folder.path().c_str());
    for (const char* name :
         {"two  words", "it's", "5$ each", "$(id)", "`id`", "a\"b", "a;b&c|d", "\xE3\x82\xBD", "\x83\x5C"}) {
        ASSERT_TRUE(session.exportTo(session.folder.path(std::string(name) + ".imd"), "use_mtworkbench=1",
                                     MPxFileTranslator::kExportAccessMode));
        EXPECT_EQ(arguments(), "-name\n" + session.folder.path(name) + "\n-imd\n");
    }
}

TEST_F(WorkbenchLaunch, TheCommandLineIsQuoted) {
    session.prepareRun("iva_file_out=1;merge_imd_flag=1;merge_imd_path=C:/m.imd");
    run().options.outputFolder = "C:/out/";
    run().options.baseName = "model";
    const std::string prefix = kPathSeparator == '\\' ? "cmd /c " : "";
    EXPECT_EQ(workbenchCommandLine("C:/tools/start.exe"),
              prefix + "\"C:/tools/start.exe\" -name \"C:/out/model\" -imd -iva -merge \"C:/m.imd\"");
}

// --- waiting

TEST_F(WorkbenchLaunch, TheExportWaitsForTheStarter) {
    const std::string release = session.folder.path("release");
    putStarter("until [ -e \"" + release + "\" ]; do sleep 0.02; done\ntouch \"" + session.folder.path("ended") + "\"");
    auto helper = std::async(std::launch::async, [&] {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!fileExists(session.folder.path("arguments")) && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        std::ofstream(release) << "now";
    });
    exportAndStart();
    EXPECT_TRUE(session.hasFile("ended"));
    helper.get();
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(WorkbenchLaunch, AFailedExportStartsNothing) {
    putStarter();
    session.open("");
    const EnvironmentVariable root(kVariable, session.folder.path().c_str());
    EXPECT_FALSE(session.exportAll("use_mtworkbench=1"));
    EXPECT_FALSE(session.hasFile("arguments"));
}

TEST_F(WorkbenchLaunch, OnlyWhenAskedFor) {
    putStarter();
    const EnvironmentVariable root(kVariable, session.folder.path().c_str());
    EXPECT_TRUE(session.exportAll());
    EXPECT_FALSE(session.hasFile("arguments"));
}

// --- processes

TEST(ExecProcess, GivesTheProgramsExitCode) {
    bool succeeded = true;
    EXPECT_EQ(execProcess(std::string(kShellPrefix) + "exit 7", ProcessWindow::kHidden, succeeded), 7);
    EXPECT_TRUE(succeeded);
}

// A line that no system takes: longer than it allows.
TEST(ExecProcess, ALineThatCannotBeStartedIsTold) {
    const std::string line = "echo " + std::string(4000000, 'x');
    bool succeeded = true;
    testing::internal::CaptureStderr();
    EXPECT_EQ(execProcess(line, ProcessWindow::kHidden, succeeded), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: My exec process create: " + line + "\n");
    EXPECT_FALSE(succeeded);
}

// A host that does not want to hear of its children loses how they ended.
TEST(ExecProcess, AnExitCodeThatIsLostIsTold) {
    const auto handler = std::signal(SIGCHLD, SIG_IGN);
    bool succeeded = true;
    testing::internal::CaptureStderr();
    EXPECT_EQ(execProcess("exit 0", ProcessWindow::kHidden, succeeded), 1);
    std::signal(SIGCHLD, handler);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: My exec process get exit code: exit 0\n");
    EXPECT_FALSE(succeeded);
}

} // namespace
} // namespace tvk
