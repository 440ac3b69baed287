#pragma once

#include <string>
#include <string_view>

namespace tvk {

/// File names of the host cut by the rules of common/shiftJis.h, which speak of Shift_JIS bytes: text that is UTF-8 is
/// cut as its Shift_JIS form would be, so that no tail byte of a character is taken for a lead byte or a separator.

/// The name without its last extension: "a.b.imd" gives "a.b", ".imd" gives "".
std::string baseNameOf(const std::string& name);

/// What stands after the last '.' of the last path component; empty when there is none.
std::string extensionOf(const std::string& name);

/// The file name behind the folders: "a\\b/c.tga" gives "c.tga", "a/" gives "".
std::string lastComponentOf(const std::string& name);

} // namespace tvk
