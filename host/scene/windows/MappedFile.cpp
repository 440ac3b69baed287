#include "host/scene/MappedFile.h"

#include "host/mel/filePath.h"
#include "host/scene/sceneMessages.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <filesystem>
#include <string>

namespace host {

namespace {

std::string describeError(const std::string& path, DWORD code) {
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_INVALID_NAME) {
        return messages::text(messages::kFileMissing, {path});
    }
    // The library has words for few of these.
    return messages::text(messages::kFileUnreadable, {path, "system error " + std::to_string(code)});
}

/// Maps a file that is not empty; null on failure.
void* mapped(HANDLE file) {
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping == nullptr) {
        return nullptr;
    }
    void* const address = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    CloseHandle(mapping); // the view keeps what it needs
    return address;
}

} // namespace

MappedFile::~MappedFile() {
    if (address_ != nullptr) {
        UnmapViewOfFile(address_);
    }
}

std::string MappedFile::open(const std::string& path) {
    const std::wstring wide = filePath(path).wstring();
    // A folder cannot be opened as a file is, and would be called unreadable.
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return messages::text(messages::kFileIsDirectory, {path});
    }
    // Others may go on working with it, as elsewhere.
    const HANDLE file = CreateFileW(wide.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return describeError(path, GetLastError());
    }
    std::string error;
    LARGE_INTEGER size{};
    if (GetFileType(file) != FILE_TYPE_DISK) {
        error = messages::text(messages::kFileIsNoFile, {path});
    } else if (GetFileSizeEx(file, &size) == 0) {
        error = describeError(path, GetLastError());
    } else if (size.QuadPart == 0) {
        error = messages::text(messages::kFileEmpty, {path});
    } else if (address_ = mapped(file); address_ == nullptr) {
        error = describeError(path, GetLastError());
    } else {
        size_ = static_cast<std::size_t>(size.QuadPart);
    }
    CloseHandle(file);
    return error;
}

} // namespace host
