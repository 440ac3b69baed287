#pragma once

#include "host/api/SharedLibrary.h"

// The host is no plug-in: it needs the class only. NOLINTBEGIN(readability-identifier-naming): the API's own names
#define MNoPluginEntry
#define MNoVersionString
// NOLINTEND(readability-identifier-naming)
#include <maya/MFnPlugin.h>

#include <string>
#include <utility>
#include <vector>

namespace host {

struct CommandEntry {
    std::string name;
    MCreatorFunction create = nullptr;
    MCreateSyntaxFunction createSyntax = nullptr; // may be null
};

struct TranslatorEntry {
    std::string name; // of the file type
    std::string pixmap, optionsScript, defaultOptions;
    MCreatorFunction create = nullptr;
    bool requiresFullMel = false;
};

/// One loaded plug-in: its library, what it said of itself, and what it registered.
class Plugin {
public:
    explicit Plugin(SharedLibrary loaded) : library(std::move(loaded)) {}

    SharedLibrary library;
    std::string name; // file name without the system's suffix
    std::string path; // absolute, with '/'
    std::string vendor = "Unknown", version = "Unknown", apiVersion;
    std::vector<CommandEntry> commands;
    std::vector<TranslatorEntry> translators;
    bool initialising = false; // what it says of itself counts now
    int uses = 0;              // entry points, commands and translators that run
};

} // namespace host
