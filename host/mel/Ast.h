#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/Token.h"
#include "host/mel/Value.h"
#include "host/mel/Variable.h"

namespace host::mel {

// Either a global variable or a slot of the running procedure's frame.
struct VariableReference {
    Variable* global = nullptr;
    std::size_t slot = 0;
};

enum class ExpressionKind : std::uint8_t {
    kLiteral,     // literal; isWord when it is an unquoted argument
    kVariable,    // variable
    kElement,     // children: the indexed expression, then one index, or two for a matrix
    kComponent,   // children: the vector; name is x, y or z
    kArray,       // children: elements
    kVector,      // children: three numbers
    kMatrix,      // children: cells row by row; columns
    kNegate,      // children: the operand
    kNot,         // children: the operand
    kChain,       // children joined from left to right by operators of one level of precedence
    kLogical,     // children joined by kAnd or kOr (operators[0])
    kConditional, // children: condition, value if true, value if false
    kAssign,      // children: variable or element, value; operators[0] is kAssign or a compound one
    kStep,        // children: variable or element; operators[0] kIncrement or kDecrement; isPrefix
    kCast,        // children: the operand; type
    kCall,        // name(children)
    kCommand,     // name children, as a statement or between backticks
    kCatch,       // children: what is tried; isQuiet
};

struct Expression {
    ExpressionKind kind = ExpressionKind::kLiteral;
    ValueType type = ValueType::kNone;
    bool isWord = false;
    bool isPrefix = false;
    bool isQuiet = false;
    std::size_t columns = 0;
    std::size_t offset = 0; // where errors of it are shown
    VariableReference variable;
    Value literal;
    std::string name;
    std::vector<TokenKind> operators;
    std::vector<Expression> children;
};

enum class StatementKind : std::uint8_t {
    kEmpty,
    kExpression, // expressions[0]
    kDeclare,    // declarators
    kBlock,      // children; slots are fresh on every entry
    kIf,         // children[i] runs for expressions[i]; one more child is the else
    kFor,        // children: start, body; expressions: condition, then updates
    kForIn,      // declarators[0] is the variable; expressions[0] the array; children[0] the body
    kWhile,      // expressions[0], children[0]
    kDoWhile,    // expressions[0], children[0]
    kSwitch,     // expressions[0]; labels into children
    kBreak,
    kContinue,
    kReturn, // expressions[0] if it returns a value
};

struct Declarator {
    VariableReference variable;
    ValueType type = ValueType::kNone;
    bool isGlobal = false;           // declared with the word global
    std::vector<Expression> sizes;   // of an array, or of a matrix
    std::vector<Expression> initial; // none or one
    std::size_t offset = 0;
};

struct CaseLabel {
    std::optional<Expression> value; // nothing for default
    std::size_t firstChild = 0;
};

struct Statement {
    StatementKind kind = StatementKind::kEmpty;
    std::size_t offset = 0;
    std::size_t firstSlot = 0; // slots [firstSlot, lastSlot) belong to this block or loop
    std::size_t lastSlot = 0;
    std::vector<Expression> expressions;
    std::vector<Statement> children;
    std::vector<Declarator> declarators;
    std::vector<CaseLabel> labels;
};

struct Unit;

struct Procedure {
    std::string name;
    bool isGlobal = false;
    ValueType returnType = ValueType::kNone;
    std::vector<ValueType> parameters; // their slots are 0, 1 …
    Statement body;
    std::size_t slotCount = 0;
    const Unit* unit = nullptr; // its owner
};

// One parsed text with everything that its procedures need later.
struct Unit {
    std::string text;
    std::string file; // source name as given
    std::vector<Statement> statements;
    std::vector<std::unique_ptr<Procedure>> procedures;
    std::map<std::string, const Procedure*, std::less<>> localProcedures;
    std::size_t slotCount = 0;
    std::vector<std::size_t> lineStarts;

    SourcePosition position(std::size_t offset) const;
};

} // namespace host::mel
