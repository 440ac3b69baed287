#include "host/mel/environment.h"

#include <cstdlib>
#include <string_view>

#include <unistd.h>

namespace host {

std::optional<std::string> environmentValue(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::vector<std::string> environmentNames() {
    std::vector<std::string> names;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        names.emplace_back(text.substr(0, text.find('=')));
    }
    return names;
}

} // namespace host
