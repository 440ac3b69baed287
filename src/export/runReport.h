#pragma once

#include <cstdint>
#include <string>

namespace tvk {

/// What a run tells in the host's information output. Batch runs show none of it.

void printRunHeader();

/// What was written and how much of it.
void printSummary();

/// "Finished  ( time = 1:15 )" for 75 seconds.
std::string finishedText(int64_t seconds);

/// Whether a name does not fit the console's 16 characters (bytes of Shift_JIS).
bool isLongName(const std::string& name);

/// One warning per written element with such a name.
void warnOfLongNames();

} // namespace tvk
