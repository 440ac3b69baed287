#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "host/mel/Ast.h"
#include "host/mel/Lexer.h"
#include "host/mel/VariableScopes.h"

namespace host::mel {

struct SyntaxError {
    std::string text;
    SourcePosition position;
};

struct [[nodiscard]] ParseResult {
    std::shared_ptr<Unit> unit; // null when there is an error
    SyntaxError error;
};

// Parses a whole text. Names of variables are resolved here, so undeclared ones are errors before anything runs;
// procedures and commands are looked up when they are called. Nesting is limited to 500 levels.
//   globals            gets the global variables that the text declares, if it has no error
//   outermostIsGlobal  variables outside procedures and blocks are global (entered text) or the text's own (files)
ParseResult parseUnit(std::string_view text, std::string file, GlobalVariables& globals, bool outermostIsGlobal);

// The recursive descent behind parseUnit; its parts are Parser.cpp (tokens, procedures), parseStatements.cpp,
// parseExpressions.cpp and parseCommands.cpp. Functions leave by throwing Failure.
class Parser {
public:
    struct Failure {
        std::string text;
        std::size_t offset;
    };

    Parser(Unit& unit, VariableScopes& scopes) : unit_(unit), scopes_(scopes), lexer_(unit.text) {}

    void parseText();

private:
    class Nesting;

    // Tokens: peek and take read as in expressions, peekArgument and takeArgument as in the arguments of a command.
    const Token& peek();
    const Token& peekArgument();
    Token take();
    Token takeArgument();
    Token expect(TokenKind kind);
    bool takeIf(TokenKind kind);
    bool takeIfWord(std::string_view word);
    [[noreturn]] void failExpected(std::string_view what);
    [[noreturn]] static void fail(std::string text, std::size_t offset);

    // Types and procedures.
    std::optional<ValueType> peekType();
    ValueType takeArraySuffix(ValueType type);
    void parseProcedure(bool isGlobal);
    void parseParameters(Procedure& procedure);

    // Statements.
    Statement parseStatement();
    Statement parseBlock();
    Statement parseBody();
    Statement parseDeclaration(bool isGlobal);
    Declarator parseDeclarator(ValueType type, bool isGlobal);
    Statement parseIf();
    Statement parseFor();
    Statement parseForRest(Statement loop);
    Statement parseForIn(Statement loop);
    Statement parseWhile();
    Statement parseDoWhile();
    Statement parseSwitch();
    Statement parseJump(StatementKind kind);
    Statement parseReturn();
    Statement parseExpressionStatement();
    std::optional<Statement> parseKeywordStatement(std::string_view word);
    void endStatement();

    // Expressions.
    Expression parseExpression();
    Expression parseExpressionFrom(Expression first);
    Expression parseAssignment(Expression target);
    Expression parseBinary(int lowestLevel, Expression left);
    Expression parseUnary();
    Expression parsePostfix(Expression operand);
    Expression parsePrimary();
    Expression parseParenthesis();
    Expression parseVariable();
    Expression parseVectorOrMatrix();
    Expression parseArray();
    Expression parseWordExpression();
    Expression parseBacktick();
    Expression parseCallArguments(const Token& name);
    std::vector<Expression> parseList(TokenKind close);
    static void requireDeclared(const Expression& expression);
    static Expression makeCall(Expression call);

    // Commands.
    Expression parseCommand(bool isStatement);
    std::optional<Expression> parseArgument(bool isStatement);

    Unit& unit_;
    VariableScopes& scopes_;
    Lexer lexer_;
    Token peeked_;
    std::size_t behindPeeked_ = 0;
    std::size_t behindTaken_ = 0;
    enum class Peeked { kNothing, kToken, kArgument } state_ = Peeked::kNothing;
    std::size_t nesting_ = 0;
    std::size_t loops_ = 0;
    std::size_t switches_ = 0;
};

} // namespace host::mel
