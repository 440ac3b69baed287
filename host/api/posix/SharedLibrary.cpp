#include "host/api/SharedLibrary.h"

#include <dlfcn.h>

#include <utility>

namespace host {

SharedLibrary::~SharedLibrary() {
    if (handle_ != nullptr) {
        dlclose(handle_);
    }
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

SharedLibrary SharedLibrary::load(const std::string& path, std::string& error) {
    SharedLibrary library;
    // Local: two plug-ins may define the same names (MApiVersion, entry points) without seeing each other's.
    library.handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        const char* reason = dlerror();
        error = reason != nullptr ? reason : "it cannot be loaded";
    }
    return library;
}

void* SharedLibrary::find(const char* symbol) const {
    return handle_ == nullptr ? nullptr : dlsym(handle_, symbol);
}

std::string_view SharedLibrary::suffix() {
    return ".so";
}

char SharedLibrary::pathSeparator() {
    return ':';
}

} // namespace host
