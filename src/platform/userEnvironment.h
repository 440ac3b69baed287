#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tvk {

// Who runs the export, where and when. Text is UTF-8 on Windows; elsewhere the bytes that the system keeps.

// The longest user and host names, in bytes: the reference buffers of 256 and 16 less their terminators.
inline constexpr size_t kUserNameLimit = 255;
inline constexpr size_t kHostNameLimit = 15;

// The login name of the user, cut to kUserNameLimit: the system's account name (POSIX: the password entry of the real
// user, else $USER); "unknown" when the system has none.
std::string userName();

// The computer's name cut to kHostNameLimit; "unknown" when the system has none.
std::string hostName();

struct LocalTime {
    int year = 1970;
    int month = 1; // 1 to 12
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0; // 0 to 60
};

// Now, in the user's time zone.
LocalTime localTime();

// "2006-10-03T09:05:00": the year plain, the others with two digits.
std::string localTimeText(const LocalTime& time);

// Whole seconds since 1970 by the wall clock; differences may be negative when the clock is set back.
int64_t wallClockSeconds();

// The value of an environment variable; nothing when it is not set.
std::optional<std::string> environmentValue(const char* name);

} // namespace tvk
