#include "host/app/showPreview.h"

#include "host/app/exitStatus.h"
#include "host/app/outputFiles.h"
#include "host/app/preview/previewPage.h"
#include "host/app/report/nameText.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace host::app {

namespace fs = std::filesystem;

namespace {

/// The page's path: never that of an exported file.
std::string pagePath(const CommandLine& commandLine, const std::string& base) {
    const std::string path = outputBase(commandLine.output, base + ".html");
    const std::string ending = fs::u8path(path).extension().u8string();
    return ending == ".html" || ending == ".htm" ? path : path + ".html";
}

/// "" on success, else what went wrong.
std::string writeWhole(const std::string& path, const std::string& text) {
    const fs::path target = fs::u8path(path);
    const fs::path part = fs::u8path(path + ".part");
    std::error_code error;
    std::ofstream stream(part, std::ios::binary);
    stream << text;
    stream.close();
    if (stream.good()) {
        fs::rename(part, target, error);
    }
    if (!stream.good() || error) {
        const std::string reason = error ? ": " + error.message() : "";
        fs::remove(part, error);
        return "cannot write " + shownPath(path) + reason;
    }
    return "";
}

} // namespace

int showPreview(Host& /*host*/, Console& console, const CommandLine& commandLine) {
    const std::string base = withoutKind(commandLine.preview);
    std::string page;
    try {
        page = preview::previewPage(base);
    } catch (const decode::ExportedFilesError& error) {
        console.error(report::utf8Message(error));
        return kFailed;
    } catch (const std::runtime_error& error) {
        console.error(error.what());
        return kFailed;
    }
    const std::string path = pagePath(commandLine, base);
    OutputFolder folder(fs::u8path(path).parent_path().generic_u8string() + "/");
    std::string problem = folder.prepare();
    if (problem.empty()) {
        problem = writeWhole(path, page);
    }
    if (!problem.empty()) {
        console.error(problem);
        return kFailed;
    }
    console.info("Written: " + shownPath(path) + " (" + std::to_string(page.size()) + " bytes)");
    return kDone;
}

} // namespace host::app
