#include "host/mel/Lexer.h"

#include "host/mel/characterClass.h"
#include "host/mel/numberText.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace host::mel {

namespace {

// Blanks only: the common case between two numbers. Comments take the slow way through skipBlanks.
const char* skipPlainBlanks(const char* first, const char* last) {
    while (first != last && isOf(*first, kBlankByte)) {
        ++first;
    }
    return first;
}

bool mayStartNumber(char byte) {
    switch (byte) {
    case '+':
    case '-':
    case '.':
    case 'n':
    case 'N':
    case 'i':
    case 'I':
        return true;
    default:
        return isOf(byte, kDigitByte);
    }
}

float narrowed(double value) {
    constexpr double kLimit = std::numeric_limits<float>::max();
    if (std::fabs(value) <= kLimit || std::isnan(value)) {
        return static_cast<float>(value);
    }
    return std::copysign(std::numeric_limits<float>::infinity(), value > 0.0 ? 1.0F : -1.0F);
}

} // namespace

bool Lexer::readNumber(double& value) {
    const std::size_t start = offset_;
    const char* first = skipPlainBlanks(begin() + offset_, end());
    if (first != end() && *first == '/') {
        Token error;
        if (!skipBlanks(error)) {
            offset_ = start;
            return false;
        }
        first = begin() + offset_;
    }
    if (first != end() && mayStartNumber(*first)) {
        const char* next = readNumberText(first, end(), value);
        if (next != nullptr && (next == end() || isOf(*next, kNumberEndByte))) {
            offset_ = static_cast<std::size_t>(next - begin());
            return true;
        }
    }
    offset_ = start;
    return false;
}

bool Lexer::readInteger(std::int64_t& value) {
    const std::size_t start = offset_;
    double number = 0.0;
    if (!readNumber(number)) {
        return false;
    }
    constexpr double kExact = 9007199254740992.0;    // 2^53: below it a double holds every integer
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    if (std::fabs(number) < kExact) {
        value = static_cast<std::int64_t>(number);
        return true;
    }
    Token ignored;
    offset_ = start;
    skipBlanks(ignored);
    const std::string_view word = takeWord().text;
    const char* last = word.data() + word.size();
    const auto [next, error] = std::from_chars(word.data() + (word.front() == '+' ? 1 : 0), last, value);
    if (error == std::errc() && next == last) {
        return true;
    }
    if (std::fabs(number) < kLimit) {
        value = static_cast<std::int64_t>(number);
        return true;
    }
    offset_ = start;
    return false;
}

std::size_t Lexer::readNumbers(double* values, std::size_t count) {
    std::size_t read = 0;
    while (read < count && readNumber(values[read])) {
        ++read;
    }
    return read;
}

std::size_t Lexer::readNumbers(float* values, std::size_t count) {
    std::size_t read = 0;
    for (double value = 0.0; read < count && readNumber(value); ++read) {
        values[read] = narrowed(value);
    }
    return read;
}

} // namespace host::mel
