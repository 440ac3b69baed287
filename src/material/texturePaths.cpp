#include "material/texturePaths.h"

#include "common/asciiText.h"
#include "platform/fileSystem.h"
#include "scene/Run.h"
#include "scene/fileNames.h"
#include "scene/hostCompatibility.h"

#include <maya/MFileIO.h>

#include <algorithm>
#include <vector>

namespace tvk {
namespace {

bool hasDrive(const std::string& path) {
    return path.size() >= 2 && path[1] == ':';
}

bool isKept(const std::string& name) {
    const bool isNetworkPath = name.size() >= 3 && name.compare(0, 2, "//") == 0;
    // Where '/' separates, a name that begins with it would never be found behind the root.
    const bool isAbsolute = kPathSeparator == '/' && !name.empty() && name.front() == '/';
    return isNetworkPath || isAbsolute || hasDrive(name);
}

std::string folderOf(const std::string& path) {
    return path.substr(0, path.size() - lastComponentOf(path).size());
}

std::vector<std::string> candidatesFor(const std::string& path) {
    const std::string& root = run().options.workspaceRoot;
    std::vector<std::string> candidates{path};
    if (const auto at = path.rfind("//"); at != std::string::npos) {
        candidates.push_back(root + path.substr(at + 2));
    }
    const std::string name = lastComponentOf(path);
    candidates.push_back(root + "sourceimages/" + name);
    candidates.push_back(folderOf(textOf(MFileIO::currentFile())) + name);
    return candidates;
}

} // namespace

MString resolveTexturePath(const MString& fileTextureName, const MString& workspaceRoot) {
    const std::string name = textOf(fileTextureName);
    std::string path = isKept(name) ? name : textOf(workspaceRoot) + name;
    if (hasDrive(path)) {
        const char drive = path.front();
        path.front() = drive >= 'a' && drive <= 'z' ? static_cast<char>(drive - 'a' + 'A') : drive;
    }
    return hostText(path);
}

std::string normalisedPath(const std::string& path) {
    std::string slashes = lowerAscii(path);
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    std::string result = slashes.substr(0, slashes.empty() || slashes.front() != '/' ? 0 : 1);
    for (const std::string_view component : splitText(slashes, '/')) {
        if (component == ".") {
            continue;
        }
        if (!result.empty() && result.back() != '/') {
            result += '/';
        }
        result += component;
    }
    return result;
}

std::string findImageFile(const std::string& path) {
    const std::vector<std::string> candidates = candidatesFor(path);
    const auto found = std::find_if(candidates.begin(), candidates.end(), fileExists);
    return found == candidates.end() ? path : *found;
}

std::string imageNameOf(const std::string& path) {
    return baseNameOf(lastComponentOf(path));
}

} // namespace tvk
