#pragma once

#include "host/api/Host.h"

#include <optional>
#include <string>

namespace host::app {

/// The exporter's name as a file type.
inline constexpr const char* kExporterType = "KALDERA_ZEPHRA_System";

/// Path of the exporter: the library that the user named, else that of TVK_PLUGIN, else tvk_export beside the program
/// or in ../plug-ins; "" when there is none.
std::string findExporter(const std::string& named);

/// Loads it. "" on success, else one line without "Error:".
std::string loadExporter(Host& host, const std::string& path);

// What the loaded exporter tells beside its commands. Other exporters of the same file type need not know of it.

/// Whether an option of that key has a meaning, as far as the exporter tells its keys.
bool isKnownOption(Host& host, const std::string& key);

/// The options that a settings file stands for; nothing when it is none that the exporter can read.
std::optional<std::string> settingsOptions(Host& host, const std::string& path);

/// Whether the last export was warned of, or some export of the last batch, wherever the warnings went.
bool exportWasWarned(Host& host);

} // namespace host::app
