#include <maya/MString.h>

#include <maya/MStringArray.h>

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Three characters in Japanese, nine bytes.
constexpr const char* kKanji = "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E";

std::vector<std::string> split(const char* text, char separator) {
    MStringArray pieces;
    EXPECT_TRUE(MString(text).split(separator, pieces)) << text;
    std::vector<std::string> result;
    for (unsigned int i = 0; i < pieces.length(); ++i) {
        result.emplace_back(pieces[i].asChar());
    }
    return result;
}

using Pieces = std::vector<std::string>;

TEST(MString, NullAndNegativeLengthAreEmpty) {
    EXPECT_EQ(MString(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(MString("abc", -1), "");
    MString text("x");
    text = static_cast<const char*>(nullptr);
    EXPECT_EQ(text.length(), 0U);
    EXPECT_TRUE(text == static_cast<const char*>(nullptr));
}

TEST(MString, SplitOfAnEmptyTextFailsAndGivesNoPiece) {
    MStringArray pieces(2, "old");
    EXPECT_FALSE(MString("").split('/', pieces));
    EXPECT_EQ(pieces.length(), 0U);
}

TEST(MString, SplitGivesNoEmptyPieces) {
    EXPECT_EQ(split("a/b/", '/'), (Pieces{"a", "b"}));
    EXPECT_EQ(split("a=", '='), (Pieces{"a"}));
    EXPECT_EQ(split("=a==b", '='), (Pieces{"a", "b"}));
    EXPECT_EQ(split("whole", '/'), (Pieces{"whole"}));
    EXPECT_EQ(split("///", '/'), Pieces());
}

TEST(MString, SplitReplacesTheArrayEvenWhenTheTextIsInIt) {
    MStringArray pieces(1, "a|b|c");
    EXPECT_TRUE(pieces[0].split('|', pieces));
    ASSERT_EQ(pieces.length(), 3U);
    EXPECT_EQ(pieces[2], "c");
}

TEST(MString, IntegersAndCharactersGoThroughDouble) {
    EXPECT_EQ(MString("key") + 50, "key50");
    EXPECT_EQ(MString("key") + 50.0, "key50");
    EXPECT_EQ(MString("key") + 12.5, "key12.5");
    EXPECT_EQ(MString("key") + 'a', "key97");
    MString text("n");
    text += 7;
    EXPECT_EQ(text, "n7");
    text = 0.25;
    EXPECT_EQ(text, "0.25");
    EXPECT_TRUE(text.set(-3.0));
    EXPECT_EQ(text, "-3");
}

TEST(MString, Concatenates) {
    const MString a("a"), b("b");
    EXPECT_EQ(a + b, "ab");
    EXPECT_EQ(a + "c", "ac");
    EXPECT_EQ("c" + a, "ca");
    MString doubled("xy");
    doubled += doubled;
    EXPECT_EQ(doubled, "xyxy");
    EXPECT_TRUE(doubled.set(doubled.asChar() + 2));
    EXPECT_EQ(doubled, "xy");
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a != "b");
}

TEST(MString, LengthCountsBytesAndNumCharsCharacters) {
    const MString text(kKanji);
    EXPECT_EQ(text.length(), 9U);
    EXPECT_EQ(text.numChars(), 3);
    EXPECT_STREQ(text.asUTF8(), kKanji);
    int length = 0;
    EXPECT_STREQ(text.asChar(length), kKanji);
    EXPECT_EQ(length, 9);
    EXPECT_EQ(MString("abcdef", 3), "abc");
}

TEST(MString, IndexCountsBytesAndItsWideFormCharacters) {
    const MString text = MString(kKanji) + "|x|";
    EXPECT_EQ(text.index('|'), 9);
    EXPECT_EQ(text.rindex('|'), 11);
    EXPECT_EQ(text.indexW('|'), 3);
    EXPECT_EQ(text.rindexW('|'), 5);
    EXPECT_EQ(text.index('y'), -1);
    EXPECT_EQ(text.rindex('y'), -1);
    EXPECT_EQ(text.indexW('y'), -1);
    EXPECT_EQ(text.rindexW('y'), -1);
}

TEST(MString, SubstringIncludesItsEndAndIsClipped) {
    const MString text("abcdef");
    EXPECT_EQ(text.substring(0, 0), "a");
    EXPECT_EQ(text.substring(1, 3), "bcd");
    EXPECT_EQ(text.substring(-5, 1), "ab");
    EXPECT_EQ(text.substring(4, 99), "ef");
    EXPECT_EQ(text.substring(3, 2), "");
    EXPECT_EQ(text.substring(6, 9), "");
    EXPECT_EQ(MString("").substring(0, 0), "");
}

TEST(MString, WideSubstringCountsCharacters) {
    const MString text = MString(kKanji) + "abc";
    EXPECT_EQ(text.substringW(1, 1), "\xE6\x9C\xAC");
    EXPECT_EQ(text.substringW(2, 3), "\xE8\xAA\x9E"
                                     "a");
    EXPECT_EQ(text.substringW(-1, 2147483647), text);
    EXPECT_EQ(text.substringW(6, 7), "");
    EXPECT_EQ(text.substringW(2, 1), "");
}

TEST(MString, CaseChangesInPlaceForAsciiOnly) {
    MString text("aZ\xC3\xA4");
    EXPECT_EQ(text.toUpperCase(), "AZ\xC3\xA4");
    EXPECT_EQ(text, "AZ\xC3\xA4");
    EXPECT_EQ(text.toLowerCase(), "az\xC3\xA4");
}

struct NumberCase {
    const char* text;
    bool isInt;
    int asInt;
    bool isDouble;
    double asDouble;
};

constexpr NumberCase kNumbers[] = {
    {"", false, 0, false, 0.0},        {"abc", false, 0, false, 0.0},  {"nan", false, 0, false, 0.0},
    {"-inf", false, 0, false, 0.0},    {"-", false, 0, false, 0.0},    {"+-1", false, 0, false, 0.0},
    {"42", true, 42, true, 42.0},      {" -7 ", true, -7, true, -7.0}, {"+5", true, 5, true, 5.0},
    {"12abc", false, 12, false, 12.0}, {"1.9", false, 1, true, 1.9},   {".5", false, 0, true, 0.5},
    {"1e3", false, 1, true, 1000.0},   {"1,5", false, 1, false, 1.0},  {"2147483648", false, 0, true, 2147483648.0},
    {"1e999", false, 1, false, 0.0},
};

TEST(MString, ReadsTheNumberAtTheStart) {
    for (const NumberCase& example : kNumbers) {
        const MString text(example.text);
        EXPECT_EQ(text.isInt(), example.isInt) << example.text;
        EXPECT_EQ(text.asInt(), example.asInt) << example.text;
        EXPECT_EQ(text.isDouble(), example.isDouble) << example.text;
        EXPECT_EQ(text.asDouble(), example.asDouble) << example.text;
    }
}

TEST(MString, NumbersKeepWithinTheirType) {
    EXPECT_FALSE(MString("40000").isShort());
    EXPECT_EQ(MString("40000").asShort(), 0);
    EXPECT_EQ(MString("-32768").asShort(), -32768);
    EXPECT_FALSE(MString("-1").isUnsigned());
    EXPECT_EQ(MString("4294967295").asUnsigned(), 4294967295U);
    EXPECT_TRUE(MString("1e30").isFloat());
    EXPECT_FALSE(MString("1e60").isFloat());
    EXPECT_EQ(MString("0.25").asFloat(), 0.25f);
}

struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

// The C++ locale always has a decimal comma here, the C locale where a German one is installed.
TEST(MString, NumbersDoNotFollowTheLocale) {
    const std::string numericBefore = std::setlocale(LC_NUMERIC, nullptr);
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(MString("") + 1.5, "1.5");
    EXPECT_EQ(MString("1.5").asDouble(), 1.5);
    std::locale::global(before);
    std::setlocale(LC_NUMERIC, numericBefore.c_str());
}

TEST(MString, IsWrittenToStreams) {
    std::ostringstream stream;
    stream << MString("a") + kKanji;
    EXPECT_EQ(stream.str(), std::string("a") + kKanji);
}

} // namespace
