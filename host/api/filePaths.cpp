#include "host/api/filePaths.h"

#include "host/api/Host.h"
#include "host/api/SharedLibrary.h"
#include "host/mel/environment.h"
#include "host/mel/filePath.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <optional>
#include <sstream>

namespace host {

namespace {

std::string withSlashes(std::string path) {
    if constexpr (std::filesystem::path::preferred_separator != '/') {
        std::replace(path.begin(), path.end(), '\\', '/');
    }
    return path;
}

/// "$NAME" or "${NAME}" at a place of the path: its length and the name, or length 0.
struct Variable {
    std::string name;
    std::size_t length = 0;
};

Variable variableAt(const std::string& path, std::size_t at) {
    const bool hasBraces = at + 1 < path.size() && path[at + 1] == '{';
    std::size_t end = at + (hasBraces ? 2 : 1);
    const std::size_t begin = end;
    while (end < path.size() && (std::isalnum(static_cast<unsigned char>(path[end])) != 0 || path[end] == '_')) {
        ++end;
    }
    const bool isClosed = !hasBraces || (end < path.size() && path[end] == '}');
    if (end == begin || !isClosed) {
        return {};
    }
    return {path.substr(begin, end - begin), end + (hasBraces ? 1 : 0) - at};
}

} // namespace

SplitPath splitPath(const std::string& path) {
    const std::string text = withSlashes(path);
    const std::size_t slash = text.rfind('/');
    return slash == std::string::npos ? SplitPath{"", text}
                                      : SplitPath{text.substr(0, slash + 1), text.substr(slash + 1)};
}

std::string withSeparator(const std::string& folder) {
    const std::string text = withSlashes(folder);
    return text.empty() || text.back() == '/' ? text : text + "/";
}

bool isAbsolutePath(const std::string& path) {
    // On Windows a path may lack its drive, as those of scenes from other systems do.
    return filePath(path).has_root_directory();
}

std::string absolutePath(const std::string& path) {
    std::string text = withSlashes(path);
    if (isAbsolutePath(text)) {
        return text;
    }
    while (text.compare(0, 2, "./") == 0) {
        text.erase(0, std::min(text.find_first_not_of('/', 2), text.size()));
    }
    return withSeparator(Host::instance().scene().workspace().directory()) + text;
}

std::string expandPath(const std::string& path) {
    std::string result;
    std::size_t at = 0;
    const std::optional<std::string> home = environmentValue("HOME");
    if (home && (path == "~" || path.compare(0, 2, "~/") == 0)) {
        result = *home;
        at = 1;
    }
    while (at < path.size()) {
        const Variable variable = path[at] == '$' ? variableAt(path, at) : Variable();
        const std::optional<std::string> value = variable.length != 0 ? environmentValue(variable.name) : std::nullopt;
        if (!value) {
            result += path[at++];
            continue;
        }
        result += *value;
        at += variable.length;
    }
    return result;
}

std::vector<std::string> searchPath(const char* variable) {
    std::istringstream list(environmentValue(variable).value_or(""));
    std::vector<std::string> folders;
    for (std::string folder; std::getline(list, folder, SharedLibrary::pathSeparator());) {
        if (!folder.empty()) {
            folders.push_back(withSeparator(folder));
        }
    }
    return folders;
}

} // namespace host
