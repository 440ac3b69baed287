#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"
#include "host/app/outputFiles.h"

#include <string>
#include <vector>

namespace host::app {

/// Reads what an export wrote back and holds it against the open scene, as far as the command line asks for it: prints
/// a table of what was compared, and an error for each difference that the formats do not excuse. False when there was
/// one.
///   base   of the written files
bool proveExport(Console& console, const CommandLine& commandLine, const std::string& base,
                 const std::vector<WrittenFile>& written);

} // namespace host::app
