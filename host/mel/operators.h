#pragma once

#include "host/mel/Token.h"
#include "host/mel/Value.h"

namespace host::mel {

constexpr std::size_t kMaximumTextBytes = std::size_t{1} << 28;
constexpr std::size_t kMaximumElements = std::size_t{1} << 24;

// The value of left operation right, operation being one of + - * / % ^ == != < <= > >=. Integers wrap; with a string
// on either side + joins and comparisons compare texts; vector * vector is the dot product and ^ the cross product.
// Throws ScriptFailure for division by zero and for types that the operator does not take.
Value applyBinary(TokenKind operation, const Value& left, const Value& right);

Value negated(const Value& value);

// The truth of a condition; throws ScriptFailure for arrays, matrices and none.
bool isTrue(const Value& value);

// The value as a type, or ScriptFailure when MEL has no such conversion.
Value convertedOrFail(const Value& value, ValueType type);

// The plain operator of a compound assignment: + of +=.
TokenKind operatorOfAssignment(TokenKind assignment);

Vector crossProduct(const Vector& left, const Vector& right);
double dotProduct(const Vector& left, const Vector& right);

} // namespace host::mel
