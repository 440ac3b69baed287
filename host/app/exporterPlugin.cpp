#include "host/app/exporterPlugin.h"

#include "host/api/SharedLibrary.h"
#include "host/app/process.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace host::app {

namespace {

constexpr const char* kFolders[] = {"", "../plug-ins/"}; // from the program: as built, as installed

} // namespace

std::string findExporter(const std::string& named) {
    const char* chosen = std::getenv("TVK_PLUGIN");
    if (!named.empty() || (chosen != nullptr && *chosen != '\0')) {
        return named.empty() ? chosen : named;
    }
    for (const char* folder : kFolders) {
        std::string path = programFolder() + folder + "tvk_export" + std::string(SharedLibrary::suffix());
        std::error_code error;
        if (std::filesystem::is_regular_file(std::filesystem::u8path(path), error)) {
            return path;
        }
    }
    return "";
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

} // namespace host::app
