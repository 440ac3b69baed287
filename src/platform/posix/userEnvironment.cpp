#include "platform/userEnvironment.h"

#include "platform/systemNames.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace tvk {

namespace {

constexpr size_t kLargestEntryBytes = 1 << 20; // a password entry that needs more is taken for broken

std::string readPasswordName() {
    std::vector<char> buffer(1024);
    passwd entry{};
    passwd* found = nullptr;
    int error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    while (error == ERANGE && buffer.size() < kLargestEntryBytes) {
        buffer.resize(buffer.size() * 2);
        error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    }
    return error == 0 && found != nullptr ? entry.pw_name : std::string();
}

} // namespace

std::string readUserName() {
    std::string name = readPasswordName();
    return name.empty() ? environmentValue("USER").value_or("") : name;
}

std::string readHostName() {
    std::array<char, 256> buffer{};
    // A name that fills the buffer may come without its terminator.
    if (gethostname(buffer.data(), buffer.size() - 1) != 0)
        return {};
    return buffer.data();
}

LocalTime localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    if (localtime_r(&now, &parts) == nullptr)
        return {};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

std::optional<std::string> environmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

} // namespace tvk
