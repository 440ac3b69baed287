#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

#include <optional>
#include <string>
#include <vector>

namespace host::app {

// Each is false when it failed, which has been told then.

/// Loads the exporter, which scripts may lack.
[[nodiscard]] bool loadExporter(Host& host, Console& console, const CommandLine& commandLine);

/// Opens the scene, if one was named, within its project: the nearest folder around it that has a "workspace.mel",
/// unless --project or else $MAYA_PROJECT names another.
[[nodiscard]] bool openScene(Host& host, Console& console, const CommandLine& commandLine);

/// Selects these nodes and no others; a scene may come with a selection of its own.
[[nodiscard]] bool selectNodes(Host& host, Console& console, const std::vector<std::string>& nodes);

/// Runs MEL whose failure is told once: in the words of whoever failed, or else in MEL's. Nothing when it failed.
std::optional<mel::Value> runMel(Host& host, Console& console, const std::string& script);

} // namespace host::app
