#include "host/app/proveExport.h"

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/verifyExport.h"

#include <algorithm>
#include <optional>

namespace host::app {
namespace {

std::optional<report::ExportedFiles> readBack(Console& console, const std::string& base,
                                              const std::vector<std::string>& kinds) {
    try {
        return report::readExportedFiles(base, shownPath(base), kinds);
    } catch (const report::ReportError& error) {
        console.error(error.what());
        return std::nullopt;
    }
}

} // namespace

bool proveExport(Console& console, const CommandLine& commandLine, const std::string& base,
                 const std::vector<WrittenFile>& written) {
    if (!commandLine.verifies) {
        return true;
    }
    std::vector<std::string> kinds;
    std::transform(written.begin(), written.end(), std::back_inserter(kinds),
                   [](const WrittenFile& file) { return file.path.substr(file.path.rfind('.') + 1); });
    const std::optional<report::ExportedFiles> files = readBack(console, base, kinds);
    if (!files) {
        return false;
    }
    const verify::Verification result = verify::verifyExport(*files, !commandLine.nodes.empty());
    console.info("Verified: " + shownPath(base) + "\n" + verify::verificationText(result, kinds));
    for (const std::string& finding : result.findings()) {
        console.error(finding);
    }
    if (result.findingCount() > result.findings().size()) {
        console.error("and " + std::to_string(result.findingCount() - result.findings().size()) + " more like these");
    }
    return result.isGood();
}

} // namespace host::app
