#include "host/mel/Lexer.h"

#include <array>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace host::mel {
namespace {

TEST(readNumber, leavesWordsAlone) {
    for (std::string_view text :
         {"", ";", "off", "12abc", "1.5.2", "23.976fps", "info", "\"1\"", "-flag", "/*", "1+2"}) {
        SCOPED_TRACE(text);
        Lexer lexer(text);
        double value = 0.0;
        EXPECT_FALSE(lexer.readNumber(value));
        EXPECT_EQ(lexer.offset(), 0U);
        std::int64_t integer = 0;
        EXPECT_FALSE(lexer.readInteger(integer));
        EXPECT_EQ(lexer.offset(), 0U);
    }
}

TEST(readNumber, endsAtBlanksPunctuationAndComments) {
    Lexer lexer(" 1 2;3,/*x*/4)5}-6//y\n7\"");
    double value = 0.0;
    for (double wanted : {1.0, 2.0}) {
        ASSERT_TRUE(lexer.readNumber(value));
        EXPECT_EQ(value, wanted);
    }
    for (double wanted : {3.0, 4.0, 5.0}) {
        lexer.nextSceneToken();
        ASSERT_TRUE(lexer.readNumber(value));
        EXPECT_EQ(value, wanted);
    }
    lexer.nextSceneToken();
    ASSERT_TRUE(lexer.readNumber(value));
    EXPECT_EQ(value, -6.0);
    EXPECT_FALSE(lexer.readNumber(value)); // 7" is broken
}

TEST(readInteger, cutsFractionsAndRefusesWhatDoesNotFit) {
    Lexer lexer("3 -2.9 1e3 9007199254740993 9223372036854775807 -9223372036854775808 9223372036854775808");
    for (std::int64_t wanted : {std::int64_t{3}, std::int64_t{-2}, std::int64_t{1000}, std::int64_t{9007199254740993},
                                std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
        std::int64_t value = 0;
        ASSERT_TRUE(lexer.readInteger(value));
        EXPECT_EQ(value, wanted);
    }
    const std::size_t before = lexer.offset();
    std::int64_t value = 0;
    EXPECT_FALSE(lexer.readInteger(value));
    EXPECT_EQ(lexer.offset(), before);
    for (std::string_view text : {"nan", "inf", "1e300"}) {
        EXPECT_FALSE(Lexer(text).readInteger(value)) << text;
    }
}

TEST(readNumbers, stopsAtTheCountOrTheFirstWord) {
    Lexer lexer("1 2 3 4 f 5");
    std::array<double, 3> first{};
    EXPECT_EQ(lexer.readNumbers(first.data(), first.size()), 3U);
    EXPECT_EQ(first[2], 3.0);
    EXPECT_EQ(lexer.readNumbers(first.data(), first.size()), 1U);
    EXPECT_EQ(first[0], 4.0);
    EXPECT_EQ(lexer.nextSceneToken().text, "f");
}

TEST(readNumbers, narrowsToFloatsWithoutOverflow) {
    Lexer lexer("0.44999998807907104 1e300 -1e300 nan");
    std::array<float, 4> values{};
    ASSERT_EQ(lexer.readNumbers(values.data(), values.size()), 4U);
    EXPECT_EQ(values[0], 0.45F);
    EXPECT_EQ(values[1], std::numeric_limits<float>::infinity());
    EXPECT_EQ(values[2], -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(values[3]));
}

} // namespace
} // namespace host::mel
