#pragma once

#include <string>

namespace tvk {

/// The text as a MEL string, in its double quotes: backslashes and double quotes are escaped, nothing else is changed.
std::string melQuoted(const std::string& text);

/// Runs MEL of which nothing is wanted but whether it ran.
[[nodiscard]] bool runsInHost(const std::string& mel);

} // namespace tvk
