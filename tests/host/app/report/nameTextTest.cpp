#include "host/app/report/nameText.h"

#include <gtest/gtest.h>

namespace host::app::report {
namespace {

TEST(Utf8Message, LeavesPathsAndConvertsWhatFilesSay) {
    const decode::ExportedFilesError error("\xE6\xAD\xA9.ima: ", "no \x83\x65");
    EXPECT_EQ(utf8Message(error), "\xE6\xAD\xA9.ima: no \xE3\x83\x86");
}

TEST(NameText, ShiftJisComesAsUtf8) {
    EXPECT_EQ(utf8Name("box"), "box");
    EXPECT_EQ(utf8Name("\x83\x65\x83\x58\x83\x67"), "\xE3\x83\x86\xE3\x82\xB9\xE3\x83\x88");
    EXPECT_EQ(utf8Name("\x83\x5C"), "\xE3\x82\xBD"); // its second byte alone is a backslash
    EXPECT_EQ(utf8Name("\xB1"), "\xEF\xBD\xB1");     // half-width
}

TEST(NameText, WhatIsNoTextBecomesAQuestionMark) {
    EXPECT_EQ(utf8Name("a\x83"), "a?");
    EXPECT_EQ(utf8Name("\x1B[2J\x7F"), "?[2J?");
}

TEST(NameText, WideCharactersTakeTwoColumns) {
    EXPECT_EQ(columnsOf(""), 0U);
    EXPECT_EQ(columnsOf("box"), 3U);
    EXPECT_EQ(columnsOf("\xE3\x83\x86"
                        "a"),
              3U);
    EXPECT_EQ(columnsOf("\xEF\xBD\xB1"), 1U); // half-width
    EXPECT_EQ(columnsOf("\xC3\xA4"), 1U);     // a letter of two bytes
    EXPECT_EQ(columnsOf("\xE2\x80\x95"), 1U); // a dash of three
    EXPECT_EQ(columnsOf("\xE3\x83"), 1U);     // cut off
}

} // namespace
} // namespace host::app::report
