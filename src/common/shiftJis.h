#pragma once

#include <string_view>

namespace tvk {

// The first byte of a double-byte character, as file names are split: 0x81-0x9F, 0xE0-0xEF. Code page 932 goes on to
// 0xFC, but those are user-defined and vendor characters, which the tools that read our names do not know.
constexpr bool isShiftJisLead(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xEF);
}

// File names are cut by one backwards scan over their Shift_JIS bytes. A '/' is a separator; a '\\' is one, on every
// system, unless a lead byte stands before it (it is then the second half of a character). UTF-8 must be converted
// first: a UTF-8 tail byte before a '\\' would be taken for a lead byte.
// All results are views into `name`.

// What stands after the last '.' of the last path component, without the '.'; empty when there is none.
// "a/b.c.IMD" gives "IMD", "a.b/c" gives "", ".imd" gives "imd".
std::string_view fileExtension(std::string_view name);

// `name` (folders included) up to that '.'; all of it when there is none. "a/b.c.imd" gives "a/b.c", ".imd" gives "".
std::string_view withoutExtension(std::string_view name);

// What stands after the last separator; all of `name` when there is none, nothing when it ends in one.
std::string_view lastPathComponent(std::string_view name);

} // namespace tvk
