#include "host/app/exportScene.h"

#include "host/api/melText.h"
#include "host/app/exitStatus.h"
#include "host/app/exporterPlugin.h"
#include "host/app/outputFiles.h"
#include "host/app/prepareHost.h"

#include <filesystem>
#include <system_error>

namespace host::app {

namespace fs = std::filesystem;

namespace {

/// A scene may come with a selection of its own.
bool selectNodes(Host& host, Console& console, const std::vector<std::string>& nodes) {
    if (!runMel(host, console, "select -cl")) {
        return false;
    }
    for (const std::string& node : nodes) {
        if (!runMel(host, console, "select -add " + melString(node))) {
            return false;
        }
    }
    return true;
}

std::string exportCommand(const CommandLine& commandLine, const std::string& base) {
    return std::string("file -f ") + (commandLine.nodes.empty() ? "-ea" : "-es") + " -typ " + melString(kExporterType) +
           " -op " + melString(optionString(commandLine)) + " " + melString(base);
}

/// The base without the ending of a kind, which users may write as well.
std::string withoutKind(const std::string& base) {
    for (const OutputKind& kind : kOutputKinds) {
        const std::string end = std::string(".") + kind.ending;
        if (base.size() > end.size() && base.compare(base.size() - end.size(), end.size(), end) == 0) {
            return base.substr(0, base.size() - end.size());
        }
    }
    return base;
}

/// Relative to the current folder when the file is in it or below.
std::string shownPath(const std::string& path) {
    std::error_code error;
    const fs::path relative = fs::u8path(path).lexically_relative(fs::current_path(error));
    const bool isBelow = !relative.empty() && *relative.begin() != "..";
    return isBelow ? relative.generic_u8string() : path;
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
    if (!prepareHost(host, console, commandLine) || !selectNodes(host, console, commandLine.nodes)) {
        return kFailed;
    }
    const OutputFiles files(base);
    const bool isExported = runMel(host, console, exportCommand(commandLine, base)).has_value();
    for (const WrittenFile& file : files.written()) {
        console.info("Written: " + shownPath(file.path) + " (" + std::to_string(file.lengthBytes) + " bytes)");
    }
    if (!isExported) {
        return kFailed;
    }
    return commandLine.strict && console.warnings() != 0 ? kDoneWithWarnings : kDone;
}

} // namespace host::app
