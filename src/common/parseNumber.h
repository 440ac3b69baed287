#pragma once

#include <cstdint>
#include <string_view>

namespace tvk {

// Readers of numbers that people or scripts typed. Neither asks a locale: the decimal point is always '.'.
// Both skip leading white space (blank, tab, line feed, vertical tab, form feed, carriage return), take one sign, and
// stop at the first character that cannot go on the number; what follows is ignored. No number gives 0.

// Decimal digits only ("0x10" gives 0). Values beyond 32 bits give the nearest limit.
int32_t parseInteger(std::string_view text);

// Decimal digits with an optional point and exponent, or "inf" / "infinity" in any case; correctly rounded. Too large
// gives an infinity, too small a signed zero. "nan" is no number and gives 0: the result is never not-a-number.
// Hexadecimal floats are not read ("0x1p3" gives 0).
double parseReal(std::string_view text);

} // namespace tvk
