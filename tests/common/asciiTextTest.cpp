#include "common/asciiText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(AsciiText, LowersAsciiLettersOnly) {
    EXPECT_EQ(lowerAscii(""), "");
    EXPECT_EQ(lowerAscii("IMD"), "imd");
    EXPECT_EQ(lowerAscii("iMd.@[`{09"), "imd.@[`{09");
    EXPECT_EQ(lowerAscii("AZaz"), "azaz");
    EXPECT_EQ(lowerAscii("\xC3\x84\xC0\xDE"), "\xC3\x84\xC0\xDE");
}

TEST(AsciiText, SplittingDropsEmptyPieces) {
    EXPECT_EQ(splitText("", ';'), Pieces{});
    EXPECT_EQ(splitText(";", ';'), Pieces{});
    EXPECT_EQ(splitText(";;;", ';'), Pieces{});
    EXPECT_EQ(splitText("a", ';'), Pieces{"a"});
    EXPECT_EQ(splitText("a;b", ';'), (Pieces{"a", "b"}));
    EXPECT_EQ(splitText(";a=;;b ;", ';'), (Pieces{"a=", "b "}));
    EXPECT_EQ(splitText("a=", '='), Pieces{"a"});
    EXPECT_EQ(splitText("=3", '='), Pieces{"3"});
    EXPECT_EQ(splitText("C:/work/proj/", '/'), (Pieces{"C:", "work", "proj"}));
}

} // namespace
} // namespace tvk
