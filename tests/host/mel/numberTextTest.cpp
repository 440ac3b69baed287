#include "host/mel/numberText.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

namespace host::mel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberCase {
    std::string_view text;
    double value;
    std::size_t length; // bytes that belong to the number
};

TEST(readNumberText, refusesWhatStartsNoNumber) {
    for (std::string_view text : {"", "+", "-", ".", "abc", "--1", "e5", "0x", "-.e3", "n", "in"}) {
        SCOPED_TRACE(text);
        double value = 7.0;
        EXPECT_EQ(readNumberText(text.data(), text.data() + text.size(), value), nullptr);
        EXPECT_EQ(value, 7.0);
    }
}

TEST(readNumberText, readsTheFormsOfAllWriters) {
    const std::vector<NumberCase> cases = {
        {"0", 0.0, 1},
        {"7;", 7.0, 1},
        {"+12", 12.0, 3},
        {"-34 ", -34.0, 3},
        {"123456789012345", 123456789012345.0, 15},
        {"1234567890123456", 1234567890123456.0, 16},
        {"18446744073709551616", 18446744073709551616.0, 20},
        {"0.1", 0.1, 3},
        {".5", 0.5, 2},
        {"5.", 5.0, 2},
        {"-27.938352729602379", -27.938352729602379, 19},
        {"1e+020", 1e20, 6},
        {"2.5e-005", 2.5e-5, 8},
        {"5.172681101354183E-14", 5.172681101354183e-14, 21},
        {"0x1F", 31.0, 4},
        {"4.9e-324", 4.9e-324, 8},
        {"2.2250738585072011e-308", 2.2250738585072011e-308, 23},
        {"1e400", kInfinity, 5},
        {"-1e400", -kInfinity, 6},
        {"1e-400", 0.0, 6},
        {"1e99999999999999999999", kInfinity, 22},
        {"1e-99999999999999999999", 0.0, 23},
        {"0.00000001e310", 1e302, 14},
        {"1.#INF", kInfinity, 6},
        {"-1.#INF00", -kInfinity, 9},
        {"inf", kInfinity, 3},
        {"-Infinity", -kInfinity, 9},
    };
    for (const NumberCase& row : cases) {
        SCOPED_TRACE(row.text);
        double value = 7.0;
        const char* end = readNumberText(row.text.data(), row.text.data() + row.text.size(), value);
        ASSERT_NE(end, nullptr);
        EXPECT_EQ(value, row.value);
        EXPECT_EQ(static_cast<std::size_t>(end - row.text.data()), row.length);
    }
}

TEST(readNumberText, readsEveryFormOfNotANumber) {
    for (std::string_view text :
         {"nan", "NaN", "-nan(ind)", "nan(snan)", "-1.#IND", "1.#QNAN", "1.#QNAN0", "1.#SNAN"}) {
        SCOPED_TRACE(text);
        double value = 7.0;
        const char* end = readNumberText(text.data(), text.data() + text.size(), value);
        EXPECT_EQ(end, text.data() + text.size());
        EXPECT_TRUE(std::isnan(value));
    }
}

TEST(readNumberText, roundsAsTheStandardLibraryDoes) {
    std::mt19937_64 random(99);
    for (int round = 0; round < 20000; ++round) {
        std::string text = std::to_string(random() >> (random() % 64));
        text.insert(random() % (text.size() + 1), ".");
        if (round % 4 == 0) {
            text += "e" + std::to_string(static_cast<int>(random() % 700) - 350);
        }
        double wanted = 0.0;
        if (std::from_chars(text.data(), text.data() + text.size(), wanted).ec != std::errc()) {
            continue; // out of range: the table above
        }
        double value = 0.0;
        const char* end = readNumberText(text.data(), text.data() + text.size(), value);
        ASSERT_EQ(end, text.data() + text.size()) << text;
        ASSERT_EQ(value, wanted) << text;
    }
}

TEST(readNumberText, keepsTheSignOfZero) {
    const std::string_view text = "-0";
    double value = 1.0;
    readNumberText(text.data(), text.data() + text.size(), value);
    EXPECT_TRUE(std::signbit(value));
}

TEST(leadingNumber, takesTheNumberAtTheStartOfAText) {
    EXPECT_EQ(leadingNumber(""), 0.0);
    EXPECT_EQ(leadingNumber("abc"), 0.0);
    EXPECT_EQ(leadingNumber("nan"), 0.0);
    EXPECT_EQ(leadingNumber("  -2.5 cm"), -2.5);
    EXPECT_EQ(leadingNumber("+3"), 3.0);
    EXPECT_EQ(leadingNumber("1e999"), kInfinity);
}

TEST(leadingInteger, cutsAndClamps) {
    EXPECT_EQ(leadingInteger("abc"), 0);
    EXPECT_EQ(leadingInteger("12abc"), 12);
    EXPECT_EQ(leadingInteger(" -7.9"), -7);
    EXPECT_EQ(leadingInteger("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(leadingInteger("9223372036854775808"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(leadingInteger("-1e30"), std::numeric_limits<std::int64_t>::min());
}

TEST(truncateToInteger, isDefinedForEveryValue) {
    EXPECT_EQ(truncateToInteger(-2.9), -2);
    EXPECT_EQ(truncateToInteger(std::nan("")), 0);
    EXPECT_EQ(truncateToInteger(kInfinity), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(truncateToInteger(-9223372036854775808.0), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(truncateToInteger(9223372036854775808.0), std::numeric_limits<std::int64_t>::max());
}

TEST(floatText, showsTenSignificantDigits) {
    EXPECT_EQ(floatText(1.0), "1");
    EXPECT_EQ(floatText(0.1 + 0.2), "0.3");
    EXPECT_EQ(floatText(1.0 / 3.0), "0.3333333333");
    EXPECT_EQ(floatText(1e10), "1e+10");
    EXPECT_EQ(floatText(-1234567890.5), "-1234567890"); // ten digits; half goes to even
    EXPECT_EQ(floatText(1e20), "1e+20");
    EXPECT_EQ(floatText(-1.5e-7), "-1.5e-07");
    EXPECT_EQ(floatText(-0.0), "-0");
    EXPECT_EQ(floatText(kInfinity), "inf");
}

} // namespace
} // namespace host::mel
