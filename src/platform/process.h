#pragma once

#include <string>

namespace tvk {

enum class ProcessWindow { kNormal, kHidden }; // how a new program's window starts; means something on Windows only

enum class ProcessOutcome {
    kRan,          // it started and ended; the exit code is its own
    kNotStarted,   // the system refused to start it
    kExitCodeLost, // it started, but how it ended cannot be read
};

struct ProcessResult {
    ProcessOutcome outcome = ProcessOutcome::kNotStarted;
    int exitCode = 1; // 1 unless kRan
};

// Starts a command line, waits without limit until it ends, and says how it ended. Writes nothing itself.
//   commandLine  UTF-8; Windows: program and arguments as CreateProcess takes them, or kShellPrefix and a line as one
//                would type it; elsewhere a line for /bin/sh
// On POSIX a program that the shell cannot find ran with exit code 127, and one that a signal ended has 128 + signal.
[[nodiscard]] ProcessResult runProcess(const std::string& commandLine, ProcessWindow window);

// An argument of such a line, in double quotes. Elsewhere than on Windows, what the shell would read in it is escaped;
// Windows has no way to escape for `cmd`, and its file names hold no double quotes.
std::string quotedArgument(const std::string& argument);

// What stands before a program that a line starts: "cmd /c " on Windows, so that its files may be scripts; elsewhere
// the line is the shell's already.
extern const char* const kShellPrefix;

} // namespace tvk
