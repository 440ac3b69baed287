#pragma once

#include "host/api/Host.h"

#include <string>

namespace host::app {

/// The exporter's name as a file type.
inline constexpr const char* kExporterType = "KALDERA_ZEPHRA_System";

/// Loads the exporter: the library that the user named, else that of TVK_PLUGIN, else tvk_export beside the program or
/// in
/// ../plug-ins. "" on success, else one line without "Error:".
std::string loadExporter(Host& host, const std::string& plugin);

} // namespace host::app
