#include "platform/codePage932.h"

#include <windows.h>

namespace tvk {

namespace {

constexpr UINT kCodePage = 932;

} // namespace

Code932 encode932(char32_t character) {
    const auto wide = static_cast<wchar_t>(character);
    Code932 code;
    BOOL replaced = FALSE;
    const int length =
        WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, &wide, 1, code.bytes.data(), 2, nullptr, &replaced);
    if (length > 0 && !replaced)
        code.length = static_cast<size_t>(length);
    return code;
}

char32_t decode932(const Code932& code) {
    wchar_t wide = 0;
    const int length = MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, code.bytes.data(),
                                           static_cast<int>(code.length), &wide, 1);
    return length == 1 ? static_cast<char32_t>(wide) : 0;
}

} // namespace tvk
