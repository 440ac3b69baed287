#include "host/api/Plugins.h"

#include "host/api/Host.h"
#include "host/api/filePaths.h"
#include "host/api/pluginCalls.h"
#include "host/mel/filePath.h"

#include <maya/MTypes.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace host {

namespace {

bool isFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(filePath(path), error);
}

bool endsWithSuffix(const std::string& path) {
    const std::string_view suffix = SharedLibrary::suffix();
    return path.size() > suffix.size() && path.compare(path.size() - suffix.size(), suffix.size(), suffix) == 0;
}

std::string pluginName(const std::string& path) {
    const std::string file = splitPath(path).name;
    return endsWithSuffix(file) ? file.substr(0, file.size() - SharedLibrary::suffix().size()) : file;
}

/// The file as given, then with the system's suffix.
std::optional<std::string> findFile(const std::string& path) {
    for (const std::string& candidate : {path, path + std::string(SharedLibrary::suffix())}) {
        if (isFile(candidate)) {
            return candidate;
        }
    }
    return std::nullopt;
}

std::optional<std::string> findLibrary(const std::string& nameOrPath) {
    if (!splitPath(nameOrPath).folder.empty()) {
        return findFile(absolutePath(nameOrPath));
    }
    for (const std::string& folder : searchPath("MAYA_PLUG_IN_PATH")) {
        if (auto found = findFile(absolutePath(folder + nameOrPath))) {
            return found;
        }
    }
    return std::nullopt;
}

/// Classes have the layout of the headers that a plug-in was compiled with, so only an equal version will do.
std::optional<std::string> checkApiVersion(const SharedLibrary& library, std::string& version) {
    const char* built = static_cast<const char*>(library.find("MApiVersion"));
    if (built == nullptr) {
        return "it is no plug-in: it has no MApiVersion";
    }
    version = built;
    const std::string own = std::to_string(MAYA_API_VERSION);
    return version == own ? std::nullopt
                          : std::optional("it was built for API version " + version + ", this host has " + own);
}

PluginResult failure(const std::string& name, const std::string& reason) {
    PluginResult result;
    result.error = "Plug-in, \"" + name + "\", " + reason;
    return result;
}

template <class Entries>
auto findEntry(Entries& entries, std::string_view name) {
    return std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.name == name; });
}

} // namespace

PluginResult Plugins::load(const std::string& nameOrPath) {
    if (const Plugin* loaded = find(nameOrPath)) {
        PluginResult result;
        result.name = loaded->name;
        result.wasLoaded = true;
        return result;
    }
    const auto path = findLibrary(nameOrPath);
    if (!path) {
        return failure(nameOrPath,
                       "was not found" +
                           std::string(splitPath(nameOrPath).folder.empty() ? " on MAYA_PLUG_IN_PATH" : ""));
    }
    if (find(*path) != nullptr || find(pluginName(*path)) != nullptr) {
        return load(pluginName(*path));
    }
    std::string reason;
    auto plugin = std::make_unique<Plugin>(SharedLibrary::load(*path, reason));
    if (!plugin->library) {
        return failure(nameOrPath, "cannot be loaded: " + reason);
    }
    plugin->path = *path;
    plugin->name = pluginName(*path);
    return initialise(std::move(plugin));
}

PluginResult Plugins::initialise(std::unique_ptr<Plugin> owned) {
    Plugin& plugin = *owned;
    plugins_.push_back(std::move(owned));
    plugin.initialising = true;
    auto error = checkApiVersion(plugin.library, plugin.apiVersion);
    if (!error) {
        error = callEntryPoint(host_, plugin, "initializePlugin");
    }
    plugin.initialising = false;
    if (error) {
        PluginResult result = failure(plugin.name, "cannot be loaded: " + *error);
        removeRegistrations(plugin);
        plugins_.erase(
            std::find_if(plugins_.begin(), plugins_.end(), [&](const auto& p) { return p.get() == &plugin; }));
        return result;
    }
    PluginResult result;
    result.name = plugin.name;
    return result;
}

PluginResult Plugins::unload(const std::string& nameOrPath) {
    Plugin* plugin = find(nameOrPath);
    if (plugin == nullptr) {
        return failure(nameOrPath, "is not loaded");
    }
    if (plugin->uses > 0) {
        return failure(plugin->name, "cannot be unloaded while it runs");
    }
    if (const auto error = callEntryPoint(host_, *plugin, "uninitializePlugin")) {
        return failure(plugin->name, "cannot be unloaded: " + *error);
    }
    PluginResult result;
    result.name = plugin->name;
    removeRegistrations(*plugin);
    plugins_.erase(std::find_if(plugins_.begin(), plugins_.end(), [&](const auto& p) { return p.get() == plugin; }));
    return result;
}

Plugin* Plugins::find(const std::string& nameOrPath) const {
    const bool isPath = !splitPath(nameOrPath).folder.empty();
    const std::string wanted = isPath ? absolutePath(nameOrPath) : pluginName(nameOrPath);
    const auto found = std::find_if(plugins_.begin(), plugins_.end(), [&](const auto& plugin) {
        return isPath ? plugin->path == wanted || plugin->path == wanted + std::string(SharedLibrary::suffix())
                      : plugin->name == wanted;
    });
    return found == plugins_.end() ? nullptr : found->get();
}

MStatus Plugins::registerCommand(Plugin& plugin, const CommandEntry& entry) {
    if (entry.name.empty() || entry.create == nullptr || isRefused(entry.name)) {
        return MStatus::kFailure;
    }
    const auto run = [this, &plugin, entry](mel::Interpreter&, const mel::Invocation& invocation) {
        return runPluginCommand(host_, plugin, entry, invocation);
    };
    if (!host_.interpreter().commands().add(entry.name, run)) {
        return MStatus::kFailure;
    }
    plugin.commands.push_back(entry);
    return MStatus::kSuccess;
}

MStatus Plugins::deregisterCommand(Plugin& plugin, const std::string& name) {
    const auto entry = findEntry(plugin.commands, name);
    if (entry == plugin.commands.end() || isRefused(name)) {
        return MStatus::kFailure;
    }
    host_.interpreter().commands().remove(name);
    plugin.commands.erase(entry);
    return MStatus::kSuccess;
}

MStatus Plugins::registerTranslator(Plugin& plugin, const TranslatorEntry& entry) {
    const bool isTaken = findTranslator(entry.name) != nullptr;
    if (entry.name.empty() || entry.create == nullptr || isTaken || isRefused(entry.name)) {
        return MStatus::kFailure;
    }
    plugin.translators.push_back(entry);
    return MStatus::kSuccess;
}

MStatus Plugins::deregisterTranslator(Plugin& plugin, const std::string& name) {
    const auto entry = findEntry(plugin.translators, name);
    if (entry == plugin.translators.end() || isRefused(name)) {
        return MStatus::kFailure;
    }
    plugin.translators.erase(entry);
    return MStatus::kSuccess;
}

std::vector<const TranslatorEntry*> Plugins::translators() const {
    std::vector<const TranslatorEntry*> all;
    for (const auto& plugin : plugins_) {
        for (const TranslatorEntry& entry : plugin->translators) {
            all.push_back(&entry);
        }
    }
    return all;
}

const TranslatorEntry* Plugins::findTranslator(std::string_view name) const {
    for (const TranslatorEntry* entry : translators()) {
        if (entry->name == name) {
            return entry;
        }
    }
    return nullptr;
}

Plugin* Plugins::ownerOf(const TranslatorEntry& entry) const {
    for (const auto& plugin : plugins_) {
        if (findEntry(plugin->translators, entry.name) != plugin->translators.end()) {
            return plugin.get();
        }
    }
    return nullptr;
}

void Plugins::removeRegistrations(const Plugin& plugin) {
    for (const CommandEntry& entry : plugin.commands) {
        host_.interpreter().commands().remove(entry.name);
    }
}

bool Plugins::isRefused(const std::string& name) const {
    return std::find(refusedNames.begin(), refusedNames.end(), name) != refusedNames.end();
}

} // namespace host
