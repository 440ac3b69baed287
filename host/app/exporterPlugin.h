#pragma once

#include "host/api/Host.h"

#include <string>

namespace host::app {

/// The exporter's name as a file type.
inline constexpr const char* kExporterType = "KALDERA_ZEPHRA_System";

/// Path of the exporter: the library that the user named, else that of TVK_PLUGIN, else tvk_export beside the program or
/// in ../plug-ins; "" when there is none.
std::string findExporter(const std::string& named);

/// Loads it. "" on success, else one line without "Error:".
std::string loadExporter(Host& host, const std::string& path);

} // namespace host::app
