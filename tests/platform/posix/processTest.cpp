#include "platform/process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

namespace tvk {
namespace {

TEST(PosixProcess, AProgramThatIsNotThereGivesTheShellsCode) {
    const ProcessResult result = runProcess("/tvk/no/such/program 2>/dev/null", ProcessWindow::kNormal);
    EXPECT_EQ(result.outcome, ProcessOutcome::kRan);
    EXPECT_EQ(result.exitCode, 127);
}

TEST(PosixProcess, AProgramThatASignalEnded) {
    const ProcessResult result = runProcess("kill -KILL $$", ProcessWindow::kNormal);
    EXPECT_EQ(result.outcome, ProcessOutcome::kRan);
    EXPECT_EQ(result.exitCode, 128 + SIGKILL);
}

TEST(PosixProcess, AnotherFormOfCommandLinesIsPassedToTheShellWhole) {
    EXPECT_EQ(runProcess("test \"a  b\" = 'a  b' && exit 7", ProcessWindow::kNormal).exitCode, 7);
}

TEST(PosixProcess, ACommandLineThatIsTooLongDoesNotStart) {
    const ProcessResult result = runProcess(std::string(size_t{64} << 20, 'x'), ProcessWindow::kNormal);
    EXPECT_EQ(result.outcome, ProcessOutcome::kNotStarted);
    EXPECT_EQ(result.exitCode, 1);
}

TEST(PosixProcess, WhenTheSystemReapsChildrenItselfTheExitCodeIsLost) {
    const auto previous = std::signal(SIGCHLD, SIG_IGN);
    const ProcessResult result = runProcess("exit 0", ProcessWindow::kNormal);
    std::signal(SIGCHLD, previous);
    EXPECT_EQ(result.outcome, ProcessOutcome::kExitCodeLost);
    EXPECT_EQ(result.exitCode, 1);
}

} // namespace
} // namespace tvk
