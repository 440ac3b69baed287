#include "platform/codePage.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <locale>
#include <random>
#include <string>
#include <vector>

namespace tvk {
namespace {

struct Conversion {
    const char* what;
    std::string utf8;
    std::string shiftJis;
};

// Codes from Microsoft's published table of code page 932.
const std::vector<Conversion> kKept = {
    {"nothing", "", ""},
    {"ASCII with the signs that JIS X 0201 replaces", "a\\b~c|{}", "a\\b~c|{}"},
    {"hiragana A", "\xE3\x81\x82", "\x82\xA0"},
    {"katakana SO, whose second byte is a backslash", "\xE3\x82\xBD", "\x83\x5C"},
    {"kanji of Nihongo", "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E", "\x93\xFA\x96\x7B\x8C\xEA"},
    {"kanji between ASCII",
     "a\xE4\xBA\x9C"
     "b",
     "a\x88\x9F"
     "b"},
    {"half-width katakana A and the last one", "\xEF\xBD\xB1\xEF\xBE\x9F", "\xB1\xDF"},
    {"full-width A", "\xEF\xBC\xA1", "\x82\x60"},
    {"full-width backslash", "\xEF\xBC\xBC", "\x81\x5F"},
    {"full-width tilde", "\xEF\xBD\x9E", "\x81\x60"},
    {"parallel to", "\xE2\x88\xA5", "\x81\x61"},
    {"full-width hyphen-minus", "\xEF\xBC\x8D", "\x81\x7C"},
    {"circled 1 (NEC row 13)", "\xE2\x91\xA0", "\x87\x40"},
    {"Roman numeral 1 (NEC row 13 before IBM)", "\xE2\x85\xA0", "\x87\x54"},
    {"small Roman numeral 1 (IBM before NEC selection)", "\xE2\x85\xB0", "\xFA\x40"},
    {"because sign (JIS before NEC)", "\xE2\x88\xB5", "\x81\xE6"},
    {"kanji of an IBM extension (ladder TAKA)", "\xE9\xAB\x99", "\xFB\xFC"},
    {"first and last user-defined character", "\xEE\x80\x80\xEE\x9D\x97", "\xF0\x40\xF9\xFC"},
    {"Cyrillic and Greek", "\xD0\x96\xCE\xA9", "\x84\x47\x83\xB6"},
    {"section sign, degree, multiplication", "\xC2\xA7\xC2\xB0\xC3\x97", "\x81\x98\x81\x8B\x81\x7E"},
};

// The signs whose JIS name and Microsoft name differ.
const std::vector<Conversion> kRenamed = {
    {"wave dash", "\xE3\x80\x9C", "\x81\x60"},
    {"minus sign", "\xE2\x88\x92", "\x81\x7C"},
    {"em dash", "\xE2\x80\x94", "\x81\x5C"},
    {"double vertical line", "\xE2\x80\x96", "\x81\x61"},
    {"cent sign", "\xC2\xA2", "\x81\x91"},
    {"pound sign", "\xC2\xA3", "\x81\x92"},
    {"not sign", "\xC2\xAC", "\x81\xCA"},
    {"yen sign, not a backslash", "\xC2\xA5", "\x81\x8F"},
    {"overline, not a tilde", "\xE2\x80\xBE", "\x81\x50"},
};

const std::vector<Conversion> kLost = {
    {"u with diaeresis", "J\xC3\xBCrgen", "J?rgen"},
    {"no-break space",
     "a\xC2\xA0"
     "b",
     "a?b"},
    {"C1 control", "\xC2\x80", "?"},
    {"euro sign", "\xE2\x82\xAC", "?"},
    {"Hangul", "\xED\x95\x9C", "?"},
    {"beyond the Basic Multilingual Plane (one sign for one character)", "x\xF0\x9F\x98\x80y", "x?y"},
    {"kanji beyond the Basic Multilingual Plane", "\xF0\xA0\xAE\xB7", "?"},
    {"replacement character", "\xEF\xBF\xBD", "?"},
    {"byte-order mark",
     "\xEF\xBB\xBF"
     "a",
     "?a"},
    {"private use that Microsoft maps to single bytes", "\xEF\xA3\xB1", "?"},
};

// Not UTF-8, so Shift_JIS already.
const std::vector<Conversion> kAlreadyShiftJis = {
    {"hiragana A", "\x82\xA0", "\x82\xA0"},
    {"katakana SO between ASCII", "a\x83\x5C.ma", "a\x83\x5C.ma"},
    {"half-width katakana", "\xB1\xB2\xB3", "\xB1\xB2\xB3"},
    {"IBM extension and user-defined", "\xFB\xFC\xF0\x40", "\xFB\xFC\xF0\x40"},
    {"NEC selection, which no conversion from Unicode gives", "\xED\x40", "\xED\x40"},
    {"an overlong slash of UTF-8, which is two half-width katakana", "\xC0\xAF", "\xC0\xAF"},
};

// Neither UTF-8 nor Shift_JIS.
const std::vector<Conversion> kBroken = {
    {"lead byte at the end", "a\x82", "a?"},
    {"lead byte before a line feed", "\x82\n", "?\n"},
    {"single bytes without a meaning", "\x80\xA0\xFD\xFE\xFF", "?????"},
    {"unassigned code", "\x85\x40", "?@"},
    {"second byte 7F", "\x82\x7F", "?\x7F"},
    {"UTF-8 cut short: two bytes make a kanji, the last one nothing", "\xE3\x81\xE3", "\xE3\x81?"},
    {"surrogate as UTF-8", "\xED\xA0\x80", "\xED\xA0?"},
};

void expectAll(const std::vector<Conversion>& cases, bool expectedLossy) {
    for (const Conversion& c : cases) {
        bool lossy = false;
        const std::string result = toShiftJis(c.utf8, lossy);
        EXPECT_EQ(result, c.shiftJis) << c.what;
        EXPECT_EQ(lossy, expectedLossy) << c.what;
        EXPECT_TRUE(isValidShiftJis(result)) << c.what;
    }
}

TEST(CodePage, CharactersWithoutACodeBecomeQuestionMarks) {
    expectAll(kLost, true);
}

TEST(CodePage, BrokenTextComesOutValid) {
    expectAll(kBroken, true);
}

TEST(CodePage, ConvertsUtf8) {
    expectAll(kKept, false);
}

TEST(CodePage, SignsWithTwoNamesKeepTheirCode) {
    expectAll(kRenamed, false);
}

TEST(CodePage, TextThatIsNotUtf8StaysAsItIs) {
    expectAll(kAlreadyShiftJis, false);
}

TEST(CodePage, EveryAsciiByteMapsToItself) {
    std::string ascii;
    for (int byte = 0; byte < 0x80; ++byte)
        ascii += static_cast<char>(byte);
    // beside UTF-8, beside Shift_JIS, and alone
    for (const char* beside : {"\xE3\x81\x82", "\x82\xA0", ""}) {
        bool lossy = false;
        EXPECT_EQ(toShiftJis(ascii + beside, lossy).substr(0, 0x80), ascii);
        EXPECT_FALSE(lossy);
    }
}

TEST(CodePage, TheLossFlagIsNeverCleared) {
    bool lossy = true;
    EXPECT_EQ(toShiftJis("plain", lossy), "plain");
    EXPECT_TRUE(lossy);
}

TEST(CodePage, ValidityNeedsAssignedCodes) {
    for (const char* text : {"", "abc\\~", "\xB1", "\x82\xA0", "\x81\x40", "\xFC\x4B", "\xF9\xFC"})
        EXPECT_TRUE(isValidShiftJis(text)) << text;
    for (const char* text : {"\x80", "\xA0", "\xFD", "\xFF", "\x82", "a\x82", "\x82\x20", "\x85\x40", "\xFC\x4C",
                             "\x81\xAD", "\xE3\x81\x82"})
        EXPECT_FALSE(isValidShiftJis(text)) << text;
}

std::string randomBytes(std::mt19937& random) {
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> length(0, 8);
    std::string text;
    for (int left = length(random); left > 0; --left)
        text += static_cast<char>(byte(random));
    return text;
}

TEST(CodePage, AnyBytesComeOutValid) {
    std::mt19937 random(932);
    for (int i = 0; i < 50000; ++i) {
        const std::string text = randomBytes(random);
        bool lossy = false;
        ASSERT_TRUE(isValidShiftJis(toShiftJis(text, lossy)));
    }
}

TEST(CodePage, ValidShiftJisComesOutUnchanged) {
    std::mt19937 random(31);
    const std::string notUtf8 = "\x82\xA0"; // a tail byte in front: no UTF-8 begins so
    int checked = 0;
    for (int i = 0; i < 50000; ++i) {
        const std::string text = notUtf8 + randomBytes(random);
        if (!isValidShiftJis(text))
            continue;
        bool lossy = false;
        ASSERT_EQ(toShiftJis(text, lossy), text);
        ASSERT_FALSE(lossy);
        ++checked;
    }
    EXPECT_GT(checked, 5000);
}

std::vector<std::string> convertAll() {
    std::vector<std::string> results;
    for (const auto* table : {&kKept, &kRenamed, &kLost, &kAlreadyShiftJis, &kBroken}) {
        for (const Conversion& c : *table) {
            bool lossy = false;
            results.push_back(toShiftJis(c.utf8, lossy) + (lossy ? " lossy" : ""));
        }
    }
    return results;
}

// Which of the named locales a machine has differs; the foreign C++ locale is always there.
TEST(CodePage, ResultsAreTheSameInEveryLocale) {
    const std::vector<std::string> expected = convertAll();
    for (const char* name :
         {"de_DE.UTF-8", "de_DE.ISO-8859-1", "ja_JP.UTF-8", "ja_JP.SJIS", "ja_JP.EUC-JP", "C.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            EXPECT_EQ(convertAll(), expected) << name;
        }
    }
    std::setlocale(LC_ALL, "C");

    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::locale previous = std::locale::global(std::locale(std::locale::classic(), new Comma));
    EXPECT_EQ(convertAll(), expected);
    std::locale::global(previous);
}

} // namespace
} // namespace tvk
