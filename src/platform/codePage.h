#pragma once

#include <string>
#include <string_view>

namespace tvk {

// Shift_JIS here is Microsoft's code page 932, which the console's tools read: ASCII is itself (0x5C is '\\', 0x7E is
// '~'), 0xA1-0xDF are half-width katakana, double-byte characters begin with 0x81-0x9F or 0xE0-0xFC.

// Converts text to Shift_JIS. The result is always valid (see isValidShiftJis) and the same on every system and in
// every locale.
//   text      UTF-8; text that is not valid UTF-8 is taken to be Shift_JIS already
//   lossy     set to true when something could not be kept, and otherwise left alone, so one flag can serve a file
// Characters without a code become '?', and so does each byte of would-be Shift_JIS that is not part of a character.
// There are no look-alikes ("ü" is not "u"); but the signs that JIS X 0208 and Microsoft's table name differently
// (wave dash, minus sign, em dash, double vertical line, cent, pound, not, yen, overline) get their JIS code.
std::string toShiftJis(std::string_view text, bool& lossy);

// Every byte belongs to a character that code page 932 assigns.
bool isValidShiftJis(std::string_view text);

} // namespace tvk
