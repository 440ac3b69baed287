#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/CommandTable.h"
#include "host/mel/Value.h"
#include "host/mel/Variable.h"

// The functions of the language itself, by families; belongs to the interpreter.
namespace host::mel {

class Evaluator;

// One call of a built-in function.
struct BuiltinCall {
    Evaluator& evaluator;
    std::string_view name;
    std::vector<Argument> arguments;
    std::vector<Variable*> variables; // beside arguments: the variable when one was given alone, else null

    const Value& value(std::size_t index) const { return arguments[index].value; }
    std::size_t count() const { return arguments.size(); }
    std::string text(std::size_t index) const; // of a scalar, or failure
    double number(std::size_t index) const;    // of a scalar, or failure
    std::int64_t integer(std::size_t index) const;
    Vector vector(std::size_t index) const;
    const StringArray& strings(std::size_t index) const; // of a string[], or failure

    // The array variable given as an argument, ready to be edited: the argument's own copy is let go.
    Variable& arrayVariable(std::size_t index);
};

// A row of a family's table. The function may throw ScriptFailure.
struct Builtin {
    std::string_view name;
    std::size_t fewestArguments;
    std::size_t mostArguments;
    Value (*run)(BuiltinCall& call);
};

constexpr std::size_t kAnyCount = 1000000;

struct BuiltinFamily {
    const Builtin* rows;
    std::size_t count;
};

BuiltinFamily stringFunctions();
BuiltinFamily pathFunctions();
BuiltinFamily arrayFunctions();
BuiltinFamily mathFunctions();
BuiltinFamily vectorFunctions();
BuiltinFamily scriptFunctions();

// Null when there is none of that name.
const Builtin* findBuiltin(std::string_view name);

// Appends what tokenize makes of a text: the runs of bytes that are no separators.
StringArray splitText(std::string_view text, std::string_view separators);

} // namespace host::mel
