#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

#include <string>

namespace host::app {

// The scenes of a batch list as processes of their own, which write what the batch would. The whole list is read
// before anything is exported, so a line that cannot be followed ends everything. Both return an ExitStatus; what went
// wrong has been printed then.

/// Prints one command for a POSIX shell per scene, with all that it needs in it.
int printJobs(Host& host, Console& console, const CommandLine& commandLine);

/// Runs the scenes, as many at once as the command line says, those that write the same files one after the other. The
/// log and standard error have them in the order of the list. A scene that fails keeps no other one from being
/// exported.
int runJobs(Host& host, Console& console, const CommandLine& commandLine);

/// The word as a POSIX shell reads it back.
std::string shellQuoted(const std::string& word);

} // namespace host::app
