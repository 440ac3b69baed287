#include "platform/process.h"

#include "TemporaryFolder.h"
#include "platform/fileSystem.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

// The shell's own words in each system's command lines.
std::string shellLine(const std::string& words) {
    return kPathSeparator == '\\' ? "cmd /c " + words : words;
}

TEST(Process, TheExitCodeIsThePrograms) {
    for (const int code : {0, 1, 3, 255}) {
        const ProcessResult result = runProcess(shellLine("exit " + std::to_string(code)), ProcessWindow::kHidden);
        EXPECT_EQ(result.outcome, ProcessOutcome::kRan);
        EXPECT_EQ(result.exitCode, code);
    }
}

TEST(Process, ReturnsAfterTheProgramHasEnded) {
    const TemporaryFolder folder;
    const std::string path = folder.path("done");
    const ProcessResult result = runProcess(shellLine("echo done> \"" + path + "\""), ProcessWindow::kNormal);
    EXPECT_EQ(result.outcome, ProcessOutcome::kRan);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(fileExists(path));
}

TEST(Process, CommandLinesInUtf8Work) {
    const TemporaryFolder folder;
    const std::string path = folder.path("\xE3\x82\xBD\xC3\xBC");
    EXPECT_EQ(runProcess(shellLine("echo done> \"" + path + "\""), ProcessWindow::kHidden).exitCode, 0);
    EXPECT_TRUE(fileExists(path));
}

TEST(Process, QuotedArgumentsArriveAsTheyAre) {
    const TemporaryFolder folder;
    for (const char* argument : {"plain", "two  words", "a;b", "\xE3\x82\xBD"}) {
        const std::string path = folder.path(argument);
        EXPECT_EQ(runProcess(shellLine("echo done> " + quotedArgument(path)), ProcessWindow::kHidden).exitCode, 0);
        EXPECT_TRUE(fileExists(path)) << argument;
    }
    EXPECT_EQ(quotedArgument("a b"), "\"a b\"");
}

} // namespace
} // namespace tvk
