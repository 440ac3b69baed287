#include "common/parseNumber.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace tvk {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ParseInteger, TextThatIsNoNumberGivesZero) {
    constexpr const char* kNoBreakSpaceAnd5 = "\xC2\xA0\x35";
    constexpr const char* kFullWidth5 = "\xEF\xBC\x95";
    for (const char* text : {"", " ", "x", "-", "+", "- 5", "+-5", "--5", ".5", "e5", kNoBreakSpaceAnd5, kFullWidth5})
        EXPECT_EQ(parseInteger(text), 0) << text;
}

TEST(ParseInteger, ReadsBlanksSignAndDigits) {
    const struct {
        const char* text;
        int32_t expected;
    } cases[] = {{"0", 0},     {"7", 7},      {"+7", 7},  {"-7", -7},   {"  42", 42}, {"\t\n\v\f\r 42", 42},
                 {"0042", 42}, {"12abc", 12}, {"1.9", 1}, {"-1.9", -1}, {"1e3", 1},   {"0x10", 0},
                 {"1,234", 1}, {"1 2", 1},    {"-0", 0},  {"40;", 40}};
    for (const auto& c : cases)
        EXPECT_EQ(parseInteger(c.text), c.expected) << c.text;
}

TEST(ParseInteger, Saturates) {
    const struct {
        const char* text;
        int32_t expected;
    } cases[] = {{"2147483646", 2147483646},
                 {"2147483647", 2147483647},
                 {"2147483648", 2147483647},
                 {"-2147483647", -2147483647},
                 {"-2147483648", std::numeric_limits<int32_t>::min()},
                 {"-2147483649", std::numeric_limits<int32_t>::min()},
                 {"99999999999999999999999999", 2147483647},
                 {"-99999999999999999999999999", std::numeric_limits<int32_t>::min()}};
    for (const auto& c : cases)
        EXPECT_EQ(parseInteger(c.text), c.expected) << c.text;
}

TEST(ParseInteger, StopsAtTheEndOfTheView) {
    EXPECT_EQ(parseInteger(std::string_view("12345", 2)), 12);
}

TEST(ParseReal, TextThatIsNoNumberGivesZero) {
    for (const char* text :
         {"", " ", "x", "-", "+", ".", "-.", "e5", ".e5", "+-1", "- 1", "in", "nan", "NAN", "-nan", "nan(1)", ",5"}) {
        EXPECT_EQ(parseReal(text), 0.0) << text;
        EXPECT_FALSE(std::signbit(parseReal(text))) << text;
    }
}

TEST(ParseReal, ReadsDecimalsAndExponents) {
    const struct {
        const char* text;
        double expected;
    } cases[] = {{"1", 1.0},
                 {"+1.5", 1.5},
                 {"-1.5", -1.5},
                 {"  2.5", 2.5},
                 {".5", 0.5},
                 {"5.", 5.0},
                 {"5.e1", 50.0},
                 {"1e3", 1000.0},
                 {"1E+3", 1000.0},
                 {"1e-3", 0.001},
                 {"1e", 1.0},
                 {"1e+", 1.0},
                 {"1e x", 1.0},
                 {"1.2.3", 1.2},
                 {"1,5", 1.0},
                 {"0.1;", 0.1},
                 {"0x10", 0.0},
                 {"0x1p3", 0.0},
                 {"00012.50", 12.5},
                 {"1_000", 1.0},
                 {"inf", kInfinity},
                 {"-INF", -kInfinity},
                 {"+Infinity", kInfinity},
                 {" infx", kInfinity},
                 {"0.1", 0.1},
                 {"123456789012345678901234567890", 123456789012345678901234567890.0}};
    for (const auto& c : cases)
        EXPECT_EQ(parseReal(c.text), c.expected) << c.text;
}

TEST(ParseReal, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(parseReal("-0.0")));
    EXPECT_FALSE(std::signbit(parseReal("0.0")));
    EXPECT_TRUE(std::signbit(parseReal("-1e-999")));
}

TEST(ParseReal, OutOfRangeGivesInfinityOrZero) {
    const std::string zeros(400, '0');
    const struct {
        std::string text;
        double expected;
    } cases[] = {{"1e308", 1e308},
                 {"1.7976931348623157e308", std::numeric_limits<double>::max()},
                 {"1.7976931348623159e308", kInfinity},
                 {"1e309", kInfinity},
                 {"-1e309", -kInfinity},
                 {"1e999999999999999999999", kInfinity},
                 {"1e-999999999999999999999", 0.0},
                 {"0e999999999999999999999", 0.0},
                 {"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
                 {"1e-400", 0.0},
                 {"1" + zeros, kInfinity},
                 {"0." + zeros + "1", 0.0},
                 {"1" + zeros + "e-400", 1.0},
                 {"0." + zeros + "1e401", 1.0},
                 {"1" + zeros + "e-800", 0.0},
                 {"0." + zeros + "1e800", kInfinity}};
    for (const auto& c : cases)
        EXPECT_EQ(parseReal(c.text), c.expected) << c.text;
}

// Halfway cases that need every digit: 1 + 2^-53 exactly, and a hair to either side.
TEST(ParseReal, RoundsCorrectly) {
    EXPECT_EQ(parseReal("1.00000000000000011102230246251565404236316680908203125"), 1.0);
    EXPECT_EQ(parseReal("1.00000000000000011102230246251565404236316680908203124"), 1.0);
    EXPECT_EQ(parseReal("1.00000000000000011102230246251565404236316680908203126"), 1.0000000000000002);
    EXPECT_EQ(parseReal("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(parseReal("2.2250738585072011e-308"), 2.2250738585072011e-308);
}

TEST(ParseReal, ShortestTextOfRandomDoublesComesBack) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 100000; ++i) {
        const uint64_t bits = random();
        double value = 0.0;
        static_assert(sizeof value == sizeof bits);
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        char chars[40];
        const auto end = std::to_chars(chars, chars + sizeof chars, value);
        ASSERT_EQ(parseReal({chars, static_cast<size_t>(end.ptr - chars)}), value);
    }
}

std::string randomNumberLikeText(std::mt19937& random) {
    constexpr std::string_view kAlphabet = "0123456789012345678.eE+-xn";
    std::uniform_int_distribution<size_t> length(0, 12);
    std::uniform_int_distribution<size_t> letter(0, kAlphabet.size() - 1);
    std::string text;
    for (size_t left = length(random); left > 0; --left)
        text += kAlphabet[letter(random)];
    return text;
}

// The standard reader knows no '+' in front, reads "nan", and leaves the value alone when it is out of range.
double byStandardReader(std::string_view text) {
    const bool plus = !text.empty() && text.front() == '+';
    if (plus)
        text.remove_prefix(1);
    if (plus && !text.empty() && text.front() == '-')
        return 0.0;
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    EXPECT_NE(result.ec, std::errc::result_out_of_range);
    return std::isnan(value) ? 0.0 : value;
}

TEST(ParseReal, AgreesWithTheStandardReaderOnRandomText) {
    std::mt19937 random(11);
    int checked = 0;
    for (int i = 0; i < 300000; ++i) {
        const std::string text = randomNumberLikeText(random);
        const double value = parseReal(text);
        if (!std::isfinite(value) || std::abs(value) > 1e300 || (value != 0.0 && std::abs(value) < 1e-300))
            continue;
        if (value == 0.0 && text.find_first_of("eE") != std::string::npos)
            continue; // may be an underflow; those have their own cases
        ASSERT_EQ(value, byStandardReader(text)) << text;
        ++checked;
    }
    EXPECT_GT(checked, 100000);
}

// strtod in the C locale is what the format's reference tools read numbers with.
TEST(ParseReal, AgreesWithStrtodOnRandomText) {
    std::mt19937 random(13);
    for (int i = 0; i < 300000; ++i) {
        const std::string text = randomNumberLikeText(random);
        if (text.find_first_of("xn") != std::string::npos)
            continue; // hexadecimal floats and "nan" are not read here
        ASSERT_EQ(parseReal(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(ParseReal, ThePointIsAPointInEveryLocale) {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "ja_JP.UTF-8", "ja_JP.SJIS", "C"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            EXPECT_EQ(parseReal("0.5"), 0.5) << name;
            EXPECT_EQ(parseReal("0,5"), 0.0) << name;
        }
    }
    std::setlocale(LC_ALL, "C");
}

} // namespace
} // namespace tvk
