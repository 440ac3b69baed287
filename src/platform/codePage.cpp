#include "platform/codePage.h"

#include "platform/codePage932.h"

#include <cstdint>

namespace tvk {

namespace {

constexpr char kNoCode = '?';

// Characters of JIS X 0208 to which Microsoft's table gave another Unicode name. Text from other systems uses the left
// column (a Japanese keyboard on Linux types U+301C); without this it would lose its wave dashes. Yen sign and overline
// are here because some systems' converters turn them into '\\' and '~', which would change a path.
constexpr struct {
    char32_t jisName;
    char32_t microsoftName;
} kRenamedSigns[] = {
    {0x00A2, 0xFFE0}, // cent sign
    {0x00A3, 0xFFE1}, // pound sign
    {0x00A5, 0xFFE5}, // yen sign
    {0x00AC, 0xFFE2}, // not sign
    {0x2014, 0x2015}, // em dash
    {0x2016, 0x2225}, // double vertical line
    {0x203E, 0xFFE3}, // overline
    {0x2212, 0xFF0D}, // minus sign
    {0x301C, 0xFF5E}, // wave dash
};

unsigned char byteAt(std::string_view text, size_t at) {
    return static_cast<unsigned char>(text[at]);
}

struct Utf8Character {
    char32_t value = 0;
    size_t length = 0; // 0 when the bytes are not UTF-8
};

// Overlong forms, surrogates and values above 0x10FFFF are not UTF-8. `at` is inside the text.
Utf8Character readUtf8(std::string_view text, size_t at) {
    const unsigned char lead = byteAt(text, at);
    if (lead < 0x80)
        return {lead, 1};
    const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - at < length)
        return {};
    char32_t value = lead & (0x7FU >> length);
    for (size_t i = 1; i < length; ++i) {
        const unsigned char tail = byteAt(text, at + i);
        if ((tail & 0xC0) != 0x80)
            return {};
        value = value << 6 | (tail & 0x3FU);
    }
    constexpr char32_t kLowest[] = {0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value < kLowest[length - 2] || surrogate || value > 0x10FFFF)
        return {};
    return {value, length};
}

bool isUtf8(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length = readUtf8(text, at).length;
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

bool isHalfWidthKatakana(unsigned char byte) {
    return byte >= 0xA1 && byte <= 0xDF;
}

// By shape only: the ranges of lead and trail bytes.
bool isDoubleByte(unsigned char lead, unsigned char trail) {
    const bool leads = (lead >= 0x81 && lead <= 0x9F) || (lead >= 0xE0 && lead <= 0xFC);
    return leads && trail >= 0x40 && trail <= 0xFC && trail != 0x7F;
}

// Length in bytes of the Shift_JIS character at `at`, 0 when there is none.
size_t shiftJisLength(std::string_view text, size_t at) {
    const unsigned char first = byteAt(text, at);
    if (first < 0x80 || isHalfWidthKatakana(first))
        return 1;
    if (text.size() - at < 2 || !isDoubleByte(first, byteAt(text, at + 1)))
        return 0;
    return decode932({{text[at], text[at + 1]}, 2}) != 0 ? 2 : 0;
}

// A code counts only when it means this very character and has one of the shapes that readers know: systems differ
// in their look-alikes, and in what they do with the single bytes 0x80, 0xA0 and 0xFD-0xFF.
bool isCodeOf(const Code932& code, char32_t character) {
    const auto first = static_cast<unsigned char>(code.bytes[0]);
    const bool shaped = code.length == 1 ? isHalfWidthKatakana(first)
                                         : code.length == 2 && isDoubleByte(first, byteAt({&code.bytes[1], 1}, 0));
    return shaped && decode932(code) == character;
}

char32_t microsoftNameOf(char32_t character) {
    for (const auto& sign : kRenamedSigns) {
        if (sign.jisName == character)
            return sign.microsoftName;
    }
    return character;
}

void appendCharacter(std::string& out, char32_t character, bool& lossy) {
    const char32_t named = microsoftNameOf(character);
    const Code932 code = named <= 0xFFFF ? encode932(named) : Code932{};
    if (isCodeOf(code, named)) {
        out.append(code.bytes.data(), code.length);
    } else {
        out += kNoCode;
        lossy = true;
    }
}

std::string convertUtf8(std::string_view text, bool& lossy) {
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        const Utf8Character character = readUtf8(text, at);
        if (character.length == 1)
            out += text[at];
        else
            appendCharacter(out, character.value, lossy);
        at += character.length;
    }
    return out;
}

std::string repairShiftJis(std::string_view text, bool& lossy) {
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        const size_t length = shiftJisLength(text, at);
        if (length == 0) {
            out += kNoCode;
            lossy = true;
            ++at;
            continue;
        }
        out.append(text, at, length);
        at += length;
    }
    return out;
}

} // namespace

std::string toShiftJis(std::string_view text, bool& lossy) {
    return isUtf8(text) ? convertUtf8(text, lossy) : repairShiftJis(text, lossy);
}

bool isValidShiftJis(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length = shiftJisLength(text, at);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

} // namespace tvk
