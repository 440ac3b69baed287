#include "host/mel/Parser.h"

#include "host/mel/messages.h"
#include "host/mel/parserNesting.h"

#include <algorithm>
#include <array>

namespace host::mel {

namespace {

struct TypeWord {
    std::string_view word;
    ValueType type;
};

constexpr std::array<TypeWord, 5> kTypeWords = {{
    {"int", ValueType::kInt},
    {"float", ValueType::kFloat},
    {"string", ValueType::kString},
    {"vector", ValueType::kVector},
    {"matrix", ValueType::kMatrix},
}};

std::vector<std::size_t> findLineStarts(std::string_view text) {
    std::vector<std::size_t> starts = {0};
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
        starts.push_back(at + 1);
    }
    return starts;
}

} // namespace

SourcePosition Unit::position(std::size_t offset) const {
    const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), offset);
    return {static_cast<std::size_t>(next - lineStarts.begin()), offset - *(next - 1) + 1};
}

ParseResult parseUnit(std::string_view text, std::string file, GlobalVariables& globals, bool outermostIsGlobal) {
    ParseResult result;
    auto unit = std::make_shared<Unit>();
    unit->text = std::string(text);
    unit->file = std::move(file);
    unit->lineStarts = findLineStarts(unit->text);
    VariableScopes scopes(globals, outermostIsGlobal);
    try {
        Parser(*unit, scopes).parseText();
    } catch (const Parser::Failure& failure) {
        result.error = {failure.text, unit->position(failure.offset)};
        return result;
    }
    unit->slotCount = scopes.slotCount();
    scopes.commit();
    result.unit = std::move(unit);
    return result;
}

void Parser::fail(std::string text, std::size_t offset) {
    throw Failure{std::move(text), offset};
}

void Parser::failExpected(std::string_view what) {
    const Token& found = state_ == Peeked::kArgument ? peekArgument() : peek();
    if (found.is(TokenKind::kError)) {
        fail(messages::syntaxError(found.text), found.offset);
    }
    fail(messages::expected(what, describeToken(found)), found.offset);
}

const Token& Parser::peek() {
    if (state_ != Peeked::kToken) {
        lexer_.seek(behindTaken_);
        peeked_ = lexer_.nextToken();
        behindPeeked_ = lexer_.offset();
        state_ = Peeked::kToken;
    }
    return peeked_;
}

const Token& Parser::peekArgument() {
    if (state_ != Peeked::kArgument) {
        lexer_.seek(behindTaken_);
        peeked_ = lexer_.nextArgument();
        behindPeeked_ = lexer_.offset();
        state_ = Peeked::kArgument;
    }
    return peeked_;
}

Token Parser::take() {
    peek();
    state_ = Peeked::kNothing;
    behindTaken_ = behindPeeked_;
    return peeked_;
}

Token Parser::takeArgument() {
    peekArgument();
    state_ = Peeked::kNothing;
    behindTaken_ = behindPeeked_;
    return peeked_;
}

Token Parser::expect(TokenKind kind) {
    if (!peek().is(kind)) {
        failExpected(describeKind(kind));
    }
    return take();
}

bool Parser::takeIf(TokenKind kind) {
    const bool isThere = peek().is(kind);
    if (isThere) {
        take();
    }
    return isThere;
}

bool Parser::takeIfWord(std::string_view word) {
    const bool isThere = peek().isWord(word);
    if (isThere) {
        take();
    }
    return isThere;
}

std::optional<ValueType> Parser::peekType() {
    const Token& token = peek();
    for (const TypeWord& candidate : kTypeWords) {
        if (token.isWord(candidate.word)) {
            return candidate.type;
        }
    }
    return std::nullopt;
}

ValueType Parser::takeArraySuffix(ValueType type) {
    if (!peek().is(TokenKind::kOpenBracket)) {
        return type;
    }
    if (arrayTypeOf(type) == ValueType::kNone) {
        failExpected("no '[]'");
    }
    take();
    expect(TokenKind::kCloseBracket);
    return arrayTypeOf(type);
}

void Parser::parseText() {
    while (!peek().is(TokenKind::kEnd)) {
        const bool isGlobal = takeIfWord("global");
        if (takeIfWord("proc")) {
            parseProcedure(isGlobal);
        } else if (isGlobal) {
            unit_.statements.push_back(parseDeclaration(true));
        } else {
            unit_.statements.push_back(parseStatement());
        }
    }
}

void Parser::parseProcedure(bool isGlobal) {
    auto procedure = std::make_unique<Procedure>();
    procedure->isGlobal = isGlobal;
    procedure->unit = &unit_;
    const std::optional<ValueType> type = peekType();
    if (type.has_value()) {
        take();
        procedure->returnType = takeArraySuffix(*type);
    }
    if (!peek().is(TokenKind::kWord)) {
        failExpected("a procedure name");
    }
    procedure->name = std::string(take().text);
    scopes_.beginProcedure();
    parseParameters(*procedure);
    procedure->body = parseBlock();
    procedure->slotCount = scopes_.endProcedure();
    if (!isGlobal) {
        unit_.localProcedures[procedure->name] = procedure.get();
    }
    unit_.procedures.push_back(std::move(procedure));
}

void Parser::parseParameters(Procedure& procedure) {
    expect(TokenKind::kOpenParen);
    while (!peek().is(TokenKind::kCloseParen)) {
        const std::optional<ValueType> type = peekType();
        if (!type.has_value()) {
            failExpected("a parameter type");
        }
        take();
        const Token name = expect(TokenKind::kVariable);
        const ValueType parameterType = takeArraySuffix(*type);
        const auto slot = scopes_.declare(std::string(name.text), parameterType);
        if (!slot.has_value() || slot->slot != procedure.parameters.size()) {
            fail(messages::redeclaredVariable(name.text), name.offset);
        }
        procedure.parameters.push_back(parameterType);
        if (!takeIf(TokenKind::kComma)) {
            break;
        }
    }
    expect(TokenKind::kCloseParen);
}

} // namespace host::mel
