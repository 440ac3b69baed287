#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

namespace host::app {

/// Opens the scene, exports it through the exporter's file type, and tells what was written. Returns an ExitStatus;
/// what went wrong has been printed then.
int exportScene(Host& host, Console& console, const CommandLine& commandLine);

} // namespace host::app
