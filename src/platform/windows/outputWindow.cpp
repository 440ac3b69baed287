#include "platform/outputWindow.h"

#include <array>
#include <string_view>
#include <windows.h>

namespace tvk {

namespace {

constexpr std::wstring_view kTitleStart = L"Output Window";
constexpr int kTitleLimit = 256;

BOOL CALLBACK raiseOutputWindow(HWND window, LPARAM /*unused*/) {
    if (!IsWindowEnabled(window))
        return TRUE;
    std::array<wchar_t, kTitleLimit> buffer{};
    const int length = GetWindowTextW(window, buffer.data(), kTitleLimit);
    const std::wstring_view title(buffer.data(), static_cast<size_t>(length));
    if (title.substr(0, kTitleStart.size()) != kTitleStart)
        return TRUE;
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
    return FALSE;
}

} // namespace

void showOutputWindow() {
    EnumWindows(raiseOutputWindow, 0);
}

} // namespace tvk
