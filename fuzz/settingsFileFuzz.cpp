#include "export/exportSettings.h"
#include "export/settingsTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

void demand(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

// Any bytes as a settings file. Whatever stands in it, the option string has every key in its order, and no line feed
// or NUL, which would end it for who reads it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    tvk::ExportSettings settings;
    settings.outputs.fill(true);
    if (!tvk::parseExportSettings(in, settings)) {
        demand(std::none_of(settings.outputs.begin(), settings.outputs.end(), [](bool isOn) { return isOn; }));
        return 0;
    }
    const std::string& options = settings.optionString;
    demand(options.find_first_of(std::string("\n\0\"", 3)) == std::string::npos);
    demand(options.size() < tvk::kSettingRows.size() * 2100);
    std::size_t at = 0;
    for (const tvk::SettingRow& row : tvk::kSettingRows) {
        const std::string key = ";" + std::string(row.optionKey) + "=";
        at = (";" + options).find(key, at);
        demand(at != std::string::npos);
        ++at;
    }
    demand(options.back() == ';');
    return 0;
}
