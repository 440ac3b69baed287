#include "host/mel/numberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace host::mel {

namespace {

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

char lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

// Returns where word ends if the text starts with it in any case, else null.
const char* skipWord(const char* first, const char* last, std::string_view word) {
    for (char wanted : word) {
        if (first == last || lowered(*first) != wanted) {
            return nullptr;
        }
        ++first;
    }
    return first;
}

struct SpecialForm {
    std::string_view text;
    double value;
    bool hasPadding; // the C library of Windows pads to its field width with zeros: 1.#INF00
};

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Longer forms stand before their own beginnings.
constexpr std::array<SpecialForm, 9> kSpecialForms = {{
    {"1.#inf", kInfinity, true},
    {"1.#ind", kNan, true},
    {"1.#qnan", kNan, true},
    {"1.#snan", kNan, true},
    {"nan(ind)", kNan, false},
    {"nan(snan)", kNan, false},
    {"nan", kNan, false},
    {"infinity", kInfinity, false},
    {"inf", kInfinity, false},
}};

const char* readSpecial(const char* first, const char* last, double& value) {
    for (const SpecialForm& form : kSpecialForms) {
        const char* next = skipWord(first, last, form.text);
        if (next == nullptr) {
            continue;
        }
        while (form.hasPadding && next != last && isDigit(*next)) {
            ++next;
        }
        value = form.value;
        return next;
    }
    return nullptr;
}

// from_chars does not tell on which side of the range a number lies: the place of its first digit that is not 0 does.
double outOfRangeValue(const char* first, const char* last) {
    int place = 0;
    bool seenPoint = false;
    bool seenDigit = false;
    for (; first != last && lowered(*first) != 'e'; ++first) {
        seenPoint = seenPoint || *first == '.';
        seenDigit = seenDigit || (*first >= '1' && *first <= '9');
        if (*first == '.') {
            continue;
        }
        place += seenPoint ? (seenDigit ? 0 : -1) : (seenDigit ? 1 : 0);
    }
    std::int64_t exponent = 0;
    if (first != last) {
        const char* digits = first + 1 != last && first[1] == '+' ? first + 2 : first + 1;
        if (std::from_chars(digits, last, exponent).ec == std::errc::result_out_of_range) {
            return *digits == '-' ? 0.0 : kInfinity;
        }
    }
    return static_cast<double>(exponent) + place > 0 ? kInfinity : 0.0;
}

const char* readHexadecimal(const char* first, const char* last, double& value) {
    std::uint64_t digits = 0;
    const auto [next, error] = std::from_chars(first + 2, last, digits, 16);
    if (error != std::errc()) {
        return nullptr;
    }
    value = static_cast<double>(digits);
    return next;
}

// Powers of ten that a double holds exactly.
constexpr std::array<double, 16> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Reads digits, at most one point among them, if they are so few that they and the power of ten below them are exact
// doubles: one division then rounds correctly, at a fraction of what the general way costs. Else null.
const char* readShort(const char* first, const char* last, double& value) {
    constexpr std::ptrdiff_t kExactDigits = 15;
    std::uint64_t digits = 0;
    const char* point = nullptr;
    const char* next = first;
    for (; next != last && next - first <= kExactDigits + 1; ++next) {
        if (isDigit(*next)) {
            digits = digits * 10 + static_cast<std::uint64_t>(*next - '0');
        } else if (*next == '.' && point == nullptr) {
            point = next;
        } else {
            break;
        }
    }
    const std::ptrdiff_t digitCount = next - first - (point != nullptr ? 1 : 0);
    const bool isEnd =
        next == last || !(isDigit(*next) || *next == '#' || lowered(*next) == 'e' || lowered(*next) == 'x');
    if (!isEnd || digitCount == 0 || digitCount > kExactDigits) {
        return nullptr;
    }
    const std::ptrdiff_t fraction = point != nullptr ? next - point - 1 : 0;
    value = static_cast<double>(digits) / kPowersOfTen[static_cast<std::size_t>(fraction)];
    return next;
}

// Four digits at this place are nearly always the middle of a number that readShort would give up on. A wrong guess
// costs time only.
bool looksLong(const char* first, const char* last) {
    return last - first > 12 && isDigit(first[9]) && isDigit(first[10]) && isDigit(first[11]) && isDigit(first[12]);
}

const char* readUnsigned(const char* first, const char* last, double& value) {
    const char* next = looksLong(first, last) ? nullptr : readShort(first, last, value);
    if (next != nullptr) {
        return next;
    }
    if (last - first > 1 && *first == '0' && lowered(first[1]) == 'x') {
        return readHexadecimal(first, last, value);
    }
    if (first == last || !(isDigit(*first) || *first == '.') || (last - first > 2 && first[2] == '#')) {
        return readSpecial(first, last, value);
    }
    const auto [end, error] = std::from_chars(first, last, value);
    if (error == std::errc::result_out_of_range) {
        value = outOfRangeValue(first, end);
        return end;
    }
    return error == std::errc() ? end : nullptr;
}

} // namespace

const char* readNumberText(const char* first, const char* last, double& value) {
    const bool hasSign = first != last && (*first == '-' || *first == '+');
    const bool isNegative = hasSign && *first == '-';
    double magnitude = 0.0;
    const char* next = readUnsigned(hasSign ? first + 1 : first, last, magnitude);
    if (next != nullptr) {
        value = isNegative ? -magnitude : magnitude;
    }
    return next;
}

double leadingNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) {
        return 0.0;
    }
    text.remove_prefix(start);
    const char* last = text.data() + text.size();
    const bool hasSign = text.front() == '-' || text.front() == '+';
    const char* digits = text.data() + (hasSign ? 1 : 0);
    if (digits == last || !(isDigit(*digits) || *digits == '.')) {
        return 0.0;
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(digits, last, value);
    if (error == std::errc::result_out_of_range) {
        value = outOfRangeValue(digits, end);
    }
    return text.front() == '-' ? -value : value;
}

std::int64_t leadingInteger(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    std::int64_t whole = 0;
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, whole);
    const bool isWhole = error == std::errc() && (end == last || (*end != '.' && lowered(*end) != 'e'));
    return isWhole ? whole : truncateToInteger(leadingNumber(text));
}

std::int64_t truncateToInteger(double value) {
    constexpr double kLimit = 9223372036854775808.0; // 2^63, the first value that does not fit
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= kLimit) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (value < -kLimit) {
        return std::numeric_limits<std::int64_t>::min();
    }
    return static_cast<std::int64_t>(value);
}

std::string floatText(double value) {
    constexpr int kDigits = 10;
    std::array<char, 40> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, kDigits);
    return std::string(buffer.data(), result.ptr);
}

} // namespace host::mel
