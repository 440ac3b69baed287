#include "platform/outputWindow.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace tvk {
namespace {

// A hidden top-level window with a title of its own.
class TitledWindow {
public:
    explicit TitledWindow(const wchar_t* title)
        : window(CreateWindowExW(0, L"STATIC", title, WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                                 nullptr)) {}
    ~TitledWindow() { DestroyWindow(window); }
    TitledWindow(const TitledWindow&) = delete;
    TitledWindow& operator=(const TitledWindow&) = delete;

    void disable() { EnableWindow(window, FALSE); }
    bool isShown() const { return IsWindowVisible(window) != FALSE; }
    bool isThere() const { return window != nullptr; }

private:
    HWND window;
};

TEST(WindowsOutputWindow, ShowsTheEnabledWindowWhoseTitleBeginsSo) {
    const TitledWindow wanted(L"Output Window - some scene");
    const TitledWindow titleInside(L"The Output Window");
    const TitledWindow otherCase(L"output window");
    TitledWindow disabled(L"Output Window");
    disabled.disable();
    showOutputWindow();
    ASSERT_TRUE(wanted.isThere()) << "no desktop";
    EXPECT_TRUE(wanted.isShown());
    EXPECT_FALSE(titleInside.isShown());
    EXPECT_FALSE(otherCase.isShown());
    EXPECT_FALSE(disabled.isShown());
}

} // namespace
} // namespace tvk
