#include "host/mel/filePath.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace host {

namespace {

std::wstring wideFrom(UINT codePage, DWORD flags, const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, flags, text.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), bytes, wide.data(), length);
    return wide;
}

} // namespace

std::filesystem::path filePath(const std::string& text) {
    std::wstring wide = wideFrom(CP_UTF8, MB_ERR_INVALID_CHARS, text);
    return wide.empty() ? wideFrom(CP_ACP, 0, text) : wide;
}

} // namespace host
