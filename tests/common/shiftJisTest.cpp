#include "common/shiftJis.h"

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

TEST(ShiftJis, LeadBytesEndAtEF) {
    for (int byte = 0; byte < 256; ++byte) {
        const bool expected = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xEF);
        EXPECT_EQ(isShiftJisLead(static_cast<unsigned char>(byte)), expected) << byte;
    }
}

struct SplitCase {
    std::string_view name;
    std::string_view base;
    std::string_view extension;
    std::string_view last;
};

// "\x83\x5C" is katakana SO, "\x94\x5C" the kanji NOU: both end in the byte of a backslash.
constexpr SplitCase kSplits[] = {
    {"", "", "", ""},
    {".", "", "", "."},
    {".imd", "", "imd", ".imd"},
    {"a", "a", "", "a"},
    {"a.", "a", "", "a."},
    {"a.imd", "a", "imd", "a.imd"},
    {"a.IMD", "a", "IMD", "a.IMD"},
    {"a.imd.bak", "a.imd", "bak", "a.imd.bak"},
    {"char.v2.imd", "char.v2", "imd", "char.v2.imd"},
    {"/", "/", "", ""},
    {"a.b/", "a.b/", "", ""},
    {"a.b/c", "a.b/c", "", "c"},
    {"a.b/c.d", "a.b/c", "d", "c.d"},
    {"a.b\\c", "a.b\\c", "", "c"},
    {"a.b\\c.d", "a.b\\c", "d", "c.d"},
    {"a/.d", "a/", "d", ".d"},
    {"\\a.d", "\\a", "d", "a.d"},
    {"C:/x/a.ma", "C:/x/a", "ma", "a.ma"},
    {"\x83\x5C.imd", "\x83\x5C", "imd", "\x83\x5C.imd"},
    {"a.b\x83\x5C", "a", "b\x83\x5C", "a.b\x83\x5C"},
    {"x/\x94\x5C\x97\xCD.ma", "x/\x94\x5C\x97\xCD", "ma", "\x94\x5C\x97\xCD.ma"},
    {"x.y\\\x83\x5Cz", "x.y\\\x83\x5Cz", "", "\x83\x5Cz"},
    // the edges of the lead bytes, one inside and one outside each
    {"a.b\x81\\c", "a", "b\x81\\c", "a.b\x81\\c"},
    {"a.b\x80\\c", "a.b\x80\\c", "", "c"},
    {"a.b\x9F\\c", "a", "b\x9F\\c", "a.b\x9F\\c"},
    {"a.b\xA0\\c", "a.b\xA0\\c", "", "c"},
    {"a.b\xDF\\c", "a.b\xDF\\c", "", "c"},
    {"a.b\xE0\\c", "a", "b\xE0\\c", "a.b\xE0\\c"},
    {"a.b\xEF\\c", "a", "b\xEF\\c", "a.b\xEF\\c"},
    {"a.b\xF0\\c", "a.b\xF0\\c", "", "c"},
    {"a.b\xFC\\c", "a.b\xFC\\c", "", "c"},
    // a slash is a separator whatever stands before it
    {"a.b\x83/c", "a.b\x83/c", "", "c"},
};

TEST(ShiftJis, SplitsFileNames) {
    for (const SplitCase& c : kSplits) {
        EXPECT_EQ(withoutExtension(c.name), c.base) << c.name;
        EXPECT_EQ(fileExtension(c.name), c.extension) << c.name;
        EXPECT_EQ(lastPathComponent(c.name), c.last) << c.name;
    }
}

// Only the one byte before a backslash is looked at, as in the format's own tools: after a katakana SO, whose second
// byte is a backslash, a real separator is found, since 0x5C is no lead byte.
TEST(ShiftJis, ASeparatorAfterADoubleByteBackslashCounts) {
    EXPECT_EQ(lastPathComponent("\x83\x5C\\a.imd"), "a.imd");
}

// The second byte of a character can look like a lead byte; the rule then takes the separator for its second half.
TEST(ShiftJis, ASeparatorAfterATrailByteThatLooksLikeALeadByteIsMissed) {
    EXPECT_EQ(lastPathComponent("\x83\x81\\a.imd"), "\x83\x81\\a.imd");
}

} // namespace
} // namespace tvk
