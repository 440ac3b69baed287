#include "platform/userEnvironment.h"

#include "platform/systemNames.h"
#include "platform/windows/wideText.h"

#include <array>
#include <windows.h>

namespace tvk {

std::string readUserName() {
    std::array<wchar_t, kUserNameLimit + 1> buffer{};
    DWORD size = static_cast<DWORD>(buffer.size());
    return GetUserNameW(buffer.data(), &size) ? utf8FromWide(buffer.data()) : std::string();
}

std::string readHostName() {
    std::array<wchar_t, kHostNameLimit + 1> buffer{};
    DWORD size = static_cast<DWORD>(buffer.size());
    return GetComputerNameW(buffer.data(), &size) ? utf8FromWide(buffer.data()) : std::string();
}

LocalTime localTime() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

std::optional<std::string> environmentValue(const char* name) {
    const std::wstring wideName = wideFromUtf8(name);
    // With no room given the answer counts the terminator, so a variable that is set to nothing needs 1.
    DWORD needed = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (needed == 0)
        return std::nullopt;
    std::wstring value;
    // The value may grow between the two questions; with enough room the answer is below what was given.
    while (needed > value.size()) {
        value.resize(needed);
        needed = GetEnvironmentVariableW(wideName.c_str(), value.data(), needed);
    }
    value.resize(needed);
    return utf8FromWide(value);
}

} // namespace tvk
