#include "host/mel/Token.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "host/mel/Lexer.h"

namespace host::mel {
namespace {

TEST(describeToken, namesWhatWasFound) {
    struct Case {
        std::string text;
        std::string described;
    };
    const Case cases[] = {
        {"", "end of text"},
        {"name", "'name'"},
        {"$v", "'$v'"},
        {"12", "'12'"},
        {"\"s\"", "string \"s\""},
        {"<<", "'<<'"},
        {"&&", "'&&'"},
        {"\"open", "unterminated string"},
        {std::string(50, 'a'), "'" + std::string(40, 'a') + "...'"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(describeToken(Lexer(row.text).nextToken()), row.described);
    }
    EXPECT_EQ(describeKind(TokenKind::kVariable), "a variable");
    EXPECT_EQ(describeKind(TokenKind::kVectorClose), "'>>'");
}

TEST(numberOf, takesEveryNumberOfTheLanguage) {
    EXPECT_EQ(numberOf(Lexer("+7").nextArgument()).toInt(), 7);
    EXPECT_EQ(numberOf(Lexer("-0x10").nextArgument()).toInt(), -16);
    EXPECT_EQ(numberOf(Lexer("9223372036854775807").nextToken()).toInt(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(numberOf(Lexer("-9e99").nextArgument()).toFloat(), -9e99);
    EXPECT_EQ(numberOf(Lexer("1.").nextToken()).type(), ValueType::kFloat);
}

} // namespace
} // namespace host::mel
