#include "export/exportSettings.h"

#include "export/LimitedLines.h"
#include "export/quotedValue.h"
#include "export/settingsTable.h"
#include "platform/fileSystem.h"
#include "scene/hostCompatibility.h"

#include <algorithm>
#include <fstream>
#include <istream>
#include <string_view>

namespace tvk {
namespace {

constexpr std::string_view kHeader = "# TVK_Export settings";
constexpr std::string_view kOn = "on";

using Values = std::array<std::string, kSettingRows.size()>;

bool beginsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

void storeWord(const SettingRow& row, std::string_view word, std::string& value) {
    const auto* const found = std::find(row.words.begin(), row.words.end(), word);
    if (!word.empty() && found != row.words.end()) {
        value = static_cast<char>('0' + (found - row.words.begin()));
    }
}

void storeSetting(const SettingRow& row, std::string_view text, std::string& value, ExportSettings& settings) {
    switch (row.type) {
    case SettingType::kText:
        value = text;
        break;
    case SettingType::kSwitch:
        value = text == kOn ? "1" : "0";
        break;
    case SettingType::kWords:
        storeWord(row, text, value);
        break;
    }
    if (row.output) {
        settings.outputs[static_cast<std::size_t>(*row.output)] = text == kOn;
    }
}

void readSetting(std::string_view line, Values& values, ExportSettings& settings) {
    const std::size_t equals = line.find('=');
    if (line.empty() || line.front() == '#' || equals == std::string_view::npos) {
        return;
    }
    const std::string_view key = line.substr(0, equals);
    const auto* const row = std::find_if(kSettingRows.begin(), kSettingRows.end(),
                                         [key](const SettingRow& candidate) { return candidate.key == key; });
    if (row != kSettingRows.end()) {
        std::string_view rest = line.substr(equals + 1);
        storeSetting(*row, takeQuotedValue(rest), values.at(static_cast<std::size_t>(row - kSettingRows.begin())),
                     settings);
    }
}

} // namespace

bool parseExportSettings(std::istream& in, ExportSettings& settings) {
    settings.outputs.fill(false);
    LimitedLines lines(in);
    std::string line;
    if (!lines.next(line) || !beginsWith(line, kHeader)) {
        return false;
    }
    Values values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = kSettingRows[i].defaultText;
    }
    while (lines.next(line)) {
        readSetting(line, values, settings);
    }
    settings.optionString.clear();
    for (std::size_t i = 0; i < values.size(); ++i) {
        settings.optionString.append(kSettingRows[i].optionKey).append("=").append(values[i]).append(";");
    }
    return true;
}

MStatus readExportSettings(MString& optionString, bool outputFlags[6], const MString& path) {
    ExportSettings settings;
    std::fill_n(outputFlags, settings.outputs.size(), false);
    const std::string file = textOf(path);
    std::ifstream in;
    if (fileExists(file)) {
        in.open(systemPath(file));
    }
    if (!in.is_open() || !parseExportSettings(in, settings)) {
        return MS::kFailure;
    }
    std::copy(settings.outputs.begin(), settings.outputs.end(), outputFlags);
    optionString = hostText(settings.optionString);
    return MS::kSuccess;
}

} // namespace tvk
