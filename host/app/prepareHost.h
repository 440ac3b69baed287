#pragma once

#include "host/app/Console.h"
#include "host/app/commandLine.h"

#include <optional>
#include <string>

namespace host::app {

/// Loads the exporter, which scripts may lack, and opens the scene, if one was named, within its project: the nearest
/// folder around it that has a "workspace.mel", unless $MAYA_PROJECT names another. False when one of them failed,
/// which has been told then.
[[nodiscard]] bool prepareHost(Host& host, Console& console, const CommandLine& commandLine);

/// Runs MEL whose failure is told once: in the words of whoever failed, or else in MEL's. Nothing when it failed.
std::optional<mel::Value> runMel(Host& host, Console& console, const std::string& script);

} // namespace host::app
