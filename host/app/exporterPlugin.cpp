#include "host/app/exporterPlugin.h"

#include "host/api/SharedLibrary.h"
#include "host/app/process.h"
#include "host/mel/environment.h"

#include <filesystem>
#include <system_error>

namespace host::app {

namespace {

/// A function of the loaded exporter; null when it has none of that name.
template <typename Function>
Function exporterFunction(Host& host, const char* name) {
    const TranslatorEntry* const entry = host.plugins().findTranslator(kExporterType);
    const Plugin* const plugin = entry != nullptr ? host.plugins().ownerOf(*entry) : nullptr;
    return plugin != nullptr ? reinterpret_cast<Function>(plugin->library.find(name)) : nullptr;
}

} // namespace

std::string findExporter(const std::string& named) {
    const std::string chosen = environmentValue("TVK_PLUGIN").value_or("");
    if (!named.empty() || !chosen.empty()) {
        return named.empty() ? chosen : named;
    }
    std::string path = programFolder() + "tvk_export" + std::string(SharedLibrary::suffix());
    std::error_code error;
    return std::filesystem::is_regular_file(std::filesystem::u8path(path), error) ? path : "";
}

std::string loadExporter(Host& host, const std::string& path) {
    if (path.empty()) {
        return "the exporter tvk_export" + std::string(SharedLibrary::suffix()) + " is not beside the program";
    }
    // A bare name means a file here, as everywhere on a command line, not one on the search path.
    std::error_code error;
    const std::string file = std::filesystem::absolute(std::filesystem::u8path(path), error).generic_u8string();
    return host.plugins().load(file).error;
}

bool isKnownOption(Host& host, const std::string& key) {
    const auto keys = exporterFunction<const char* (*)()>(host, "tvkOptionKeys");
    return keys == nullptr || (std::string(";") + keys()).find(";" + key + ";") != std::string::npos;
}

std::optional<std::string> settingsOptions(Host& host, const std::string& path) {
    const auto read = exporterFunction<const char* (*)(const char*)>(host, "tvkSettingsOptions");
    const char* const options = read != nullptr ? read(path.c_str()) : nullptr;
    return options != nullptr ? std::optional<std::string>(options) : std::nullopt;
}

std::optional<BatchPlan> planBatch(Host& host, Console& console, const std::string& list, bool beginsLog) {
    const auto read = exporterFunction<int (*)(const char*, int)>(host, "tvkReadBatch");
    const auto text = exporterFunction<const char* (*)(int, const char*)>(host, "tvkBatchText");
    if (read == nullptr || text == nullptr) {
        console.error("the exporter does not tell what a list asks for");
        return std::nullopt;
    }
    const int count = read(list.c_str(), beginsLog ? 1 : 0);
    if (count < 0) {
        return std::nullopt;
    }
    BatchPlan plan = {text(0, "log"), text(0, "end"), {}};
    for (int i = 0; i < count; ++i) {
        plan.jobs.push_back({text(i, "project"), text(i, "scene"), text(i, "settings"), text(i, "output"),
                             text(i, "roots"), text(i, "title"), text(i, "head")});
    }
    return plan;
}

bool exportWasWarned(Host& host) {
    const auto wasWarned = exporterFunction<int (*)()>(host, "tvkWarningRaised");
    return wasWarned != nullptr && wasWarned() != 0;
}

} // namespace host::app
