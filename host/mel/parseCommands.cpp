#include "host/mel/Parser.h"

#include "host/mel/messages.h"
#include "host/mel/parserNesting.h"

#include <algorithm>
#include <array>

namespace host::mel {

namespace {

constexpr std::array<std::string_view, 14> kReservedWords = {
    "break",  "case", "continue", "default", "do",     "else",   "for",
    "global", "if",   "in",       "proc",    "return", "switch", "while",
};

struct CastWord {
    std::string_view word;
    ValueType type;
};

constexpr std::array<CastWord, 4> kCastWords = {{
    {"int", ValueType::kInt},
    {"float", ValueType::kFloat},
    {"string", ValueType::kString},
    {"vector", ValueType::kVector},
}};

bool startsArgument(TokenKind kind) {
    switch (kind) {
    case TokenKind::kWord:
    case TokenKind::kString:
    case TokenKind::kInt:
    case TokenKind::kFloat:
    case TokenKind::kVariable:
    case TokenKind::kFlag:
    case TokenKind::kMinus:
    case TokenKind::kOpenParen:
    case TokenKind::kOpenBrace:
    case TokenKind::kVectorOpen:
    case TokenKind::kBacktick:
        return true;
    default:
        return false;
    }
}

} // namespace

Expression Parser::makeCall(Expression call) {
    if (call.name == "catch" || call.name == "catchQuiet") {
        if (call.children.size() != 1) {
            fail(std::string(messages::kCatchArguments), call.offset);
        }
        call.isQuiet = call.name == "catchQuiet";
        call.kind = ExpressionKind::kCatch;
    }
    return call;
}

Expression Parser::parseCallArguments(const Token& name) {
    if (std::find(kReservedWords.begin(), kReservedWords.end(), name.text) != kReservedWords.end()) {
        fail(messages::expected("an expression", describeToken(name)), name.offset);
    }
    Expression call;
    call.kind = ExpressionKind::kCall;
    call.offset = name.offset;
    call.name = std::string(name.text);
    expect(TokenKind::kOpenParen);
    call.children = parseList(TokenKind::kCloseParen);
    for (const CastWord& cast : kCastWords) {
        if (cast.word == name.text && call.children.size() == 1) {
            call.kind = ExpressionKind::kCast;
            call.type = cast.type;
        }
    }
    return makeCall(std::move(call));
}

Expression Parser::parseBacktick() {
    expect(TokenKind::kBacktick);
    if (!peek().is(TokenKind::kWord)) {
        failExpected("a command");
    }
    Expression command = parseCommand(false);
    expect(TokenKind::kBacktick);
    return command;
}

// A word with a parenthesis behind it may be a function call, the start of a longer expression, or a command whose
// first argument is in parentheses; what follows the closing parenthesis tells.
Expression Parser::parseCommand(bool isStatement) {
    const Nesting nesting(*this);
    const Token name = take();
    if (std::find(kReservedWords.begin(), kReservedWords.end(), name.text) != kReservedWords.end()) {
        fail(messages::expected("a statement", describeToken(name)), name.offset);
    }
    Expression command;
    command.kind = ExpressionKind::kCommand;
    command.offset = name.offset;
    command.name = std::string(name.text);
    if (peek().is(TokenKind::kOpenParen)) {
        Expression call = parseCallArguments(name);
        const TokenKind next = peekArgument().kind;
        const bool hasMore = startsArgument(next) && (isStatement || next != TokenKind::kBacktick);
        if (!hasMore || call.kind != ExpressionKind::kCall || call.children.size() != 1) {
            return isStatement ? parseExpressionFrom(parsePostfix(std::move(call))) : call;
        }
        command.children = std::move(call.children);
    }
    while (std::optional<Expression> argument = parseArgument(isStatement)) {
        command.children.push_back(std::move(*argument));
    }
    return makeCall(std::move(command));
}

std::optional<Expression> Parser::parseArgument(bool isStatement) {
    const Token first = peekArgument();
    if (first.is(TokenKind::kError)) {
        failExpected("an argument");
    }
    if (!startsArgument(first.kind) || (first.is(TokenKind::kBacktick) && !isStatement)) {
        return std::nullopt;
    }
    Expression argument;
    argument.offset = first.offset;
    switch (first.kind) {
    case TokenKind::kWord:
    case TokenKind::kFlag:
        argument.literal = Value(takeArgument().text);
        argument.isWord = true;
        return argument;
    case TokenKind::kInt:
    case TokenKind::kFloat:
        argument.literal = numberOf(takeArgument());
        return argument;
    case TokenKind::kMinus:
        take();
        argument.kind = ExpressionKind::kNegate;
        argument.children.push_back(parsePostfix(parsePrimary()));
        return argument;
    case TokenKind::kVariable:
        return parsePostfix(parseVariable());
    default:
        return parsePrimary();
    }
}

} // namespace host::mel
