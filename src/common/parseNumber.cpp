#include "common/parseNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace tvk {

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The rest of a text that is being read; one past its end reads as NUL.
struct Cursor {
    std::string_view rest;

    char peek(size_t ahead = 0) const { return ahead < rest.size() ? rest[ahead] : '\0'; }
    void skip(size_t count) { rest.remove_prefix(count); }

    // Skips white space and one sign; true when the sign was a minus.
    bool skipToNumber() {
        while (!rest.empty() && isSpace(rest.front()))
            skip(1);
        const bool negative = peek() == '-';
        if (negative || peek() == '+')
            skip(1);
        return negative;
    }

    // `word` is lowercase letters; the text may have either case.
    bool beginsWith(std::string_view word) const {
        return rest.size() >= word.size() && std::equal(word.begin(), word.end(), rest.begin(), [](char lower, char c) {
                   return c == lower || c == lower - 'a' + 'A';
               });
    }
};

size_t countDigits(std::string_view text, size_t from) {
    size_t end = from;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - from;
}

// An unsigned decimal number at the start of a text.
struct DecimalSpan {
    size_t wholeDigits = 0;
    size_t mantissaLength = 0; // whole digits, point and fraction; 0 when there is no digit
    size_t length = 0;         // with the exponent
};

DecimalSpan findDecimal(std::string_view text) {
    DecimalSpan span;
    span.wholeDigits = countDigits(text, 0);
    size_t end = span.wholeDigits;
    size_t digits = span.wholeDigits;
    if (end < text.size() && text[end] == '.') {
        const size_t fraction = countDigits(text, end + 1);
        digits += fraction;
        end += 1 + fraction;
    }
    if (digits == 0)
        return {};
    span.mantissaLength = end;
    span.length = end;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const size_t sign = end + 1 < text.size() && (text[end + 1] == '+' || text[end + 1] == '-') ? 1 : 0;
        const size_t exponentDigits = countDigits(text, end + 1 + sign);
        if (exponentDigits > 0) // else the 'e' belongs to what follows
            span.length = end + 1 + sign + exponentDigits;
    }
    return span;
}

// The power of ten of the first digit that is not 0: 0 for "1.5", 2 for "150", -3 for "0.0015e0". Only for numbers
// that have such a digit.
int64_t leadingPower(std::string_view number, const DecimalSpan& span) {
    const size_t first = number.find_first_of("123456789");
    const auto whole = static_cast<int64_t>(span.wholeDigits);
    const auto place = static_cast<int64_t>(first);
    const int64_t position = first < span.wholeDigits ? whole - 1 - place : whole - place;
    int64_t exponent = 0;
    if (span.length > span.mantissaLength)
        exponent = parseInteger(number.substr(span.mantissaLength + 1));
    return position + exponent;
}

double readDecimal(std::string_view number, const DecimalSpan& span) {
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    // The standard reader does not say on which side the value left the range.
    return leadingPower(number, span) > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

} // namespace

int32_t parseInteger(std::string_view text) {
    Cursor cursor{text};
    const bool negative = cursor.skipToNumber();
    constexpr int64_t kHighest = std::numeric_limits<int32_t>::max();
    const int64_t limit = negative ? kHighest + 1 : kHighest;
    int64_t value = 0;
    for (; isDigit(cursor.peek()); cursor.skip(1))
        value = std::min(value * 10 + (cursor.peek() - '0'), limit);
    return static_cast<int32_t>(negative ? -value : value);
}

double parseReal(std::string_view text) {
    Cursor cursor{text};
    const bool negative = cursor.skipToNumber();
    double value = 0.0;
    if (cursor.beginsWith("inf")) {
        value = std::numeric_limits<double>::infinity();
    } else {
        const DecimalSpan span = findDecimal(cursor.rest);
        if (span.length == 0)
            return 0.0;
        value = readDecimal(cursor.rest.substr(0, span.length), span);
    }
    return negative ? -value : value;
}

} // namespace tvk
