#include "common/numberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <locale>
#include <ostream>

namespace tvk {

namespace {

constexpr uint32_t kMicro = 1000000; // six decimals
constexpr int kRealDecimals = 6;
// The largest double has 309 digits before the point.
constexpr size_t kRealCapacity = 1 + 309 + 1 + kRealDecimals;

// The fraction (below one, in 1/2^bits units) as millionths, rounded to nearest with ties to even. With up to 16 bits
// the largest fraction is 0.999984…, so the result never carries into the whole number.
uint32_t toMillionths(uint32_t fraction, int bits) {
    const uint64_t product = static_cast<uint64_t>(fraction) * kMicro;
    const uint64_t unit = uint64_t{1} << bits;
    const auto floor = static_cast<uint32_t>(product >> bits);
    const uint64_t doubledRest = (product & (unit - 1)) * 2;
    const bool up = doubledRest > unit || (doubledRest == unit && (floor & 1) != 0);
    return floor + (up ? 1 : 0);
}

NumberText plainText(int64_t value) {
    std::array<char, NumberText::kCapacity> chars{};
    const auto end = std::to_chars(chars.data(), chars.data() + chars.size(), value);
    NumberText text;
    text.append({chars.data(), static_cast<size_t>(end.ptr - chars.data())});
    return text;
}

} // namespace

void NumberText::append(char c) {
    if (length < kCapacity)
        chars[length++] = c;
}

void NumberText::append(std::string_view text) {
    for (const char c : text)
        append(c);
}

std::ostream& operator<<(std::ostream& out, const NumberText& text) {
    const std::string_view chars = text.view();
    return out.write(chars.data(), static_cast<std::streamsize>(chars.size()));
}

NumberText integerText(int64_t value) {
    return plainText(value);
}

NumberText fixedText(int32_t value, bool raw, const FixedFormat& format) {
    if (raw)
        return plainText(value);
    // The magnitude in 64 bits: the lowest 32-bit value has no positive twin.
    const auto magnitude = static_cast<uint64_t>(std::abs(static_cast<int64_t>(value)));
    const uint64_t mask = (uint64_t{1} << format.fractionBits) - 1;
    uint32_t millionths = toMillionths(static_cast<uint32_t>(magnitude & mask), format.fractionBits);

    NumberText text;
    if (value < 0)
        text.append('-');
    text.append(plainText(static_cast<int64_t>(magnitude >> format.fractionBits)).view());
    std::array<char, 1 + kRealDecimals> tail{'.'};
    for (size_t i = kRealDecimals; i > 0; --i) {
        tail[i] = static_cast<char>('0' + millionths % 10);
        millionths /= 10;
    }
    text.append({tail.data(), tail.size()});
    return text;
}

NumberText hexText(uint32_t value, int digits) {
    NumberText text;
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4)
        text.append("0123456789abcdef"[(value >> shift) & 15]);
    return text;
}

NumberText twoDigitText(int value) {
    const int shown = std::max(value, 0);
    NumberText text;
    if (shown < 10)
        text.append('0');
    text.append(plainText(shown).view());
    return text;
}

NumberText minutesText(int64_t seconds) {
    const int64_t shown = std::max(seconds, int64_t{0});
    NumberText text = plainText(shown / 60);
    text.append(':');
    text.append(twoDigitText(static_cast<int>(shown % 60)).view());
    return text;
}

std::string realText(double value) {
    if (std::isnan(value))
        return "nan";
    std::array<char, kRealCapacity> chars{};
    const auto end =
        std::to_chars(chars.data(), chars.data() + chars.size(), value, std::chars_format::fixed, kRealDecimals);
    std::string text(chars.data(), end.ptr);
    return text == "-0.000000" ? "0.000000" : text;
}

std::string rightAligned(std::string_view text, size_t width) {
    std::string aligned(width > text.size() ? width - text.size() : 0, ' ');
    aligned += text;
    return aligned;
}

void writeFixed(std::ostream& out, int32_t value, bool raw, const FixedFormat& format) {
    out << fixedText(value, raw, format);
}

void writeReal(std::ostream& out, double value) {
    const std::string text = realText(value);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void setupStream(std::ostream& out) {
    out.imbue(std::locale::classic());
    out.setf(std::ios_base::dec, std::ios_base::basefield);
    out.setf(std::ios_base::left, std::ios_base::adjustfield);
    out.setf(std::ios_base::fixed, std::ios_base::floatfield);
    out.setf(std::ios_base::showpoint);
    out.unsetf(std::ios_base::showbase | std::ios_base::showpos | std::ios_base::uppercase | std::ios_base::boolalpha);
    out.fill(' ');
    out.width(0);
    out.precision(kRealDecimals);
}

} // namespace tvk
