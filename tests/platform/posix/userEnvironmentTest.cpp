#include "platform/userEnvironment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <pwd.h>
#include <unistd.h>

namespace tvk {
namespace {

constexpr uid_t kUnknownUser = 54321; // has no password entry

// Runs in the child of an exit test: drops to a user without a password entry. Where that is not allowed, the user
// stays who it is, and its entry must count whatever the variable says.
void expectNameOfUnknownUser(const char* variable, const std::string& nameWithoutEntry) {
    if (variable != nullptr)
        setenv("USER", variable, 1);
    else
        unsetenv("USER");
    const bool dropped = setuid(kUnknownUser) == 0;
    const passwd* entry = getpwuid(getuid());
    const std::string expected = entry == nullptr ? nameWithoutEntry : std::string(entry->pw_name);
    _exit(dropped == (getuid() == kUnknownUser) && userName() == expected ? 0 : 1);
}

TEST(PosixUserEnvironment, TheUserIsThePasswordEntrysName) {
    const passwd* entry = getpwuid(getuid());
    setenv("USER", "somebody else", 1);
    EXPECT_EQ(userName(), entry == nullptr ? std::string("somebody else") : entry->pw_name);
}

TEST(PosixUserEnvironment, WithoutAPasswordEntryTheVariableCounts) {
    ASSERT_EQ(getpwuid(kUnknownUser), nullptr);
    const std::string kana = "\xE3\x82\xBD"; // three bytes
    std::string longName;
    while (longName.size() <= kUserNameLimit)
        longName += kana;
    const auto ended = testing::ExitedWithCode(0);
    EXPECT_EXIT(expectNameOfUnknownUser("artist", "artist"), ended, "");
    EXPECT_EXIT(expectNameOfUnknownUser("J\xC3\xBCrgen", "J\xC3\xBCrgen"), ended, "");
    EXPECT_EXIT(expectNameOfUnknownUser("", "unknown"), ended, "");
    EXPECT_EXIT(expectNameOfUnknownUser(nullptr, "unknown"), ended, "");
    // cut to 255 bytes, which are 85 whole characters; with one byte in front, 84 fit
    EXPECT_EXIT(expectNameOfUnknownUser(longName.c_str(), longName.substr(0, 255)), ended, "");
    const std::string shifted = "a" + longName;
    EXPECT_EXIT(expectNameOfUnknownUser(shifted.c_str(), shifted.substr(0, 253)), ended, "");
}

TEST(PosixUserEnvironment, TheHostIsTheSystemsNameCut) {
    char name[256] = {};
    ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
    EXPECT_EQ(hostName(), std::string(name).substr(0, 15));
}

TEST(PosixUserEnvironment, LocalTimeFollowsTheTimeZone) {
    setenv("TZ", "JST-9", 1);
    tzset();
    const std::time_t before = std::time(nullptr);
    const LocalTime tokyo = localTime();
    const std::time_t after = std::time(nullptr);
    unsetenv("TZ");
    tzset();
    const auto hourOf = [](std::time_t time) { return static_cast<int>(time / 3600 + 9) % 24; };
    EXPECT_TRUE(tokyo.hour == hourOf(before) || tokyo.hour == hourOf(after)) << tokyo.hour;
}

TEST(PosixUserEnvironment, AVariableMayBeEmpty) {
    setenv("TVK_TEST_VARIABLE", "", 1);
    EXPECT_EQ(environmentValue("TVK_TEST_VARIABLE"), "");
    setenv("TVK_TEST_VARIABLE", "\xE3\x82\xBD", 1);
    EXPECT_EQ(environmentValue("TVK_TEST_VARIABLE"), "\xE3\x82\xBD");
    unsetenv("TVK_TEST_VARIABLE");
}

} // namespace
} // namespace tvk
