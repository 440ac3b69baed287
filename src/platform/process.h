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
//   commandLine  UTF-8; Windows: program and arguments as CreateProcess takes them; elsewhere a line for /bin/sh
// On POSIX a program that the shell cannot find ran with exit code 127, and one that a signal ended has 128 + signal.
[[nodiscard]] ProcessResult runProcess(const std::string& commandLine, ProcessWindow window);

} // namespace tvk
