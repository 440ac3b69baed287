#include "platform/fileSystem.h"

#include "platform/userEnvironment.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tvk {

namespace {

bool namesSomething(const std::string& path) {
    return !path.empty() && path.find('\0') == std::string::npos;
}

bool readStatus(const std::string& path, struct stat& status) {
    return namesSomething(path) && stat(path.c_str(), &status) == 0;
}

} // namespace

const char kPathSeparator = '/';

std::string pathText(const std::string& text) {
    return text;
}

std::filesystem::path systemPath(const std::string& path) {
    return path;
}

bool fileExists(const std::string& path) {
    struct stat status {};
    return readStatus(path, status) && !S_ISDIR(status.st_mode);
}

bool folderExists(const std::string& path) {
    struct stat status {};
    return readStatus(path, status) && S_ISDIR(status.st_mode);
}

bool createFolder(const std::string& path) {
    constexpr mode_t kAllButUmask = 0777;
    return (namesSomething(path) && mkdir(path.c_str(), kAllButUmask) == 0) || folderExists(path);
}

bool deleteFile(const std::string& path) {
    return namesSomething(path) && unlink(path.c_str()) == 0;
}

std::string tempFolder() {
    for (const char* name : {"TEMP", "TMPDIR"}) {
        std::string folder = environmentValue(name).value_or("");
        if (!folder.empty())
            return folder;
    }
    return "/tmp";
}

} // namespace tvk
