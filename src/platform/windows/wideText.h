#pragma once

#include <string>
#include <string_view>

namespace tvk {

// For the Windows sources only: the system's calls are used in their wide forms, so that names outside the user's
// code page survive.

// Text that is not valid UTF-8 is taken from the user's code page.
std::wstring wideFromUtf8(std::string_view text);

// Lone surrogates become U+FFFD.
std::string utf8FromWide(std::wstring_view text);

} // namespace tvk
