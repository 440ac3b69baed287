#include "host/scene/codeset.h"

#include "OpenedScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct DecodeRow {
    const char* name;
    const char* codeset;
    std::string bytes;
    std::string utf8;
};

class Codeset : public testing::TestWithParam<DecodeRow> {};

// Encodings from the code pages' tables.
TEST_P(Codeset, TextComesAsUtf8) {
    OpenedScene opened(std::string("//Codeset: ") + GetParam().codeset +
                       "\ncreateNode file -n \"f\";\n\tsetAttr \".ftn\" -type \"string\" \"" + GetParam().bytes +
                       "\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    EXPECT_EQ(opened.text("f.ftn"), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(All, Codeset,
                         testing::Values(DecodeRow{"Ascii", "1252", "plain", "plain"},
                                         DecodeRow{"Western", "1252", "\xE4\x80", "\xC3\xA4\xE2\x82\xAC"},
                                         DecodeRow{"Cyrillic", "1251", "\xC4\xE0", "\xD0\x94\xD0\xB0"},
                                         DecodeRow{"Japanese", "932", "\x83\x65\x83\x58\x83\x67",
                                                   "\xE3\x83\x86\xE3\x82\xB9\xE3\x83\x88"},
                                         // The second byte of this character is a backslash by itself.
                                         DecodeRow{"JapaneseWithABackslashInside", "932", "\x95\x5C", "\xE8\xA1\xA8"},
                                         DecodeRow{"SimplifiedChinese", "936", "\xD6\xD0", "\xE4\xB8\xAD"},
                                         DecodeRow{"Korean", "949", "\xC7\xD1", "\xED\x95\x9C"},
                                         DecodeRow{"TraditionalChinese", "950", "\xA4\xA4", "\xE4\xB8\xAD"},
                                         DecodeRow{"Utf8", "UTF-8", "\xE3\x83\x86", "\xE3\x83\x86"},
                                         DecodeRow{"NamedCodeset", "EUC-JP", "\xC9\xBD", "\xE8\xA1\xA8"}),
                         [](const auto& row) { return row.param.name; });

TEST(CodesetLine, IsLookedForInTheHeadingOnly) {
    EXPECT_EQ(findCodeset("//Maya ASCII 2018 scene\r\n//Name: x.ma\r\n//Codeset: 932\r\nrequires maya;"), "932");
    EXPECT_EQ(findCodeset("//Maya ASCII 5.0 scene\nrequires maya;\n//Codeset: 932\n"), "");
    EXPECT_EQ(findCodeset("\xEF\xBB\xBF//Codeset: UTF-8"), "UTF-8");
    EXPECT_EQ(findCodeset(""), "");
}

TEST(CodesetLine, WithoutOneTextIsUtf8OrWestern) {
    OpenedScene opened("createNode file -n \"f\";\n\tsetAttr \".ftn\" -type \"string\" \"\xC3\xA4\";\n");
    EXPECT_EQ(opened.text("f.ftn"), "\xC3\xA4");
    opened.open("createNode file -n \"f\";\n\tsetAttr \".ftn\" -type \"string\" \"\xE4\";\n");
    EXPECT_EQ(opened.text("f.ftn"), "\xC3\xA4");
}

TEST(CodesetLine, UnknownOnesAreTold) {
    for (const char* name : {"zebra", "../../etc/passwd", "a b"}) {
        OpenedScene opened(std::string("//Codeset: ") + name +
                           "\ncreateNode file -n \"f\";\n\tsetAttr \".ftn\" -type \"string\" \"\xE4\";\n");
        EXPECT_EQ(opened.result.error, "");
        EXPECT_THAT(opened.warnings, ElementsAre("s.ma: codeset '" + std::string(name) +
                                                 "' is not known; text beyond ASCII is kept as it is"));
        EXPECT_EQ(opened.text("f.ftn"), "\xE4");
    }
}

TEST(CodesetLine, BrokenTextIsReplacedAndTold) {
    OpenedScene opened("//Codeset: UTF-8\ncreateNode file -n \"f\";\n\tsetAttr \".ftn\" -type \"string\" \"a\xFF"
                       "b\xC3\xA4\";\n");
    EXPECT_EQ(opened.text("f.ftn"), "a?b\xC3\xA4");
    EXPECT_THAT(opened.warnings, ElementsAre("s.ma: text that is not valid in codeset 'UTF-8' was replaced by '?'"));
}

TEST(CodesetDecoding, CopiesNothingThatIsRight) {
    EXPECT_FALSE(decodeToUtf8("//Codeset: 932\nplain text").isChanged);
    EXPECT_FALSE(decodeToUtf8("//Codeset: UTF-8\n\xC3\xA4").isChanged);
    EXPECT_TRUE(decodeToUtf8("//Codeset: 1252\n\xE4").isChanged);
}

TEST(CodesetDecoding, TextComesAsUtf8WhateverItIs) {
    EXPECT_EQ(toUtf8("\x83\x65\x83\x58.imd", "932"), "\xE3\x83\x86\xE3\x82\xB9.imd");
    EXPECT_EQ(toUtf8("a\x83", "932"), "a?");
    EXPECT_EQ(toUtf8("a\xE4", "zebra"), "a?");
    EXPECT_EQ(toUtf8("", "932"), "");
}

} // namespace

} // namespace host
