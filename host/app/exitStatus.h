#pragma once

namespace host::app {

/// What the program ends with.
enum ExitStatus : int {
    kDone = 0,             // exported, warnings or not
    kFailed = 1,           // the export, or a script, failed
    kDoneWithWarnings = 2, // with --strict: exported, but with warnings
    kWrongUsage = 64,      // the command line cannot be understood
};

} // namespace host::app
