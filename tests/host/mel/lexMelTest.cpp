#include "host/mel/Lexer.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host::mel {
namespace {

using ::testing::ElementsAre;
using Kind = TokenKind;

std::vector<Kind> kinds(std::string_view text, Token (Lexer::*next)()) {
    Lexer lexer(text);
    std::vector<Kind> found;
    for (Token token = (lexer.*next)(); !token.is(Kind::kEnd); token = (lexer.*next)()) {
        found.push_back(token.kind);
    }
    return found;
}

std::vector<std::string> argumentTexts(std::string_view text) {
    Lexer lexer(text);
    std::vector<std::string> found;
    for (Token token = lexer.nextArgument(); !token.is(Kind::kEnd); token = lexer.nextArgument()) {
        found.emplace_back(token.text);
    }
    return found;
}

TEST(nextToken, refusesMalformedNumbersAndVariables) {
    EXPECT_EQ(Lexer("12abc").nextToken().text, "malformed number");
    EXPECT_EQ(Lexer("1e").nextToken().text, "malformed number");
    EXPECT_EQ(Lexer("$").nextToken().text, "'$' without a variable name");
    EXPECT_EQ(Lexer("$1").nextToken().text, "'$' without a variable name");
    EXPECT_EQ(Lexer("&").nextToken().text, "unexpected character");
    EXPECT_EQ(Lexer("@").nextToken().text, "unexpected character");
}

TEST(nextToken, takesTheLongestOperator) {
    EXPECT_THAT(kinds("+ += ++ - -= -- * *= / /= % %= ^ ^=", &Lexer::nextToken),
                ElementsAre(Kind::kPlus, Kind::kPlusAssign, Kind::kIncrement, Kind::kMinus, Kind::kMinusAssign,
                            Kind::kDecrement, Kind::kStar, Kind::kStarAssign, Kind::kSlash, Kind::kSlashAssign,
                            Kind::kPercent, Kind::kPercentAssign, Kind::kCaret, Kind::kCaretAssign));
    EXPECT_THAT(kinds("= == ! != < <= << > >= >> && || ? : . `", &Lexer::nextToken),
                ElementsAre(Kind::kAssign, Kind::kEqual, Kind::kNot, Kind::kNotEqual, Kind::kLess, Kind::kLessEqual,
                            Kind::kVectorOpen, Kind::kGreater, Kind::kGreaterEqual, Kind::kVectorClose, Kind::kAnd,
                            Kind::kOr, Kind::kQuestion, Kind::kColon, Kind::kDot, Kind::kBacktick));
    EXPECT_THAT(kinds("( ) { } [ ] , ;", &Lexer::nextToken),
                ElementsAre(Kind::kOpenParen, Kind::kCloseParen, Kind::kOpenBrace, Kind::kCloseBrace,
                            Kind::kOpenBracket, Kind::kCloseBracket, Kind::kComma, Kind::kSemicolon));
}

TEST(nextToken, readsNumbersNamesAndVariables) {
    EXPECT_THAT(kinds("1 1. .5 1e3 0x1F name_2 $v \"s\"", &Lexer::nextToken),
                ElementsAre(Kind::kInt, Kind::kFloat, Kind::kFloat, Kind::kFloat, Kind::kInt, Kind::kWord,
                            Kind::kVariable, Kind::kString));
    EXPECT_EQ(Lexer("$name_2+").nextToken().text, "name_2");
    EXPECT_THAT(kinds("$v.x 1-2", &Lexer::nextToken),
                ElementsAre(Kind::kVariable, Kind::kDot, Kind::kWord, Kind::kInt, Kind::kMinus, Kind::kInt));
}

TEST(nextArgument, tellsFlagsNumbersAndNamesApart) {
    EXPECT_THAT(
        kinds("-ea -1 -.5 +2 name $v (", &Lexer::nextArgument),
        ElementsAre(Kind::kFlag, Kind::kInt, Kind::kFloat, Kind::kInt, Kind::kWord, Kind::kVariable, Kind::kOpenParen));
    EXPECT_THAT(kinds("-$v -(", &Lexer::nextArgument),
                ElementsAre(Kind::kMinus, Kind::kVariable, Kind::kMinus, Kind::kOpenParen));
    EXPECT_THAT(argumentTexts("|a|b:c.vtx[0:3] a* 23.976fps 4.0.1 ns:x.y[*]; -exportAll -5"),
                ElementsAre("|a|b:c.vtx[0:3]", "a*", "23.976fps", "4.0.1", "ns:x.y[*]", ";", "-exportAll", "-5"));
}

TEST(nextArgument, aSignedNumberIsNoName) {
    EXPECT_EQ(Lexer("-5abc").nextArgument().text, "malformed number");
    EXPECT_THAT(argumentTexts("-5:2"), ElementsAre("-5", ":2"));
}

TEST(nextArgument, namesEndAtCommentsAndOpenBrackets) {
    EXPECT_THAT(argumentTexts("a//b\nc/*d*/e"), ElementsAre("a", "c", "e"));
    EXPECT_THAT(argumentTexts("a[0:2 b"), ElementsAre("a", "[", "0:2", "b"));
}

} // namespace
} // namespace host::mel
