#include "host/mel/Lexer.h"

#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host::mel {
namespace {

// Every scene token as "kind text".
std::vector<std::string> sceneTokens(std::string_view text) {
    Lexer lexer(text);
    std::vector<std::string> tokens;
    for (Token token = lexer.nextSceneToken(); !token.is(TokenKind::kEnd); token = lexer.nextSceneToken()) {
        switch (token.kind) {
        case TokenKind::kWord:
            tokens.push_back("w " + std::string(token.text));
            break;
        case TokenKind::kString:
            tokens.push_back("s " + std::string(token.text));
            break;
        case TokenKind::kError:
            tokens.push_back("! " + std::to_string(token.offset) + " " + std::string(token.text));
            break;
        default:
            tokens.emplace_back(token.text);
        }
    }
    return tokens;
}

using ::testing::ElementsAre;

TEST(Lexer, givesAnErrorWithItsOffsetForBrokenText) {
    EXPECT_THAT(sceneTokens("a \"open"), ElementsAre("w a", "! 2 unterminated string"));
    EXPECT_THAT(sceneTokens("\"open\nnext"), ElementsAre("! 0 unterminated string", "w next"));
    EXPECT_THAT(sceneTokens("\"\\"), ElementsAre("! 0 unterminated string"));
    EXPECT_THAT(sceneTokens("a /* b"), ElementsAre("w a", "! 2 unterminated comment"));
    EXPECT_THAT(sceneTokens(std::string_view("a\0b", 3)), ElementsAre("w a", "! 1 unexpected character", "w b"));
    EXPECT_THAT(sceneTokens("\x80"), ElementsAre("! 0 unexpected character"));
    EXPECT_THAT(sceneTokens("+"), ElementsAre("+"));
}

TEST(Lexer, endRepeats) {
    Lexer lexer(" ");
    EXPECT_TRUE(lexer.nextSceneToken().is(TokenKind::kEnd));
    EXPECT_TRUE(lexer.nextSceneToken().is(TokenKind::kEnd));
    EXPECT_TRUE(lexer.nextToken().is(TokenKind::kEnd));
    EXPECT_TRUE(lexer.skipStatement().is(TokenKind::kEnd));
}

TEST(Lexer, readsTheStatementsOfAScene) {
    EXPECT_THAT(sceneTokens("//Maya ASCII 2018 scene\r\ncreateNode mesh -n \"a b\" ;"),
                ElementsAre("w createNode", "w mesh", "w -n", "s a b", ";"));
    EXPECT_THAT(sceneTokens("setAttr -k off \":.v\" no;"),
                ElementsAre("w setAttr", "w -k", "w off", "s :.v", "w no", ";"));
    EXPECT_THAT(sceneTokens("select -ne :time1;/* x */setAttr 1.5e-005 -1e+020 +2 -nan(ind) 1.#INF;"),
                ElementsAre("w select", "w -ne", "w :time1", ";", "w setAttr", "w 1.5e-005", "w -1e+020", "w +2",
                            "w -nan(ind)", "w 1.#INF", ";"));
    EXPECT_THAT(sceneTokens("{\"g\",\"g0\"} (\"a\"\n + \"b\") x//y\nz/*c*/"),
                ElementsAre("{", "s g", ",", "s g0", "}", "(", "s a", "+", "s b", ")", "w x", "w z"));
    EXPECT_THAT(sceneTokens("\xEF\xBB\xBF"
                            "a"),
                ElementsAre("w a"));
    EXPECT_THAT(sceneTokens("a+b nan(x) |a|b.vtx[0:3]"),
                ElementsAre("w a", "+", "w b", "w nan", "(", "w x", ")", "w |a|b.vtx[0:3]"));
}

TEST(Lexer, peekingReadsNothing) {
    Lexer lexer("a b");
    EXPECT_EQ(lexer.peekSceneToken().text, "a");
    EXPECT_EQ(lexer.nextSceneToken().text, "a");
    EXPECT_EQ(lexer.nextSceneToken().text, "b");
}

TEST(Lexer, knowsLineAndColumnOfAnyOffset) {
    Lexer lexer("ab\ncd\r\n\nx");
    EXPECT_EQ(lexer.position(8).line, 4U);
    EXPECT_EQ(lexer.position(8).column, 1U);
    EXPECT_EQ(lexer.position(4).line, 2U);
    EXPECT_EQ(lexer.position(4).column, 2U);
    EXPECT_EQ(lexer.position(0).line, 1U);
    EXPECT_EQ(lexer.position(1000).line, 4U);
}

TEST(Lexer, aStringWithoutEscapesStaysAViewOfTheText) {
    const std::string text = "\"plain\" \"q\\\"b\\\\n\\n\\t\\r\\xc\\\nd\\\r\ne\"";
    Lexer lexer(text);
    std::string storage = "untouched";
    const std::string_view plain = decodeString(lexer.nextSceneToken(), storage);
    EXPECT_EQ(plain, "plain");
    EXPECT_EQ(plain.data(), text.data() + 1);
    EXPECT_EQ(storage, "untouched");
    EXPECT_EQ(decodeString(lexer.nextSceneToken(), storage), "q\"b\\n\n\t\rxcde");
}

TEST(Lexer, readStringLeavesEverythingElseAlone) {
    for (std::string_view text : {"word", R"(( "a" "b" ))", "( )", "( \"a\" + )", "( \"a\"", "", "( \"a\" + b )"}) {
        SCOPED_TRACE(text);
        Lexer lexer(text);
        std::string_view value = "before";
        std::string storage;
        EXPECT_FALSE(lexer.readString(value, storage));
        EXPECT_EQ(value, "before");
        EXPECT_EQ(lexer.offset(), 0U);
    }
}

TEST(Lexer, readStringJoinsPieces) {
    Lexer lexer("\"one\" (\"a\\n\" \n+ \"b\"+\"c\") (\"d\") ;");
    std::string_view value;
    std::string storage;
    ASSERT_TRUE(lexer.readString(value, storage));
    EXPECT_EQ(value, "one");
    ASSERT_TRUE(lexer.readString(value, storage));
    EXPECT_EQ(value, "a\nbc");
    ASSERT_TRUE(lexer.readString(value, storage));
    EXPECT_EQ(value, "d");
    EXPECT_TRUE(lexer.nextSceneToken().is(TokenKind::kSemicolon));
}

TEST(Lexer, skipStatementStopsBehindItsOwnSemicolon) {
    const std::string_view text = "a \";\" (;) {;} /*;*/ //;\n ) ; next";
    Lexer lexer(text);
    const Token end = lexer.skipStatement();
    EXPECT_TRUE(end.is(TokenKind::kSemicolon));
    EXPECT_EQ(end.offset, text.rfind(';'));
    EXPECT_EQ(lexer.nextSceneToken().text, "next");
}

TEST(Lexer, skipStatementTellsWhyThereIsNoSemicolon) {
    EXPECT_TRUE(Lexer("a b").skipStatement().is(TokenKind::kEnd));
    EXPECT_TRUE(Lexer("a ( ;").skipStatement().is(TokenKind::kEnd));
    EXPECT_EQ(Lexer("a \"b ;").skipStatement().text, "unterminated string");
    EXPECT_EQ(Lexer("a /* ;").skipStatement().text, "unterminated comment");
    EXPECT_TRUE(Lexer("a \x01 ;").skipStatement().is(TokenKind::kSemicolon));
}

// Pulls tokens in every way until the end; more pulls than bytes would be an endless loop.
void drain(std::string_view text, int face) {
    Lexer lexer(text);
    std::size_t pulls = 0;
    for (Token token; pulls <= text.size() + 1; ++pulls) {
        token = face == 0 ? lexer.nextSceneToken() : face == 1 ? lexer.nextToken() : lexer.nextArgument();
        if (token.is(TokenKind::kEnd)) {
            return;
        }
    }
    FAIL() << "no end after " << pulls << " tokens";
}

TEST(Lexer, anyBytesComeToAnEnd) {
    std::mt19937 random(20260101);
    using namespace std::string_view_literals;
    const std::string_view alphabet = "\"\\/*$`{}()[]<>;,+-.0e#xn \n\0\x80|:@%&=!?a"sv;
    for (int round = 0; round < 3000; ++round) {
        std::string text(random() % 60, ' ');
        for (char& byte : text) {
            byte = round % 2 == 0 ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
        }
        for (int face = 0; face < 3; ++face) {
            drain(text, face);
        }
    }
}

} // namespace
} // namespace host::mel
