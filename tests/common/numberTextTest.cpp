#include "common/numberText.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <vector>

namespace tvk {
namespace {

constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();
constexpr int32_t kHighest = std::numeric_limits<int32_t>::max();

// Decimal commas and grouping, as a German or Japanese desktop has them, without needing such a locale installed.
class ForeignPunctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
    std::string do_truename() const override { return "wahr"; }
};

// Makes the foreign punctuation global for a test.
class ForeignLocale {
public:
    ForeignLocale() : previous(std::locale::global(std::locale(std::locale::classic(), new ForeignPunctuation))) {}
    ~ForeignLocale() { std::locale::global(previous); }

private:
    std::locale previous;
};

std::string byStream(double value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << std::fixed << std::showpoint << std::setprecision(6) << value;
    return out.str();
}

TEST(NumberText, FixedHasSixDecimals) {
    const struct {
        int32_t value;
        const char* expected;
    } cases[] = {{0, "0.000000"},
                 {1, "0.000244"},
                 {-1, "-0.000244"},
                 {410, "0.100098"},
                 {-410, "-0.100098"},
                 {4095, "0.999756"},
                 {-4095, "-0.999756"},
                 {4096, "1.000000"},
                 {-4096, "-1.000000"},
                 {737280, "180.000000"},
                 {2048, "0.500000"},
                 {kHighest, "524287.999756"},
                 {kLowest, "-524288.000000"}};
    for (const auto& c : cases)
        EXPECT_EQ(fixedText(c.value, false).view(), c.expected);
}

// 32/4096 is 0.0078125 exactly, a tie in the sixth decimal.
TEST(NumberText, TiesGoToTheEvenDigit) {
    EXPECT_EQ(fixedText(32, false).view(), "0.007812");
    EXPECT_EQ(fixedText(-32, false).view(), "-0.007812");
    EXPECT_EQ(fixedText(96, false).view(), "0.023438");
}

TEST(NumberText, RawIsThePlainInteger) {
    EXPECT_EQ(fixedText(410, true).view(), "410");
    EXPECT_EQ(fixedText(-4096, true).view(), "-4096");
    EXPECT_EQ(fixedText(0, true).view(), "0");
    EXPECT_EQ(fixedText(kLowest, true).view(), "-2147483648");
    EXPECT_EQ(fixedText(-512, true, kFixedNormal).view(), "-512");
}

TEST(NumberText, EveryFractionEqualsTheStreamsText) {
    for (const FixedFormat& format : {kFixed12, kFixedNormal, kFixedTexel}) {
        for (int32_t value = -2 * 4096; value <= 2 * 4096; ++value)
            ASSERT_EQ(fixedText(value, false, format).view(), byStream(fromFixed(value, format))) << value;
    }
}

TEST(NumberText, RandomValuesEqualTheStreamsText) {
    std::mt19937 random(20061003);
    std::uniform_int_distribution<int32_t> anyValue(kLowest, kHighest);
    for (int i = 0; i < 200000; ++i) {
        const int32_t value = anyValue(random);
        ASSERT_EQ(fixedText(value, false).view(), byStream(fromFixed(value))) << value;
        ASSERT_EQ(fixedText(value, false, kFixedTexel).view(), byStream(fromFixed(value, kFixedTexel))) << value;
    }
}

TEST(NumberText, IntegersArePlain) {
    EXPECT_EQ(integerText(0).view(), "0");
    EXPECT_EQ(integerText(-7).view(), "-7");
    EXPECT_EQ(integerText(65536).view(), "65536");
    EXPECT_EQ(integerText(std::numeric_limits<int64_t>::min()).view(), "-9223372036854775808");
    EXPECT_EQ(integerText(std::numeric_limits<int64_t>::max()).view(), "9223372036854775807");
}

TEST(NumberText, HexadecimalWordsAreLowercaseAndZeroPadded) {
    EXPECT_EQ(hexText(0x1f).view(), "001f");
    EXPECT_EQ(hexText(0).view(), "0000");
    EXPECT_EQ(hexText(0xABCD).view(), "abcd");
    EXPECT_EQ(hexText(0x12ABCD).view(), "abcd");
    EXPECT_EQ(hexText(0xDEADBEEF, 8).view(), "deadbeef");
    EXPECT_EQ(hexText(0x5, 8).view(), "00000005");
}

TEST(NumberText, TwoDigits) {
    const struct {
        int value;
        const char* expected;
    } cases[] = {{-1, "00"}, {0, "00"}, {5, "05"}, {9, "09"}, {10, "10"}, {59, "59"}, {107, "107"}};
    for (const auto& c : cases)
        EXPECT_EQ(twoDigitText(c.value).view(), c.expected);
}

TEST(NumberText, MinutesAndSeconds) {
    const struct {
        int64_t seconds;
        const char* expected;
    } cases[] = {{-3, "0:00"}, {0, "0:00"},  {59, "0:59"},       {60, "1:00"},
                 {65, "1:05"}, {75, "1:15"}, {360007, "6000:07"}};
    for (const auto& c : cases)
        EXPECT_EQ(minutesText(c.seconds).view(), c.expected);
}

TEST(NumberText, RealsHaveSixDecimalsFromTheirExactValue) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {{1.0, "1.000000"},
                 {2.0, "2.000000"},
                 {0.1, "0.100000"},
                 {static_cast<double>(0.1F), "0.100000"},
                 {static_cast<double>(0.01F), "0.010000"},
                 {-1234567.891, "-1234567.891000"},
                 {0.0000005, "0.000000"}, // the double is just below the tie
                 {0.0000015, "0.000002"},
                 {1e22, "10000000000000000000000.000000"}};
    for (const auto& c : cases)
        EXPECT_EQ(realText(c.value), c.expected);
}

TEST(NumberText, RealsNeverShowNegativeZero) {
    EXPECT_EQ(realText(-0.0), "0.000000");
    EXPECT_EQ(realText(-1e-9), "0.000000");
    EXPECT_EQ(realText(-1e-6), "-0.000001");
}

TEST(NumberText, RealsThatAreNotFinite) {
    EXPECT_EQ(realText(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(realText(-std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(realText(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(realText(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(NumberText, TheLargestRealsFit) {
    for (const double value : {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()})
        EXPECT_EQ(realText(value), byStream(value));
}

TEST(NumberText, RightAlignmentPadsAndNeverCuts) {
    EXPECT_EQ(rightAligned("42", 6), "    42");
    EXPECT_EQ(rightAligned("123456", 6), "123456");
    EXPECT_EQ(rightAligned("1234567", 6), "1234567");
    EXPECT_EQ(rightAligned("", 2), "  ");
}

TEST(NumberText, CharactersBeyondTheCapacityAreDropped) {
    NumberText text;
    text.append("0123456789012345678");
    text.append("9x");
    EXPECT_EQ(text.view(), "01234567890123456789");
    EXPECT_EQ(text.str(), "01234567890123456789");
}

TEST(NumberText, StreamFlagsDoNotTouchWrittenNumbers) {
    const ForeignLocale foreign;
    std::ostringstream out; // takes the foreign global locale
    out << std::hex << std::showpos << std::scientific << std::setfill('#') << std::setw(30);
    writeFixed(out, 1234 * 4096 + 2048, false);
    out.put('|');
    writeFixed(out, -5000000, true);
    out.put('|');
    writeFixed(out, 511, false, kFixedNormal);
    out.put('|');
    writeReal(out, 1234567.5);
    out.put('|');
    out << integerText(1234567);
    EXPECT_EQ(out.str(), "1234.500000|-5000000|0.998047|1234567.500000|1234567");
}

TEST(StreamSetup, GivesTheSharedNumberFormat) {
    const ForeignLocale foreign;
    std::ostringstream out;
    out << std::hex << std::showbase << std::showpos << std::uppercase << std::boolalpha << std::right
        << std::scientific;
    out << std::setfill('0') << std::setprecision(2);
    setupStream(out);
    out << 1234567 << ' ' << 1.0 << ' ' << 0.1 << ' ' << 1234567.0 << ' ' << true << '[' << std::setw(4) << 7 << ']';
    EXPECT_EQ(out.str(), "1234567 1.000000 0.100000 1234567.000000 1[7   ]");
}

TEST(StreamSetup, KeepsErrorStateAndUnbufferedOutput) {
    std::ostringstream out;
    out << std::unitbuf;
    out.setstate(std::ios_base::badbit);
    setupStream(out);
    EXPECT_TRUE(out.bad());
    EXPECT_NE(out.flags() & std::ios_base::unitbuf, 0);
}

} // namespace
} // namespace tvk
