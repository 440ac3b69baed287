#include "host/api/values/numberText.h"

#include <charconv>
#include <cmath>

namespace host::api {

namespace {

constexpr double kLargestPlainWhole = 9007199254740992.0; // beyond it neighbouring doubles are more than 1 apart
constexpr int kSignificantDigits = 10;

} // namespace

std::string numberText(double number) {
    char text[40];
    const bool whole = std::fabs(number) <= kLargestPlainWhole && number == std::trunc(number);
    const std::to_chars_result end =
        whole ? std::to_chars(text, text + sizeof text, number, std::chars_format::fixed)
              : std::to_chars(text, text + sizeof text, number, std::chars_format::general, kSignificantDigits);
    return std::string(text, end.ptr);
}

} // namespace host::api
