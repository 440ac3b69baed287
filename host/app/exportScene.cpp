#include "host/app/exportScene.h"

#include "host/api/melText.h"
#include "host/app/exitStatus.h"
#include "host/app/exporterPlugin.h"
#include "host/app/outputFiles.h"
#include "host/app/prepareHost.h"
#include "host/app/proveExport.h"
#include "host/app/reportFiles.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace host::app {

namespace fs = std::filesystem;

namespace {

std::string exportCommand(const CommandLine& commandLine, const std::string& options, const std::string& base) {
    return std::string("file -f ") + (commandLine.nodes.empty() ? "-ea" : "-es") + " -typ " + melString(kExporterType) +
           " -op " + melString(options) + " " + melString(base);
}

/// All options: of the settings file and over them those of the command line. Nothing when the file cannot be taken,
/// which has been told then. Options that mean nothing to the exporter are told as well.
std::optional<std::string> takeOptions(Host& host, Console& console, const CommandLine& commandLine) {
    std::string options;
    if (!commandLine.settingsFile.empty()) {
        const std::optional<std::string> ofFile = settingsOptions(host, commandLine.settingsFile);
        if (!ofFile) {
            console.error("not a settings file: " + commandLine.settingsFile);
            return std::nullopt;
        }
        options = *ofFile;
    }
    for (const std::string& setting : commandLine.settings) {
        const std::string key = setting.substr(0, setting.find('='));
        if (!isKnownOption(host, key)) {
            console.warning("--set: the exporter has no option '" + key + "'");
        }
    }
    return options + optionString(commandLine);
}

} // namespace

int exportScene(Host& host, Console& console, const CommandLine& commandLine) {
    // Large scenes take their time, so what is wrong with the output is told first.
    const std::string base = withoutKind(outputBase(commandLine.output, commandLine.scene));
    OutputFolder folder(fs::u8path(base).parent_path().generic_u8string() + "/");
    const std::string problem = folder.prepare();
    if (!problem.empty()) {
        console.error(problem);
        return kFailed;
    }
    if (!loadExporter(host, console, commandLine)) {
        return kFailed;
    }
    const std::optional<std::string> options = takeOptions(host, console, commandLine);
    if (!options || !openScene(host, console, commandLine) || !selectNodes(host, console, commandLine.nodes)) {
        return kFailed;
    }
    const OutputFiles files(base);
    const bool isExported = runMel(host, console, exportCommand(commandLine, *options, base)).has_value();
    const std::vector<WrittenFile> written = files.written();
    for (const WrittenFile& file : written) {
        console.info("Written: " + shownPath(file.path) + " (" + std::to_string(file.lengthBytes) + " bytes)");
    }
    const bool isReported = isExported && reportExport(console, commandLine, base, written);
    if (!isReported || !proveExport(console, commandLine, base, written)) {
        return kFailed;
    }
    const bool wasWarned = console.warnings() != 0 || exportWasWarned(host); // warnings may go to a log
    return commandLine.strict && wasWarned ? kDoneWithWarnings : kDone;
}

} // namespace host::app
