#include "host/api/SharedLibrary.h"

#include "host/mel/filePath.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <filesystem>
#include <utility>

namespace host {

SharedLibrary::~SharedLibrary() {
    if (handle_ != nullptr) {
        FreeLibrary(static_cast<HMODULE>(handle_));
    }
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

SharedLibrary SharedLibrary::load(const std::string& path, std::string& error) {
    SharedLibrary library;
    const std::wstring wide = filePath(path).make_preferred().wstring();
    library.handle_ = LoadLibraryExW(wide.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!library) {
        error = "system error " + std::to_string(GetLastError());
    }
    return library;
}

void* SharedLibrary::find(const char* symbol) const {
    return handle_ == nullptr ? nullptr
                              : reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), symbol));
}

std::string_view SharedLibrary::suffix() {
    return ".mll";
}

char SharedLibrary::pathSeparator() {
    return ';';
}

} // namespace host
