#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

namespace host::app {

/// Exports the scenes of a list file by the exporter's batch command. Returns an ExitStatus; what went wrong has been
/// printed then. Warnings count also when they went to the list's log.
int runBatch(Host& host, Console& console, const CommandLine& commandLine);

} // namespace host::app
