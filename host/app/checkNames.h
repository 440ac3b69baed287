#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

namespace host::app {

/// Opens the scene, has the exporter check its names, and prints each that is too long on a line of its own: where it
/// comes from, a tab, the name. Returns an ExitStatus; what went wrong has been printed then. With --strict, names that
/// are too long count as warnings.
int checkNames(Host& host, Console& console, const CommandLine& commandLine);

} // namespace host::app
