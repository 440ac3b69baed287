#include "host/app/reportFiles.h"

#include "host/app/exitStatus.h"
#include "host/app/report/ExportedFiles.h"
#include "host/app/report/makeReport.h"
#include "host/app/report/reportJson.h"
#include "host/app/report/reportText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace host::app {

namespace fs = std::filesystem;

namespace {

bool writeJson(Console& console, const std::string& path, const std::string& json) {
    std::ofstream stream(fs::u8path(path), std::ios::binary);
    stream << json;
    stream.close();
    if (!stream) {
        console.error("the report cannot be written: " + path);
        return false;
    }
    console.info("Written: " + path + " (" + std::to_string(json.size()) + " bytes)");
    return true;
}

bool tellReport(Console& console, const CommandLine& commandLine, const std::string& base,
                const std::vector<std::string>& kinds) {
    report::Report report;
    try {
        report = report::makeReport(report::readExportedFiles(base, shownPath(base), kinds));
    } catch (const report::ReportError& error) {
        console.error(error.what());
        return false;
    }
    const std::string& json = commandLine.reportJson;
    const bool isWritten = json.empty() || writeJson(console, json, report::reportJson(report));
    if (commandLine.reports || !commandLine.reportOf.empty()) {
        const std::string text = report::reportText(report);
        console.info(text.substr(0, text.size() - 1));
    }
    for (const std::string& warning : report::limitWarnings(report)) {
        console.warning(warning);
    }
    return isWritten;
}

} // namespace

int reportFiles(Host&, Console& console, const CommandLine& commandLine) {
    std::vector<std::string> kinds;
    std::transform(std::begin(kOutputKinds), std::end(kOutputKinds), std::back_inserter(kinds),
                   [](const OutputKind& kind) { return kind.ending; });
    if (!tellReport(console, commandLine, withoutKind(commandLine.reportOf), kinds)) {
        return kFailed;
    }
    return commandLine.strict && console.warnings() != 0 ? kDoneWithWarnings : kDone;
}

bool reportExport(Console& console, const CommandLine& commandLine, const std::string& base,
                  const std::vector<WrittenFile>& written) {
    if (!commandLine.reports && commandLine.reportJson.empty()) {
        return true;
    }
    std::vector<std::string> kinds;
    std::transform(written.begin(), written.end(), std::back_inserter(kinds),
                   [](const WrittenFile& file) { return file.path.substr(file.path.rfind('.') + 1); });
    return tellReport(console, commandLine, base, kinds);
}

} // namespace host::app
