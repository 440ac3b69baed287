#include "host/api/fileExport.h"

#include "host/api/Host.h"
#include "host/api/filePaths.h"
#include "host/api/pluginCalls.h"

#include <maya/MFileObject.h>
#include <maya/MPxFileTranslator.h>

#include <memory>
#include <optional>
#include <utility>

namespace host {

namespace {

ExportOutcome failure(std::string text) {
    return {"", std::move(text)};
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// A translator object for one use, deleted where plug-in code may run.
using Translator = std::unique_ptr<MPxFileTranslator>;

Translator makeTranslator(const TranslatorEntry& entry) {
    return Translator(static_cast<MPxFileTranslator*>(entry.create()));
}

std::string extensionOf(const MPxFileTranslator& translator) {
    return translator.defaultExtension().asChar();
}

/// The first file type whose extension the path has.
const TranslatorEntry* findByExtension(Host& host, const std::string& path) {
    for (const TranslatorEntry* entry : host.plugins().translators()) {
        bool fits = false;
        const auto thrown = runPluginCode(host, *host.plugins().ownerOf(*entry), [&] {
            const Translator translator = makeTranslator(*entry);
            fits = translator && !extensionOf(*translator).empty() && endsWith(path, "." + extensionOf(*translator));
        });
        if (!thrown && fits) {
            return entry;
        }
    }
    return nullptr;
}

/// Marks the host as writing a file, and brings the state before back: exports may start exports.
class Writing {
public:
    Writing(Host& host, MPxFileTranslator::FileAccessMode mode, std::string path)
        : host_(host), mode_(host.fileAccessMode), path_(host.exportPath) {
        host.fileAccessMode = mode;
        host.exportPath = std::move(path);
    }
    ~Writing() {
        host_.fileAccessMode = mode_;
        host_.exportPath = std::move(path_);
    }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

private:
    Host& host_;
    MPxFileTranslator::FileAccessMode mode_;
    std::string path_;
};

/// The path written, or why not.
ExportOutcome write(Host& host, MPxFileTranslator& translator, const TranslatorEntry& entry,
                    const ExportRequest& request) {
    if (!translator.haveWriteMethod()) {
        return failure("Files of type " + entry.name + " cannot be written");
    }
    const std::string path = exportPath(request.path, extensionOf(translator), request.defaultExtensions);
    const auto mode =
        request.selectionOnly ? MPxFileTranslator::kExportActiveAccessMode : MPxFileTranslator::kExportAccessMode;
    MFileObject file;
    file.setRawFullName(path.c_str());
    const Writing writing(host, mode, path);
    const std::string& options = request.hasOptions ? request.options : entry.defaultOptions;
    const MStatus status = translator.writer(file, options.c_str(), mode);
    return status == MStatus::kSuccess ? ExportOutcome{path, ""}
                                       : failure("Writing " + path + " failed (type " + entry.name + ")");
}

} // namespace

std::string exportPath(const std::string& path, const std::string& extension, bool defaultExtensions) {
    const std::string absolute = absolutePath(path);
    const std::string end = "." + extension;
    const bool append = defaultExtensions && !extension.empty() && !endsWith(splitPath(absolute).name, end);
    return append ? absolute + end : absolute;
}

ExportOutcome exportFile(Host& host, const ExportRequest& request) {
    if (splitPath(request.path).name.empty()) {
        return failure("No file name: " + request.path);
    }
    if (request.selectionOnly && host.scene().selection().empty()) {
        return failure("Nothing is selected");
    }
    const TranslatorEntry* entry =
        request.type.empty() ? findByExtension(host, request.path) : host.plugins().findTranslator(request.type);
    if (entry == nullptr) {
        return failure(request.type.empty() ? "No file type for " + request.path
                                            : "Unknown file type: " + request.type);
    }
    const TranslatorEntry used = *entry; // the plug-in may register others while it runs
    ExportOutcome outcome;
    const auto thrown = runPluginCode(host, *host.plugins().ownerOf(used), [&] {
        const Translator translator = makeTranslator(used);
        outcome = translator ? write(host, *translator, used, request)
                             : failure("No translator was made for type " + used.name);
    });
    return thrown ? failure(*thrown) : outcome;
}

} // namespace host
