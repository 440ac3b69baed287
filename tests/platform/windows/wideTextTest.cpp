#include "platform/windows/wideText.h"

#include "platform/process.h"
#include "platform/userEnvironment.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace tvk {
namespace {

TEST(WideText, Utf8GoesThereAndBack) {
    for (const std::string text : {"", "abc", "\xE3\x82\xBD\xC3\xBC", "\xF0\x9F\x98\x80"})
        EXPECT_EQ(utf8FromWide(wideFromUtf8(text)), text);
}

TEST(WideText, TextThatIsNotUtf8ComesFromTheUsersCodePage) {
    const char text[] = "\xB1\xFC";
    wchar_t expected[8] = {};
    ASSERT_GT(MultiByteToWideChar(CP_ACP, 0, text, -1, expected, 8), 0);
    EXPECT_EQ(wideFromUtf8(text), expected);
}

TEST(WindowsProcess, AProgramThatIsNotThereDoesNotStart) {
    const ProcessResult result = runProcess("C:\\tvk\\no\\such\\program.exe", ProcessWindow::kHidden);
    EXPECT_EQ(result.outcome, ProcessOutcome::kNotStarted);
    EXPECT_EQ(result.exitCode, 1);
}

TEST(WindowsUserEnvironment, VariablesAreReadWide) {
    SetEnvironmentVariableW(L"TVK_TEST_VARIABLE", L"\x30BD\x00FC");
    EXPECT_EQ(environmentValue("TVK_TEST_VARIABLE"), "\xE3\x82\xBD\xC3\xBC");
    SetEnvironmentVariableW(L"TVK_TEST_VARIABLE", L"");
    EXPECT_EQ(environmentValue("TVK_TEST_VARIABLE"), "");
    SetEnvironmentVariableW(L"TVK_TEST_VARIABLE", nullptr);
    EXPECT_EQ(environmentValue("TVK_TEST_VARIABLE"), std::nullopt);
}

} // namespace
} // namespace tvk
