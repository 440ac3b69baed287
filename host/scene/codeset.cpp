#include "host/scene/codeset.h"

#include "host/scene/TextConverter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace host {

namespace {

constexpr std::string_view kCodesetKey = "//Codeset:";
constexpr std::string_view kUnnamedCodeset = "1252"; // what the western Windows versions before 8.5 wrote

std::string_view trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t\r");
    const std::size_t last = line.find_last_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view() : line.substr(first, last - first + 1);
}

bool isAscii(std::string_view bytes) {
    std::size_t at = 0;
    for (; at + sizeof(std::uint64_t) <= bytes.size(); at += sizeof(std::uint64_t)) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        if ((eight & 0x8080808080808080U) != 0) {
            return false;
        }
    }
    return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool isUtf8Name(std::string_view codeset) {
    std::string plain;
    for (const char byte : codeset) {
        if (byte != '-' && byte != '_') {
            plain += byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
        }
    }
    return plain == "UTF8" || plain == "65001";
}

bool isValidUtf8(std::string_view bytes) {
    TextConverter converter("UTF-8");
    char buffer[16384];
    std::string scratch;
    for (std::size_t at = 0; at < bytes.size();) {
        // Whole characters only: a piece may end before a continuation byte.
        std::size_t end = std::min(bytes.size(), at + sizeof buffer);
        while (end < bytes.size() && end > at + 1 && (static_cast<unsigned char>(bytes[end]) & 0xC0U) == 0x80U) {
            --end;
        }
        scratch.clear();
        if (!converter.convert(bytes.substr(at, end - at), scratch)) {
            return false;
        }
        at = end;
    }
    return true;
}

} // namespace

std::string_view findCodeset(std::string_view fileText) {
    std::string_view rest = fileText;
    if (rest.substr(0, 3) == "\xEF\xBB\xBF") {
        rest.remove_prefix(3);
    }
    while (rest.substr(0, 2) == "//") {
        const std::size_t lineEnd = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, lineEnd);
        if (line.substr(0, kCodesetKey.size()) == kCodesetKey) {
            return trimmed(line.substr(kCodesetKey.size()));
        }
        rest.remove_prefix(std::min(lineEnd + 1, rest.size()));
    }
    return {};
}

DecodedText decodeToUtf8(std::string_view fileText) {
    DecodedText decoded;
    std::string_view codeset = findCodeset(fileText);
    if (isAscii(fileText)) {
        return decoded;
    }
    if ((codeset.empty() || isUtf8Name(codeset)) && isValidUtf8(fileText)) {
        return decoded;
    }
    if (codeset.empty()) {
        codeset = kUnnamedCodeset;
    }
    TextConverter converter(codeset);
    if (!converter.isKnown()) {
        decoded.isUnknownCodeset = true;
        return decoded;
    }
    decoded.storage.reserve(fileText.size() + fileText.size() / 8);
    decoded.hasBrokenText = !converter.convert(fileText, decoded.storage);
    decoded.isChanged = true;
    return decoded;
}

std::string toUtf8(std::string_view text, std::string_view codeset) {
    std::string result;
    TextConverter converter(codeset);
    if (converter.isKnown()) {
        converter.convert(text, result);
    } else {
        std::transform(text.begin(), text.end(), std::back_inserter(result),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80 ? byte : '?'; });
    }
    return result;
}

} // namespace host
