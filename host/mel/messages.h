#pragma once

#include <string>
#include <string_view>

// Every error text of the language; those of built-in functions stand in their tables' families.
namespace host::mel::messages {

inline constexpr std::string_view kNestedTooDeeply = "Nested too deeply";
inline constexpr std::string_view kStackOverflow = "Too many nested calls";
inline constexpr std::string_view kInterrupted = "Interrupted";
inline constexpr std::string_view kStepLimit = "Step limit reached";
inline constexpr std::string_view kOutOfMemory = "Out of memory";
inline constexpr std::string_view kDivisionByZero = "Division by zero";
inline constexpr std::string_view kTextTooLong = "String is too long";
inline constexpr std::string_view kArrayTooLarge = "Array is too large";
inline constexpr std::string_view kNegativeIndex = "Array index is negative";
inline constexpr std::string_view kMatrixIndex = "Matrix index is out of range";
inline constexpr std::string_view kMatrixNeedsTwoIndices = "A matrix needs two indices";
inline constexpr std::string_view kUnevenMatrix = "Rows of a matrix must be of the same length";
inline constexpr std::string_view kProcedureInBlock =
    "Syntax error: procedures can only be declared at the outermost level";
inline constexpr std::string_view kReturnOutside = "Syntax error: return outside a procedure";
inline constexpr std::string_view kTwoDefaults = "Syntax error: more than one default in a switch";
inline constexpr std::string_view kCatchArguments = "Syntax error: catch takes one argument";

inline std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

inline std::string expected(std::string_view what, std::string_view found) {
    return "Syntax error: expected " + std::string(what) + ", found " + std::string(found);
}

inline std::string syntaxError(std::string_view what) {
    return "Syntax error: " + std::string(what);
}

inline std::string outsideLoop(std::string_view word) {
    return "Syntax error: " + std::string(word) + " outside a loop" + (word == "break" ? " or switch" : "");
}

inline std::string notAssignable() {
    return "Syntax error: only variables and array elements can be assigned to";
}

inline std::string undeclaredVariable(std::string_view name) {
    return quoted("$" + std::string(name)) + " is an undeclared variable.";
}

inline std::string redeclaredVariable(std::string_view name) {
    return "Invalid redeclaration of variable " + quoted("$" + std::string(name)) + " as a different type.";
}

inline std::string cannotConvert(std::string_view from, std::string_view to) {
    return "Cannot convert data of type " + std::string(from) + " to type " + std::string(to) + ".";
}

inline std::string cannotOperate(std::string_view left, std::string_view operation, std::string_view right) {
    return "Cannot use " + std::string(operation) + " on " + std::string(left) + " and " + std::string(right) + ".";
}

inline std::string notIndexable(std::string_view type) {
    return "Cannot index data of type " + std::string(type) + ".";
}

inline std::string noProcedure(std::string_view name) {
    return "Cannot find procedure " + quoted(name) + ".";
}

inline std::string noScript(std::string_view name) {
    return "Cannot find file " + quoted(name) + " for source statement.";
}

inline std::string wrongArgumentCount(std::string_view name) {
    return "Wrong number of arguments on call to " + std::string(name) + ".";
}

inline std::string wrongArgumentType(std::string_view name, std::string_view type) {
    return std::string(name) + " does not take an argument of type " + std::string(type) + ".";
}

inline std::string needsArrayVariable(std::string_view name) {
    return std::string(name) + " needs an array variable.";
}

inline std::string valueFromVoid(std::string_view name) {
    return "Procedure " + quoted(name) + " has no return type but returns a value.";
}

} // namespace host::mel::messages
