#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

namespace host::app {

/// Writes the page that shows exported files, instead of an export. Returns the exit status. A page that cannot be
/// written whole leaves nothing behind, and what stood in its place as it was.
int showPreview(Host& host, Console& console, const CommandLine& commandLine);

} // namespace host::app
