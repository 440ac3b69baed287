#pragma once

#include <string>
#include <string_view>

namespace host {

/// A shared library in memory; freed at the end of the object.
class SharedLibrary {
public:
    SharedLibrary() = default;
    ~SharedLibrary();
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary& operator=(SharedLibrary&& other) noexcept;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    /// A library that does not load is false, and `error` gets the system's reason.
    static SharedLibrary load(const std::string& path, std::string& error);

    explicit operator bool() const { return handle_ != nullptr; }
    /// Null when the library has no such symbol.
    void* find(const char* symbol) const;

    /// ".so" or what the system has for it.
    static std::string_view suffix();
    /// What stands between the folders of a search path: ':' or ';'.
    static char pathSeparator();

private:
    void* handle_ = nullptr;
};

} // namespace host
