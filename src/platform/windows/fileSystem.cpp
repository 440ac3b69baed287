#include "platform/fileSystem.h"

#include "platform/userEnvironment.h"
#include "platform/windows/wideText.h"

#include <windows.h>

namespace tvk {

namespace {

// FindFirstFile reads '*' and '?' as patterns, which would find other files.
bool namesSomething(const std::string& path) {
    return !path.empty() && path.find_first_of(std::string("*?\0", 3)) == std::string::npos;
}

bool findFirst(const std::wstring& path, WIN32_FIND_DATAW& found) {
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return true;
}

} // namespace

const char kPathSeparator = '\\';

std::string pathText(const std::string& text) {
    return utf8FromWide(wideFromUtf8(text));
}

std::filesystem::path systemPath(const std::string& path) {
    return wideFromUtf8(path);
}

bool fileExists(const std::string& path) {
    WIN32_FIND_DATAW found{};
    return namesSomething(path) && findFirst(wideFromUtf8(path), found) &&
           (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool folderExists(const std::string& path) {
    WIN32_FIND_DATAW found{};
    // Asking for any entry inside works for drive roots and with separators at the end, where a search for the folder
    // itself finds nothing.
    return namesSomething(path) && findFirst(wideFromUtf8(path) + L"\\*", found);
}

bool createFolder(const std::string& path) {
    return (namesSomething(path) && CreateDirectoryW(wideFromUtf8(path).c_str(), nullptr)) || folderExists(path);
}

bool deleteFile(const std::string& path) {
    return namesSomething(path) && DeleteFileW(wideFromUtf8(path).c_str());
}

std::string tempFolder() {
    return environmentValue("TEMP").value_or("");
}

} // namespace tvk
