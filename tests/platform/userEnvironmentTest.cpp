#include "platform/userEnvironment.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

namespace tvk {
namespace {

TEST(UserEnvironment, NamesAreWithinTheirLimits) {
    EXPECT_FALSE(userName().empty());
    EXPECT_LE(userName().size(), kUserNameLimit);
    EXPECT_FALSE(hostName().empty());
    EXPECT_LE(hostName().size(), kHostNameLimit);
}

TEST(UserEnvironment, LocalTimeIsWrittenWithTwoDigitFields) {
    const struct {
        LocalTime time;
        const char* expected;
    } cases[] = {{{2006, 10, 3, 9, 5, 0}, "2006-10-03T09:05:00"},
                 {{1999, 1, 1, 0, 0, 9}, "1999-01-01T00:00:09"},
                 {{2026, 12, 31, 23, 59, 60}, "2026-12-31T23:59:60"},
                 {{987, 2, 3, 4, 5, 6}, "987-02-03T04:05:06"},
                 {{12345, 11, 12, 13, 14, 15}, "12345-11-12T13:14:15"}};
    for (const auto& c : cases)
        EXPECT_EQ(localTimeText(c.time), c.expected);
}

TEST(UserEnvironment, LocalTimeIsNow) {
    // The second may change between the two readings.
    for (int attempt = 0; attempt < 5; ++attempt) {
        const std::time_t before = std::time(nullptr);
        const LocalTime now = localTime();
        if (std::time(nullptr) != before)
            continue;
        const std::tm* expected = std::localtime(&before);
        EXPECT_EQ(now.year, expected->tm_year + 1900);
        EXPECT_EQ(now.month, expected->tm_mon + 1);
        EXPECT_EQ(now.day, expected->tm_mday);
        EXPECT_EQ(now.hour, expected->tm_hour);
        EXPECT_EQ(now.minute, expected->tm_min);
        EXPECT_EQ(now.second, expected->tm_sec);
        return;
    }
    FAIL() << "the second changed in every attempt";
}

TEST(UserEnvironment, TheWallClockCountsSecondsSince1970) {
    const std::time_t before = std::time(nullptr);
    const int64_t now = wallClockSeconds();
    EXPECT_GE(now, before);
    EXPECT_LE(now, before + 1);
}

TEST(UserEnvironment, AVariableThatIsNotSetIsNothing) {
    EXPECT_EQ(environmentValue("TVK_SURELY_NOT_SET"), std::nullopt);
}

TEST(UserEnvironment, ReadsVariables) {
    EXPECT_NE(environmentValue("PATH").value_or(""), "");
}

} // namespace
} // namespace tvk
