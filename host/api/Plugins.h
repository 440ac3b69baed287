#pragma once

#include "host/api/Plugin.h"
#include "host/mel/CommandTable.h"
#include "host/scene/Scene.h"

#include <maya/MStatus.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class Host;

/// What loading and unloading can say: success, or one line without "Error:" that names the plug-in.
struct [[nodiscard]] PluginResult {
    std::string name; // of the plug-in; "" when it failed
    std::string error;
    bool wasLoaded = false; // load: it was there already and stays as it is
    bool ok() const { return error.empty(); }
};

/// The loaded plug-ins and what they registered.
class Plugins {
public:
    explicit Plugins(Host& host) : host_(host) {}

    /// Loads a library by path, or by bare name (with or without the system's suffix) from MAYA_PLUG_IN_PATH, and runs
    /// its initializePlugin. One whose initializePlugin fails, or throws, is unloaded again with what it had
    /// registered.
    PluginResult load(const std::string& nameOrPath);
    /// Runs uninitializePlugin and frees the library. Refused while an entry point, a command or a translator of it
    /// runs, and when uninitializePlugin fails. What the plug-in forgot to deregister is removed.
    PluginResult unload(const std::string& nameOrPath);

    /// By name or path; null when it is not loaded.
    Plugin* find(const std::string& nameOrPath) const;
    /// In the order of loading.
    const std::vector<std::unique_ptr<Plugin>>& loaded() const { return plugins_; }

    // --- what plug-ins register. kFailure for names that are empty or taken (or, commands, no MEL identifiers), null
    // creators, names in refusedNames, and for deregistering what this plug-in has not registered.
    MStatus registerCommand(Plugin& plugin, const CommandEntry& entry);
    MStatus deregisterCommand(Plugin& plugin, const std::string& name);
    MStatus registerTranslator(Plugin& plugin, const TranslatorEntry& entry);
    MStatus deregisterTranslator(Plugin& plugin, const std::string& name);
    /// In the order of registration.
    std::vector<const TranslatorEntry*> translators() const;
    /// By the name of the file type; null when there is none.
    const TranslatorEntry* findTranslator(std::string_view name) const;
    Plugin* ownerOf(const TranslatorEntry& entry) const;

    /// Commands and translators that this host refuses, at registration and deregistration. A plug-in must cope with a
    /// host that does, and only so can it be shown that it does.
    std::vector<std::string> refusedNames;

private:
    PluginResult initialise(std::unique_ptr<Plugin> plugin);
    void removeRegistrations(const Plugin& plugin);
    bool isRefused(const std::string& name) const;

    Host& host_;
    std::vector<std::unique_ptr<Plugin>> plugins_;
};

} // namespace host
