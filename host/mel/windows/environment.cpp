#include "host/mel/environment.h"

#include "host/mel/filePath.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <filesystem>
#include <string_view>

namespace host {

std::optional<std::string> environmentValue(const std::string& name) {
    const std::wstring wideName = filePath(name).wstring();
    // With no room given the answer counts the terminator, so a variable that is set to nothing needs 1.
    DWORD needed = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (needed == 0) {
        return std::nullopt;
    }
    std::wstring value;
    // The value may grow between the two questions; with enough room the answer is below what was given.
    while (needed > value.size()) {
        value.resize(needed);
        needed = GetEnvironmentVariableW(wideName.c_str(), value.data(), needed);
    }
    value.resize(needed);
    return std::filesystem::path(value).u8string();
}

std::vector<std::string> environmentNames() {
    std::vector<std::string> names;
    wchar_t* const block = GetEnvironmentStringsW();
    for (const wchar_t* entry = block; entry != nullptr && *entry != L'\0';) {
        const std::wstring_view text(entry);
        // Hidden variables, such as the current folder of each drive, begin with '='.
        if (text.front() != L'=') {
            names.push_back(std::filesystem::path(text.substr(0, text.find(L'='))).u8string());
        }
        entry += text.size() + 1;
    }
    FreeEnvironmentStringsW(block);
    return names;
}

} // namespace host
