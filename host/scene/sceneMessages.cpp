#include "host/scene/sceneMessages.h"

#include <cstddef>

namespace host::messages {

namespace {

// Names and words of broken files may be megabytes long; a message needs enough to find the place.
constexpr std::size_t kLongestArgument = 1000;

void append(std::string& line, std::string_view argument) {
    for (const char byte : argument.substr(0, kLongestArgument)) {
        line += static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f ? '?' : byte;
    }
    if (argument.size() > kLongestArgument) {
        line += "...";
    }
}

} // namespace

std::string text(std::string_view pattern, std::initializer_list<std::string_view> arguments) {
    std::string line;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const auto number = at + 1 < pattern.size() ? static_cast<std::size_t>(pattern[at + 1] - '1') : 9;
        if (pattern[at] == '%' && number < arguments.size()) {
            append(line, arguments.begin()[number]);
            ++at;
        } else {
            line += pattern[at];
        }
    }
    return line;
}

} // namespace host::messages
