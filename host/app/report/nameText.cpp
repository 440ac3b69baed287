#include "host/app/report/nameText.h"

#include "host/scene/codeset.h"

#include <algorithm>
#include <iterator>

namespace host::app::report {

namespace {

struct Range {
    char32_t first, last;
};

// What terminals draw in two columns, of the characters that Shift_JIS has.
constexpr Range kWide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
                           {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}};

bool isWide(char32_t character) {
    return std::any_of(std::begin(kWide), std::end(kWide),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

} // namespace

std::string utf8Name(std::string_view bytes) {
    std::string name = host::toUtf8(bytes, "932");
    std::replace_if(
        name.begin(), name.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F; },
        '?');
    return name;
}

std::string utf8Message(const decode::ExportedFilesError& error) {
    return std::string(error.place()) + utf8Name(error.reason());
}

std::size_t columnsOf(std::string_view utf8) {
    std::size_t columns = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        const auto first = static_cast<unsigned char>(utf8[at++]);
        char32_t character = first < 0x80U ? first : first < 0xE0U ? first & 0x1FU : first & 0x0FU;
        for (; at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xC0U) == 0x80U; ++at) {
            character = character << 6U | (static_cast<unsigned char>(utf8[at]) & 0x3FU);
        }
        columns += isWide(character) ? 2U : 1U;
    }
    return columns;
}

} // namespace host::app::report
