#include "scene/fileNames.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

struct NameCase {
    std::string name, base, extension;
};

class FileNames : public testing::TestWithParam<NameCase> {};

TEST_P(FileNames, AreCutAtTheLastPointOfTheLastComponent) {
    EXPECT_EQ(baseNameOf(GetParam().name), GetParam().base);
    EXPECT_EQ(extensionOf(GetParam().name), GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(Plain, FileNames,
                         testing::Values(NameCase{"a.imd", "a", "imd"}, NameCase{"a.b.imd", "a.b", "imd"},
                                         NameCase{"a", "a", ""}, NameCase{"", "", ""}, NameCase{".imd", "", "imd"},
                                         NameCase{"a.", "a", ""}, NameCase{"a.imd.bak", "a.imd", "bak"},
                                         NameCase{"a.b/c", "a.b/c", ""}, NameCase{"a.b\\c", "a.b\\c", ""},
                                         NameCase{"a.b/c.imd", "a.b/c", "imd"}));

// Katakana "so" is 83 5C, kanji "table" 95 5C: their second byte is no backslash.
INSTANTIATE_TEST_SUITE_P(ShiftJis, FileNames,
                         testing::Values(NameCase{"\x83\x5C.imd", "\x83\x5C", "imd"},
                                         NameCase{"a.\x95\x5C", "a", "\x95\x5C"},
                                         NameCase{"a.b\x95\x5C\\c", "a.b\x95\x5C\\c", ""}));

// In UTF-8 the tail byte 9E of "ma" would be a lead byte of Shift_JIS; the backslash after it separates all the same.
INSTANTIATE_TEST_SUITE_P(Utf8, FileNames,
                         testing::Values(NameCase{"\xE3\x82\xBD.imd", "\xE3\x82\xBD", "imd"},
                                         NameCase{"a.b\xE3\x83\x9E\\c", "a.b\xE3\x83\x9E\\c", ""},
                                         NameCase{"\xC3\xBC.x.imd", "\xC3\xBC.x", "imd"}));

TEST(LastComponent, IsWhatStandsBehindTheFolders) {
    EXPECT_EQ(lastComponentOf("a/b.c/d.tga"), "d.tga");
    EXPECT_EQ(lastComponentOf("a\\b/c\\d.tga"), "d.tga");
    EXPECT_EQ(lastComponentOf("d.tga"), "d.tga");
    EXPECT_EQ(lastComponentOf("a/"), "");
    EXPECT_EQ(lastComponentOf(""), "");
    EXPECT_EQ(lastComponentOf("a/\x83\x5C.tga"), "\x83\x5C.tga");
    EXPECT_EQ(lastComponentOf("a\xE3\x83\x9E\\d.tga"), "d.tga");
}

} // namespace
} // namespace tvk
