#include "host/scene/referencePlaces.h"

#include "host/mel/environment.h"

#include <algorithm>
#include <optional>

namespace host {

namespace {

bool isNameByte(char byte) {
    return byte == '_' || (byte >= '0' && byte <= '9') || ((byte | 32) >= 'a' && (byte | 32) <= 'z');
}

// "$NAME" and "${NAME}" by the environment; a variable that is not set stays as it is written.
std::string withVariables(std::string_view text) {
    std::string whole;
    for (std::size_t at = 0; at < text.size();) {
        const bool isBraced = text.substr(at, 2) == "${";
        const std::size_t begin = at + (isBraced ? 2 : 1);
        std::size_t end = begin;
        while (text[at] == '$' && end < text.size() && isNameByte(text[end])) {
            ++end;
        }
        const std::string name(text.substr(std::min(begin, text.size()), end - begin));
        const std::optional<std::string> value = end > begin ? environmentValue(name) : std::nullopt;
        if (!value) {
            whole += text[at++];
            continue;
        }
        whole += *value;
        at = end + (isBraced && text.substr(end, 1) == "}" ? 1 : 0);
    }
    return whole;
}

std::string withoutCopyNumber(std::string path) {
    const std::size_t brace = path.rfind('{');
    const bool isCopy = brace != std::string::npos && brace + 2 < path.size() && path.back() == '}' &&
                        std::all_of(path.begin() + static_cast<std::ptrdiff_t>(brace) + 1, path.end() - 1,
                                    [](char byte) { return byte >= '0' && byte <= '9'; });
    return isCopy ? path.substr(0, brace) : path;
}

std::string folderOf(std::string_view path) {
    std::string folder(path);
    std::replace(folder.begin(), folder.end(), '\\', '/');
    return folder.substr(0, folder.rfind('/') + 1);
}

std::string scenesFolder(const Workspace& workspace) {
    for (const char* rule : {"mayaAscii", "scene"}) {
        const std::string folder = workspace.fileRuleEntry(rule);
        if (!folder.empty()) {
            return folder.front() == '/' ? folder + "/" : workspace.rootDirectory() + folder + "/";
        }
    }
    return workspace.rootDirectory() + "scenes/";
}

// The path without "C:" and '/' in front, then without its first folder, and so on.
std::vector<std::string> endsOf(const std::string& path) {
    constexpr std::size_t kMostEnds = 16;
    std::size_t at = path.size() > 1 && path[1] == ':' ? 2 : 0;
    std::vector<std::string> ends;
    while (at < path.size()) {
        at = std::min(path.find_first_not_of('/', at), path.size());
        if (at < path.size()) {
            ends.push_back(path.substr(at));
        }
        at = std::min(path.find('/', at), path.size());
    }
    if (ends.size() > kMostEnds) {
        ends.erase(ends.begin(), ends.end() - kMostEnds);
    }
    return ends;
}

} // namespace

std::vector<std::string> referencePlaces(std::string_view written, std::string_view fromFile,
                                         const Workspace& workspace) {
    std::string path = withVariables(withoutCopyNumber(std::string(written)));
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.empty()) {
        return {};
    }
    std::vector<std::string> places{path};
    const std::size_t twoBars = path.rfind("//");
    if (twoBars != std::string::npos && twoBars > 0) {
        places.push_back(workspace.rootDirectory() + path.substr(twoBars + 2));
    }
    for (const std::string& end : endsOf(path)) {
        for (const std::string& folder : {folderOf(fromFile), workspace.rootDirectory(), scenesFolder(workspace)}) {
            places.push_back(folder + end);
        }
    }
    return places;
}

} // namespace host
