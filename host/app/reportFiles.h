#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"
#include "host/app/outputFiles.h"

#include <string>
#include <vector>

namespace host::app {

/// Tells what the files that stand under a base path cost the console: --report-of. Returns an ExitStatus; what went
/// wrong has been printed then.
int reportFiles(Host& host, Console& console, const CommandLine& commandLine);

/// The same of what an export wrote, and of nothing else that stands there: --report and --report-json. True when
/// neither was asked for; false when it failed, which has been told then. A limit that is passed is a warning.
///   base   path of the files without ending
[[nodiscard]] bool reportExport(Console& console, const CommandLine& commandLine, const std::string& base,
                                const std::vector<WrittenFile>& written);

} // namespace host::app
