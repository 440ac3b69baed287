#pragma once

#include "common/fixedPoint.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace tvk {

// The characters of one number, held in place: making one allocates nothing and asks no locale.
class NumberText {
public:
    // Longest: a 64-bit integer with its sign.
    static constexpr size_t kCapacity = 20;

    std::string_view view() const { return {chars.data(), length}; }
    std::string str() const { return std::string(view()); }

    // Appends one character; beyond kCapacity it is dropped.
    void append(char c);
    void append(std::string_view text);

private:
    std::array<char, kCapacity> chars{};
    size_t length = 0;
};

// Writes the characters as they are; field width, fill and number flags of the stream do not touch them.
std::ostream& operator<<(std::ostream& out, const NumberText& text);

// Plain decimal: "-7", "0", "65536".
NumberText integerText(int64_t value);

// A fixed-point value: the plain integer when `raw`, else the integer times its unit with exactly six decimals,
// rounded to nearest with ties to the even digit (what the fixed notation of a stream gives for the same double).
// 410 gives "0.100098"; 0 gives "0.000000"; a minus sign never stands before zero.
NumberText fixedText(int32_t value, bool raw, const FixedFormat& format = kFixed12);

// `digits` (1 to 8) lowercase hexadecimal digits, zero-padded; higher digits of the value are left out.
NumberText hexText(uint32_t value, int digits = 4);

// At least two decimal digits, as in dates and clock times: "05", "42", "107". Negative values give "00".
NumberText twoDigitText(int value);

// Whole minutes and remaining seconds: 75 gives "1:15", 65 gives "1:05". Negative values (a clock that was set
// back) give "0:00".
NumberText minutesText(int64_t seconds);

// Any double with exactly six decimals, rounded from its exact value. "-0.000000" becomes "0.000000"; values that
// are not finite give "nan", "inf", "-inf".
std::string realText(double value);

// `text` with blanks in front up to `width` bytes; longer text stays as it is.
std::string rightAligned(std::string_view text, size_t width);

// fixedText and realText onto a stream, untouched by its flags.
void writeFixed(std::ostream& out, int32_t value, bool raw, const FixedFormat& format = kFixed12);
void writeReal(std::ostream& out, double value);

// The settings that every output file and message stream gets: the classic locale, decimal integers, blank fill, left
// adjustment, fixed notation with the point always shown and six decimals. Error state and buffer stay.
void setupStream(std::ostream& out);

} // namespace tvk
