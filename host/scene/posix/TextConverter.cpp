#include "host/scene/TextConverter.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include <iconv.h>

namespace host {

namespace {

// The name goes to the system, which may look for a file of that name: short and plain, or none.
bool isPlainName(std::string_view codeset) {
    constexpr std::size_t kLongestName = 40;
    return !codeset.empty() && codeset.size() <= kLongestName &&
           std::all_of(codeset.begin(), codeset.end(), [](char byte) {
               return (byte >= '0' && byte <= '9') || ((byte | 32) >= 'a' && (byte | 32) <= 'z') || byte == '-' ||
                      byte == '_' || byte == '.' || byte == ':';
           });
}

// "932" is a Windows code page; everything else is a name.
std::string converterName(std::string_view codeset) {
    const bool isNumber =
        std::all_of(codeset.begin(), codeset.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
    return isNumber ? "CP" + std::string(codeset) : std::string(codeset);
}

} // namespace

TextConverter::TextConverter(std::string_view codeset) {
    const iconv_t opened =
        isPlainName(codeset) ? ::iconv_open("UTF-8", converterName(codeset).c_str()) : reinterpret_cast<iconv_t>(-1);
    handle_ = opened != reinterpret_cast<iconv_t>(-1) ? reinterpret_cast<std::uintptr_t>(opened) : 0;
}

TextConverter::~TextConverter() {
    if (isKnown()) {
        ::iconv_close(reinterpret_cast<iconv_t>(handle_));
    }
}

bool TextConverter::isKnown() const {
    return handle_ != 0;
}

bool TextConverter::convert(std::string_view bytes, std::string& result) {
    const auto converter = reinterpret_cast<iconv_t>(handle_);
    bool isWhole = true;
    char buffer[16384];
    auto* next = const_cast<char*>(bytes.data()); // iconv's interface is older than const
    std::size_t left = bytes.size();
    while (left > 0) {
        char* out = buffer;
        std::size_t room = sizeof buffer;
        const bool isDone = ::iconv(converter, &next, &left, &out, &room) != static_cast<std::size_t>(-1);
        const int code = isDone ? 0 : errno;
        result.append(buffer, static_cast<std::size_t>(out - buffer));
        if (!isDone && code != E2BIG) {
            isWhole = false;
            result += '?';
            ++next;
            --left;
            ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
        }
    }
    return isWhole;
}

} // namespace host
