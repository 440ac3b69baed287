#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

namespace host::app {

/// Opens the scene, if one was named, and runs the script, then the command. Returns an ExitStatus, or what the MEL
/// command `quit -exitCode` asked for; what went wrong has been printed then.
int runScripts(Host& host, Console& console, const CommandLine& commandLine);

} // namespace host::app
