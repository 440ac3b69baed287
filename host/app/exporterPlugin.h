#pragma once

#include "host/app/Console.h"

#include <optional>
#include <string>
#include <vector>

namespace host::app {

/// The exporter's name as a file type.
inline constexpr const char* kExporterType = "KALDERA_ZEPHRA_System";

/// Path of the exporter: the library that the user named, else that of TVK_PLUGIN, else tvk_export beside the program;
/// "" when there is none.
std::string findExporter(const std::string& named);

/// Loads it. "" on success, else one line without "Error:".
std::string loadExporter(Host& host, const std::string& path);

// What the loaded exporter tells beside its commands. Other exporters of the same file type need not know of it.

/// Whether an option of that key has a meaning, as far as the exporter tells its keys.
bool isKnownOption(Host& host, const std::string& key);

/// The options that a settings file stands for; nothing when it is none that the exporter can read.
std::optional<std::string> settingsOptions(Host& host, const std::string& path);

/// A scene of a batch list, for a process of its own to export. Paths are absolute.
struct BatchJob {
    std::string project, scene, settings;
    std::string output;      // base path
    std::string roots;       // nodes, between commas; "" for the whole scene
    std::string title, head; // what stands before the scene's messages on standard error and in the log
};

struct BatchPlan {
    std::string log; // "" for none
    std::string end; // what to say when all went well
    std::vector<BatchJob> jobs;
};

/// What a batch list asks for. Its output folders are made, and its log is begun if `beginsLog`. Nothing when it cannot
/// be followed, which has been told then.
std::optional<BatchPlan> planBatch(Host& host, Console& console, const std::string& list, bool beginsLog);

/// Whether the last export was warned of, or some export of the last batch, wherever the warnings went.
bool exportWasWarned(Host& host);

} // namespace host::app
