#pragma once

#include <string>

namespace tvk {

/// What a shell did with some lines.
struct ShellRun {
    int status =
        -1; // of the last line, or of the line that failed; 124 when it took too long; -1 when a signal ended it
    std::string said; // standard output and standard error, in order
};

/// Runs lines of a POSIX shell in a folder, up to the first that fails. The built tvkexport is on its PATH and uses its
/// own exporter, as with users. All that the lines started ends with the time limit.
ShellRun runShell(const std::string& folder, const std::string& lines, int limitSeconds = 240);

} // namespace tvk
