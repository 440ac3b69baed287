#include "host/mel/Parser.h"

#include "host/mel/messages.h"
#include "host/mel/parserNesting.h"

namespace host::mel {

void Parser::endStatement() {
    if (!peek().is(TokenKind::kEnd)) { // the last statement of a text needs no semicolon
        expect(TokenKind::kSemicolon);
    }
}

Statement Parser::parseStatement() {
    const Nesting nesting(*this);
    const Token first = peek();
    switch (first.kind) {
    case TokenKind::kSemicolon: {
        Statement empty;
        empty.offset = take().offset;
        return empty;
    }
    case TokenKind::kOpenBrace:
        return parseBlock();
    case TokenKind::kWord: {
        std::optional<Statement> statement = parseKeywordStatement(first.text);
        return statement.has_value() ? std::move(*statement) : parseExpressionStatement();
    }
    default:
        return parseExpressionStatement();
    }
}

std::optional<Statement> Parser::parseKeywordStatement(std::string_view word) {
    if (word == "if") {
        return parseIf();
    }
    if (word == "for") {
        return parseFor();
    }
    if (word == "while") {
        return parseWhile();
    }
    if (word == "do") {
        return parseDoWhile();
    }
    if (word == "switch") {
        return parseSwitch();
    }
    if (word == "break" || word == "continue") {
        return parseJump(word == "break" ? StatementKind::kBreak : StatementKind::kContinue);
    }
    if (word == "return") {
        return parseReturn();
    }
    if (word == "proc") {
        fail(std::string(messages::kProcedureInBlock), peek().offset);
    }
    if (word == "global") {
        take();
        return parseDeclaration(true);
    }
    if (peekType().has_value()) {
        return parseDeclaration(false);
    }
    return std::nullopt;
}

Statement Parser::parseBlock() {
    Statement block;
    block.kind = StatementKind::kBlock;
    block.offset = expect(TokenKind::kOpenBrace).offset;
    scopes_.beginBlock();
    while (!peek().is(TokenKind::kCloseBrace)) {
        if (peek().is(TokenKind::kEnd)) {
            failExpected("'}'");
        }
        block.children.push_back(parseStatement());
    }
    take();
    scopes_.endBlock(block);
    return block;
}

// The body of a loop or branch: variables of a lone statement belong to the surrounding block, as in MEL.
Statement Parser::parseBody() {
    if (peek().is(TokenKind::kEnd)) {
        failExpected("a statement");
    }
    return parseStatement();
}

Statement Parser::parseDeclaration(bool isGlobal) {
    if (isGlobal && peek().isWord("proc")) {
        fail(std::string(messages::kProcedureInBlock), peek().offset);
    }
    const std::optional<ValueType> type = peekType();
    if (!type.has_value()) {
        failExpected("a type");
    }
    const Token word = take();
    if (!isGlobal && peek().is(TokenKind::kOpenParen)) { // int($x); is an expression
        Expression cast = parseCallArguments(word);
        Statement statement;
        statement.kind = StatementKind::kExpression;
        statement.offset = word.offset;
        statement.expressions.push_back(parseExpressionFrom(std::move(cast)));
        endStatement();
        return statement;
    }
    Statement statement;
    statement.kind = StatementKind::kDeclare;
    statement.offset = word.offset;
    do {
        statement.declarators.push_back(parseDeclarator(*type, isGlobal));
    } while (takeIf(TokenKind::kComma));
    endStatement();
    return statement;
}

Declarator Parser::parseDeclarator(ValueType type, bool isGlobal) {
    Declarator declarator;
    const Token name = expect(TokenKind::kVariable);
    declarator.offset = name.offset;
    declarator.isGlobal = isGlobal;
    declarator.type = type;
    while (takeIf(TokenKind::kOpenBracket)) {
        const bool isMatrix = type == ValueType::kMatrix;
        if (!isMatrix) {
            declarator.type = arrayTypeOf(type);
        }
        if (declarator.sizes.size() == (isMatrix ? 2U : 1U)) {
            fail(messages::expected("';'", "'['"), name.offset);
        }
        if (isMatrix || !peek().is(TokenKind::kCloseBracket)) {
            declarator.sizes.push_back(parseExpression());
        }
        expect(TokenKind::kCloseBracket);
    }
    if (type == ValueType::kMatrix && declarator.sizes.size() == 1) {
        fail(std::string(messages::kMatrixNeedsTwoIndices), name.offset);
    }
    if (takeIf(TokenKind::kAssign)) {
        declarator.initial.push_back(parseExpression());
    }
    const auto variable = isGlobal ? scopes_.declareGlobal(std::string(name.text), declarator.type)
                                   : scopes_.declare(std::string(name.text), declarator.type);
    if (!variable.has_value()) {
        fail(messages::redeclaredVariable(name.text), name.offset);
    }
    declarator.variable = *variable;
    return declarator;
}

Statement Parser::parseIf() {
    Statement statement;
    statement.kind = StatementKind::kIf;
    statement.offset = take().offset;
    for (;;) { // a chain of else if is one statement, however long
        expect(TokenKind::kOpenParen);
        statement.expressions.push_back(parseExpression());
        expect(TokenKind::kCloseParen);
        statement.children.push_back(parseBody());
        if (!takeIfWord("else")) {
            return statement;
        }
        if (!takeIfWord("if")) {
            statement.children.push_back(parseBody());
            return statement;
        }
    }
}

// Variables of a for statement belong to the surrounding block and outlive the loop, as in MEL.
Statement Parser::parseFor() {
    Statement loop;
    loop.offset = take().offset;
    expect(TokenKind::kOpenParen);
    const std::optional<ValueType> type = peekType();
    const std::size_t start = behindTaken_;
    if (type.has_value()) {
        take();
    }
    const bool startsWithVariable = peek().is(TokenKind::kVariable);
    if (startsWithVariable) {
        take();
    }
    const bool isForIn = startsWithVariable && peek().isWord("in");
    behindTaken_ = start;
    state_ = Peeked::kNothing;
    return isForIn ? parseForIn(std::move(loop)) : parseForRest(std::move(loop));
}

Statement Parser::parseForIn(Statement loop) {
    loop.kind = StatementKind::kForIn;
    Declarator element;
    const std::optional<ValueType> type = peekType();
    if (type.has_value()) {
        element.type = *type;
        take();
    }
    const Token name = take();
    take(); // in
    loop.expressions.push_back(parseExpression());
    expect(TokenKind::kCloseParen);
    std::optional<VariableReference> variable = type.has_value() ? std::nullopt : scopes_.find(name.text);
    if (!variable.has_value()) {
        variable = scopes_.declare(std::string(name.text), element.type);
    }
    element.variable = variable.value_or(VariableReference());
    element.offset = name.offset;
    loop.declarators.push_back(std::move(element));
    ++loops_;
    loop.children.push_back(parseBody());
    --loops_;
    return loop;
}

Statement Parser::parseForRest(Statement loop) {
    loop.kind = StatementKind::kFor;
    Statement start;
    if (peekType().has_value()) {
        start = parseDeclaration(false);
    } else {
        start.kind = StatementKind::kBlock;
        while (!peek().is(TokenKind::kSemicolon)) {
            Statement& part = start.children.emplace_back();
            part.kind = StatementKind::kExpression;
            part.offset = peek().offset;
            part.expressions.push_back(parseExpression());
            if (!takeIf(TokenKind::kComma)) {
                break;
            }
        }
        expect(TokenKind::kSemicolon);
    }
    loop.children.push_back(std::move(start));
    if (peek().is(TokenKind::kSemicolon)) {
        Expression always;
        always.literal = 1;
        loop.expressions.push_back(std::move(always));
    } else {
        loop.expressions.push_back(parseExpression());
    }
    expect(TokenKind::kSemicolon);
    for (Expression& update : parseList(TokenKind::kCloseParen)) {
        loop.expressions.push_back(std::move(update));
    }
    ++loops_;
    loop.children.push_back(parseBody());
    --loops_;
    return loop;
}

Statement Parser::parseWhile() {
    Statement loop;
    loop.kind = StatementKind::kWhile;
    loop.offset = take().offset;
    expect(TokenKind::kOpenParen);
    loop.expressions.push_back(parseExpression());
    expect(TokenKind::kCloseParen);
    ++loops_;
    loop.children.push_back(parseBody());
    --loops_;
    return loop;
}

Statement Parser::parseDoWhile() {
    Statement loop;
    loop.kind = StatementKind::kDoWhile;
    loop.offset = take().offset;
    ++loops_;
    loop.children.push_back(parseBody());
    --loops_;
    if (!takeIfWord("while")) {
        failExpected("'while'");
    }
    expect(TokenKind::kOpenParen);
    loop.expressions.push_back(parseExpression());
    expect(TokenKind::kCloseParen);
    endStatement();
    return loop;
}

Statement Parser::parseSwitch() {
    Statement statement;
    statement.kind = StatementKind::kSwitch;
    statement.offset = take().offset;
    expect(TokenKind::kOpenParen);
    statement.expressions.push_back(parseExpression());
    expect(TokenKind::kCloseParen);
    expect(TokenKind::kOpenBrace);
    scopes_.beginBlock();
    ++switches_;
    bool hasDefault = false;
    while (!takeIf(TokenKind::kCloseBrace)) {
        const std::size_t firstChild = statement.children.size();
        if (takeIfWord("case")) {
            statement.labels.push_back({parseExpression(), firstChild});
            expect(TokenKind::kColon);
        } else if (peek().isWord("default")) {
            if (hasDefault) {
                fail(std::string(messages::kTwoDefaults), peek().offset);
            }
            hasDefault = true;
            take();
            statement.labels.push_back({std::nullopt, firstChild});
            expect(TokenKind::kColon);
        } else if (statement.labels.empty() || peek().is(TokenKind::kEnd)) {
            failExpected(statement.labels.empty() ? "'case'" : "'}'");
        } else {
            statement.children.push_back(parseStatement());
        }
    }
    --switches_;
    scopes_.endBlock(statement);
    return statement;
}

Statement Parser::parseJump(StatementKind kind) {
    const Token word = take();
    const bool isInside = loops_ > 0 || (kind == StatementKind::kBreak && switches_ > 0);
    if (!isInside) {
        fail(messages::outsideLoop(word.text), word.offset);
    }
    Statement statement;
    statement.kind = kind;
    statement.offset = word.offset;
    endStatement();
    return statement;
}

Statement Parser::parseReturn() {
    const Token word = take();
    if (!scopes_.isInProcedure()) {
        fail(std::string(messages::kReturnOutside), word.offset);
    }
    Statement statement;
    statement.kind = StatementKind::kReturn;
    statement.offset = word.offset;
    if (!peek().is(TokenKind::kSemicolon)) {
        statement.expressions.push_back(parseExpression());
    }
    endStatement();
    return statement;
}

Statement Parser::parseExpressionStatement() {
    Statement statement;
    statement.kind = StatementKind::kExpression;
    statement.offset = peek().offset;
    statement.expressions.push_back(peek().is(TokenKind::kWord) ? parseCommand(true) : parseExpression());
    endStatement();
    return statement;
}

} // namespace host::mel
