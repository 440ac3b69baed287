#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace host::mel {

// Reads the number that starts at first, without regard to the locale, and returns where it ends; null when no number
// starts there. Takes either sign, decimal and exponent forms, hexadecimal integers, nan and inf with their variants
// (nan(ind), 1.#INF, 1.#QNAN0 …). Too large gives infinity, too small zero. What follows the number is not looked at.
const char* readNumberText(const char* first, const char* last, double& value);

// The number that a text starts with after blanks, as MEL converts strings; 0 when it starts with none. Words (nan,
// inf) and hexadecimal forms count as none.
double leadingNumber(std::string_view text);
std::int64_t leadingInteger(std::string_view text); // cut towards zero, clamped

// Cut towards zero, clamped to 64 bits; NaN gives 0.
std::int64_t truncateToInteger(double value);

// As MEL shows a float: up to 10 significant digits, no trailing zeros, the shorter of plain and exponent form.
std::string floatText(double value);

} // namespace host::mel
