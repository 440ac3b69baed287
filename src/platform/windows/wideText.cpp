#include "platform/windows/wideText.h"

#include <windows.h>

namespace tvk {

namespace {

std::wstring wideFrom(UINT codePage, DWORD flags, std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, flags, text.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), bytes, wide.data(), length);
    return wide;
}

} // namespace

std::wstring wideFromUtf8(std::string_view text) {
    std::wstring wide = wideFrom(CP_UTF8, MB_ERR_INVALID_CHARS, text);
    return wide.empty() ? wideFrom(CP_ACP, 0, text) : wide;
}

std::string utf8FromWide(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

} // namespace tvk
