#include "host/scene/TextConverter.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstddef>

namespace host {

namespace {

constexpr std::size_t kLongestCharacter = 4; // bytes; of UTF-8 and GB 18030

// Names that scene files of other systems use; Windows itself knows numbers only.
struct NamedPage {
    std::string_view name; // without '-' and '_', in upper case
    UINT codePage;
};

constexpr NamedPage kNamedPages[] = {
    {"UTF8", CP_UTF8},   {"SHIFTJIS", 932},   {"SJIS", 932},       {"MSKANJI", 932},    {"EUCJP", 20932},
    {"UJIS", 20932},     {"GB2312", 936},     {"EUCCN", 936},      {"GBK", 936},        {"GB18030", 54936},
    {"BIG5", 950},       {"EUCKR", 949},      {"UHC", 949},        {"ISO88591", 28591}, {"LATIN1", 28591},
    {"ISO88592", 28592}, {"ISO88595", 28595}, {"ISO88597", 28597}, {"ISO88599", 28599}, {"ISO885915", 28605},
    {"KOI8R", 20866},    {"ASCII", 20127},    {"USASCII", 20127},
};

std::string plainName(std::string_view codeset) {
    std::string plain;
    for (const char byte : codeset) {
        if (byte != '-' && byte != '_') {
            plain += static_cast<char>(std::toupper(static_cast<unsigned char>(byte)));
        }
    }
    return plain;
}

/// A number, alone or behind the word that stands for a code page; 0 for anything else.
UINT pageOfNumber(std::string_view plain) {
    for (const std::string_view word : {"CP", "WINDOWS", "IBM"}) {
        if (plain.substr(0, word.size()) == word) {
            plain.remove_prefix(word.size());
            break;
        }
    }
    UINT codePage = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), codePage);
    return error == std::errc() && end == plain.data() + plain.size() ? codePage : 0;
}

UINT pageOf(std::string_view codeset) {
    const std::string plain = plainName(codeset);
    const auto* const named = std::find_if(std::begin(kNamedPages), std::end(kNamedPages),
                                           [&](const NamedPage& page) { return page.name == plain; });
    return named != std::end(kNamedPages) ? named->codePage : pageOfNumber(plain);
}

/// Whether the system can tell what is no text in that code page: what it cannot, it would change without a word. Small
/// numbers stand for "the user's own", which the scene's author cannot have meant.
bool isUsable(UINT codePage) {
    constexpr UINT kFirstRealPage = 37;
    wchar_t wide[2];
    return codePage >= kFirstRealPage && IsValidCodePage(codePage) != 0 &&
           MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, "a", 1, wide, 2) == 1;
}

/// Appends text that is whole; false, with nothing appended, when it is not.
bool append(UINT codePage, std::string_view bytes, std::string& result) {
    const int count = static_cast<int>(bytes.size());
    std::wstring wide(bytes.size(), L'\0'); // no character of several bytes becomes more than one of these per byte
    const int length = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), count, wide.data(), count);
    if (length == 0) {
        return false;
    }
    const int needed = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    const std::size_t before = result.size();
    result.resize(before + static_cast<std::size_t>(needed));
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, &result[before], needed, nullptr, nullptr);
    return true;
}

/// The same, character by character, with '?' for each byte that is none.
void appendBroken(UINT codePage, std::string_view bytes, std::string& result) {
    while (!bytes.empty()) {
        std::size_t length = 1;
        while (length <= std::min(kLongestCharacter, bytes.size()) &&
               !append(codePage, bytes.substr(0, length), result)) {
            ++length;
        }
        const bool isCharacter = length <= std::min(kLongestCharacter, bytes.size());
        if (!isCharacter) {
            result += '?';
        }
        bytes.remove_prefix(isCharacter ? length : 1);
    }
}

} // namespace

TextConverter::TextConverter(std::string_view codeset) {
    const UINT codePage = pageOf(codeset);
    handle_ = isUsable(codePage) ? codePage : 0;
}

TextConverter::~TextConverter() = default;

bool TextConverter::isKnown() const {
    return handle_ != 0;
}

bool TextConverter::convert(std::string_view bytes, std::string& result) {
    constexpr std::size_t kPieceBytes = 1U << 20U; // the system counts in 32 bits
    const UINT codePage = static_cast<UINT>(handle_);
    bool isWhole = true;
    while (!bytes.empty()) {
        // A line feed is never part of another character.
        const std::size_t lineEnd = bytes.size() > kPieceBytes ? bytes.rfind('\n', kPieceBytes) : bytes.size();
        const std::size_t end =
            lineEnd >= bytes.size() ? std::min(bytes.size(), bytes.find('\n', kPieceBytes)) : lineEnd;
        const std::string_view piece = bytes.substr(0, end == bytes.size() ? end : end + 1);
        if (!append(codePage, piece, result)) {
            isWhole = false;
            appendBroken(codePage, piece, result);
        }
        bytes.remove_prefix(piece.size());
    }
    return isWhole;
}

} // namespace host
