#include "host/app/outputFiles.h"

#include "host/app/process.h"

#include <system_error>
#include <utility>

namespace host::app {

namespace fs = std::filesystem;

namespace {

std::string sceneName(const std::string& scene) {
    return fs::u8path(scene).stem().u8string();
}

std::string pathOf(const std::string& base, const OutputKind& kind) {
    return base + "." + kind.ending;
}

} // namespace

std::string outputBase(const std::string& output, const std::string& scene) {
    std::error_code error;
    const fs::path here = fs::current_path(error);
    if (output.empty()) {
        return (here / fs::u8path(sceneName(scene))).generic_u8string();
    }
    const fs::path path = here / fs::u8path(output);
    const bool isFolder = !path.has_filename() || fs::is_directory(path, error);
    return (isFolder ? path / fs::u8path(sceneName(scene)) : path).generic_u8string();
}

std::string withoutKind(const std::string& base) {
    for (const OutputKind& kind : kOutputKinds) {
        const std::string end = std::string(".") + kind.ending;
        if (base.size() > end.size() && base.compare(base.size() - end.size(), end.size(), end) == 0) {
            return base.substr(0, base.size() - end.size());
        }
    }
    return base;
}

std::string shownPath(const std::string& path) {
    std::error_code error;
    const fs::path relative = fs::u8path(path).lexically_relative(fs::current_path(error));
    const bool isBelow = !relative.empty() && *relative.begin() != "..";
    return isBelow ? relative.generic_u8string() : path;
}

OutputFolder::~OutputFolder() {
    std::error_code error;
    if (made_) {
        fs::remove(fs::u8path(path_), error); // leaves a folder that has files in it
    }
}

std::string OutputFolder::prepare() {
    std::error_code error;
    const fs::path folder = fs::u8path(path_.substr(0, path_.size() - 1));
    if (fs::exists(folder, error) && !fs::is_directory(folder, error)) {
        return "the output folder is a file: " + folder.generic_u8string();
    }
    if (!fs::exists(folder, error)) {
        if (!fs::is_directory(folder.parent_path(), error)) {
            return "the output folder does not exist: " + folder.generic_u8string();
        }
        made_ = fs::create_directory(folder, error);
        if (error) {
            return "the output folder cannot be made: " + folder.generic_u8string() + " (" + error.message() + ")";
        }
    }
    return isWritableFolder(folder.u8string()) ? "" : "the output folder is not writable: " + folder.generic_u8string();
}

OutputFiles::OutputFiles(std::string base) : base_(std::move(base)) {
    for (const OutputKind& kind : kOutputKinds) {
        std::error_code error;
        const auto time = fs::last_write_time(fs::u8path(pathOf(base_, kind)), error);
        if (!error) {
            before_[kind.ending] = time;
        }
    }
}

std::vector<WrittenFile> OutputFiles::written() const {
    std::vector<WrittenFile> files;
    for (const OutputKind& kind : kOutputKinds) {
        std::error_code error;
        const fs::path path = fs::u8path(pathOf(base_, kind));
        const auto time = fs::last_write_time(path, error);
        const auto before = before_.find(kind.ending);
        if (error || (before != before_.end() && before->second == time)) {
            continue;
        }
        const std::uintmax_t length = fs::file_size(path, error);
        files.push_back({pathOf(base_, kind), error ? 0 : length});
    }
    return files;
}

} // namespace host::app
