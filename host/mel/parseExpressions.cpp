#include "host/mel/Parser.h"

#include "host/mel/messages.h"
#include "host/mel/parserNesting.h"

#include <array>
#include <limits>

namespace host::mel {

namespace {

constexpr std::size_t kUnresolved = std::numeric_limits<std::size_t>::max();

struct BinaryOperator {
    TokenKind kind;
    int level; // higher binds tighter
};

constexpr int kLogicalOrLevel = 0;
constexpr int kLogicalAndLevel = 1;

constexpr std::array<BinaryOperator, 14> kBinaryOperators = {{
    {TokenKind::kOr, kLogicalOrLevel},
    {TokenKind::kAnd, kLogicalAndLevel},
    {TokenKind::kEqual, 2},
    {TokenKind::kNotEqual, 2},
    {TokenKind::kLess, 3},
    {TokenKind::kLessEqual, 3},
    {TokenKind::kGreater, 3},
    {TokenKind::kGreaterEqual, 3},
    {TokenKind::kPlus, 4},
    {TokenKind::kMinus, 4},
    {TokenKind::kStar, 5},
    {TokenKind::kSlash, 5},
    {TokenKind::kPercent, 5},
    {TokenKind::kCaret, 5},
}};

int levelOf(TokenKind kind) {
    for (const BinaryOperator& candidate : kBinaryOperators) {
        if (candidate.kind == kind) {
            return candidate.level;
        }
    }
    return -1;
}

bool isAssignment(TokenKind kind) {
    return kind >= TokenKind::kAssign && kind <= TokenKind::kCaretAssign;
}

bool isAssignable(const Expression& expression) {
    const Expression& root = expression.kind == ExpressionKind::kElement ? expression.children.front() : expression;
    return root.kind == ExpressionKind::kVariable;
}

Expression makeExpression(ExpressionKind kind, std::size_t offset) {
    Expression expression;
    expression.kind = kind;
    expression.offset = offset;
    return expression;
}

Expression makeUnary(ExpressionKind kind, std::size_t offset, Expression operand) {
    Expression expression = makeExpression(kind, offset);
    expression.children.push_back(std::move(operand));
    return expression;
}

std::optional<bool> booleanWord(std::string_view word) {
    if (word == "true" || word == "on" || word == "yes") {
        return true;
    }
    if (word == "false" || word == "off" || word == "no") {
        return false;
    }
    return std::nullopt;
}

} // namespace

Expression Parser::parseExpression() {
    return parseExpressionFrom(parseUnary());
}

Expression Parser::parseExpressionFrom(Expression first) {
    const Nesting nesting(*this);
    if (isAssignment(peek().kind)) {
        return parseAssignment(std::move(first));
    }
    Expression value = parseBinary(kLogicalOrLevel, std::move(first));
    if (!peek().is(TokenKind::kQuestion)) {
        return value;
    }
    Expression choice = makeUnary(ExpressionKind::kConditional, take().offset, std::move(value));
    choice.children.push_back(parseExpression());
    expect(TokenKind::kColon);
    choice.children.push_back(parseExpression());
    return choice;
}

Expression Parser::parseAssignment(Expression target) {
    const Token operation = take();
    if (!isAssignable(target)) {
        fail(messages::notAssignable(), operation.offset);
    }
    Expression value = parseExpression();
    Expression& root = target.kind == ExpressionKind::kElement ? target.children.front() : target;
    if (root.variable.slot == kUnresolved) {
        const auto declared = scopes_.declare(root.name, ValueType::kNone);
        root.variable = declared.value_or(VariableReference());
    }
    Expression assignment = makeUnary(ExpressionKind::kAssign, operation.offset, std::move(target));
    assignment.children.push_back(std::move(value));
    assignment.operators.push_back(operation.kind);
    return assignment;
}

// Operators of one level make one node with many operands, so that long sums do not nest.
Expression Parser::parseBinary(int lowestLevel, Expression left) {
    int chainLevel = -1;
    for (;;) {
        const int level = levelOf(peek().kind);
        if (level < lowestLevel) {
            return left;
        }
        const Token operation = take();
        Expression right = parseUnary();
        while (levelOf(peek().kind) > level) {
            right = parseBinary(level + 1, std::move(right));
        }
        if (level != chainLevel) {
            const bool isLogical = level <= kLogicalAndLevel;
            left = makeUnary(isLogical ? ExpressionKind::kLogical : ExpressionKind::kChain, operation.offset,
                             std::move(left));
            chainLevel = level;
        }
        left.operators.push_back(operation.kind);
        left.children.push_back(std::move(right));
    }
}

Expression Parser::parseUnary() {
    const Nesting nesting(*this);
    const Token first = peek();
    switch (first.kind) {
    case TokenKind::kMinus:
        take();
        return makeUnary(ExpressionKind::kNegate, first.offset, parseUnary());
    case TokenKind::kNot:
        take();
        return makeUnary(ExpressionKind::kNot, first.offset, parseUnary());
    case TokenKind::kIncrement:
    case TokenKind::kDecrement: {
        take();
        Expression step = makeUnary(ExpressionKind::kStep, first.offset, parseUnary());
        if (!isAssignable(step.children.front())) {
            fail(messages::notAssignable(), first.offset);
        }
        step.operators.push_back(first.kind);
        step.isPrefix = true;
        return step;
    }
    default:
        return parsePostfix(parsePrimary());
    }
}

Expression Parser::parsePostfix(Expression operand) {
    for (;;) {
        const Token next = peek();
        if (next.is(TokenKind::kOpenBracket)) {
            take();
            if (operand.kind != ExpressionKind::kElement) {
                operand = makeUnary(ExpressionKind::kElement, next.offset, std::move(operand));
            }
            operand.children.push_back(parseExpression());
            expect(TokenKind::kCloseBracket);
            if (operand.children.size() > 3) {
                fail(messages::expected("';'", "'['"), next.offset);
            }
        } else if (next.is(TokenKind::kDot) && next.offset == behindTaken_) {
            take();
            const Token name = peek();
            if (!name.isWord("x") && !name.isWord("y") && !name.isWord("z")) {
                failExpected("x, y or z");
            }
            take();
            requireDeclared(operand);
            operand = makeUnary(ExpressionKind::kComponent, next.offset, std::move(operand));
            operand.name = std::string(name.text);
        } else if (next.is(TokenKind::kIncrement) || next.is(TokenKind::kDecrement)) {
            if (!isAssignable(operand)) {
                fail(messages::notAssignable(), next.offset);
            }
            take();
            requireDeclared(operand);
            operand = makeUnary(ExpressionKind::kStep, next.offset, std::move(operand));
            operand.operators.push_back(next.kind);
        } else {
            if (!next.is(TokenKind::kAssign)) {
                requireDeclared(operand);
            }
            return operand;
        }
    }
}

void Parser::requireDeclared(const Expression& expression) {
    const Expression& root = expression.kind == ExpressionKind::kElement ? expression.children.front() : expression;
    if (root.kind == ExpressionKind::kVariable && root.variable.slot == kUnresolved) {
        fail(messages::undeclaredVariable(root.name), root.offset);
    }
}

Expression Parser::parsePrimary() {
    switch (peek().kind) {
    case TokenKind::kOpenParen:
        return parseParenthesis();
    case TokenKind::kOpenBrace:
        return parseArray();
    case TokenKind::kVectorOpen:
        return parseVectorOrMatrix();
    case TokenKind::kBacktick:
        return parseBacktick();
    case TokenKind::kVariable:
        return parseVariable();
    case TokenKind::kInt:
    case TokenKind::kFloat: {
        Expression number = makeExpression(ExpressionKind::kLiteral, peek().offset);
        number.literal = numberOf(take());
        return number;
    }
    case TokenKind::kString: {
        Expression text = makeExpression(ExpressionKind::kLiteral, peek().offset);
        std::string storage;
        text.literal = Value(decodeString(take(), storage));
        return text;
    }
    case TokenKind::kWord:
        return parseWordExpression();
    default:
        failExpected("an expression");
    }
}

Expression Parser::parseParenthesis() {
    const std::size_t offset = expect(TokenKind::kOpenParen).offset;
    const std::optional<ValueType> type = peekType();
    if (type.has_value()) {
        const Token word = take();
        if (takeIf(TokenKind::kCloseParen)) {
            Expression cast = makeUnary(ExpressionKind::kCast, offset, parseUnary());
            cast.type = *type;
            return cast;
        }
        Expression inner = parseExpressionFrom(parsePostfix(parseCallArguments(word)));
        expect(TokenKind::kCloseParen);
        return inner;
    }
    Expression inner = parseExpression();
    expect(TokenKind::kCloseParen);
    return inner;
}

Expression Parser::parseVariable() {
    const Token token = expect(TokenKind::kVariable);
    Expression variable = makeExpression(ExpressionKind::kVariable, token.offset);
    variable.name = std::string(token.text);
    variable.variable = scopes_.find(token.text).value_or(VariableReference{nullptr, kUnresolved});
    return variable;
}

Expression Parser::parseVectorOrMatrix() {
    Expression literal = makeExpression(ExpressionKind::kMatrix, expect(TokenKind::kVectorOpen).offset);
    std::size_t rows = 0;
    do {
        const std::size_t before = literal.children.size();
        do {
            literal.children.push_back(parseExpression());
        } while (takeIf(TokenKind::kComma));
        const std::size_t columns = literal.children.size() - before;
        if (rows > 0 && columns != literal.columns) {
            fail(messages::syntaxError(messages::kUnevenMatrix), literal.offset);
        }
        literal.columns = columns;
        ++rows;
    } while (takeIf(TokenKind::kSemicolon));
    expect(TokenKind::kVectorClose);
    if (rows == 1 && literal.columns == 3) {
        literal.kind = ExpressionKind::kVector;
    }
    return literal;
}

Expression Parser::parseArray() {
    Expression array = makeExpression(ExpressionKind::kArray, expect(TokenKind::kOpenBrace).offset);
    array.children = parseList(TokenKind::kCloseBrace);
    return array;
}

std::vector<Expression> Parser::parseList(TokenKind close) {
    std::vector<Expression> items;
    if (takeIf(close)) {
        return items;
    }
    do {
        items.push_back(parseExpression());
    } while (takeIf(TokenKind::kComma));
    expect(close);
    return items;
}

Expression Parser::parseWordExpression() {
    const Token word = take();
    if (peek().is(TokenKind::kOpenParen)) {
        return parseCallArguments(word);
    }
    const std::optional<bool> boolean = booleanWord(word.text);
    if (!boolean.has_value()) {
        fail(messages::expected("an expression", describeToken(word)), word.offset);
    }
    Expression literal = makeExpression(ExpressionKind::kLiteral, word.offset);
    literal.literal = Value(*boolean);
    return literal;
}

} // namespace host::mel
