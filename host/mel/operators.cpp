#include "host/mel/operators.h"

#include "host/mel/ScriptFailure.h"
#include "host/mel/messages.h"

#include <cmath>

namespace host::mel {

namespace {

[[noreturn]] void failTypes(TokenKind operation, const Value& left, const Value& right) {
    throw ScriptFailure(
        messages::cannotOperate(typeName(left.type()), describeKind(operation), typeName(right.type())));
}

template <typename T>
std::optional<Value> compared(TokenKind operation, const T& left, const T& right) {
    switch (operation) {
    case TokenKind::kEqual:
        return Value(left == right);
    case TokenKind::kNotEqual:
        return Value(left != right);
    case TokenKind::kLess:
        return Value(left < right);
    case TokenKind::kLessEqual:
        return Value(left <= right);
    case TokenKind::kGreater:
        return Value(left > right);
    case TokenKind::kGreaterEqual:
        return Value(left >= right);
    default:
        return std::nullopt;
    }
}

std::int64_t wrapped(std::uint64_t value) {
    return static_cast<std::int64_t>(value);
}

Value applyToInts(TokenKind operation, const Value& leftValue, const Value& rightValue) {
    const std::int64_t left = leftValue.toInt();
    const std::int64_t right = rightValue.toInt();
    const auto a = static_cast<std::uint64_t>(left); // unsigned arithmetic wraps without undefined behaviour
    const auto b = static_cast<std::uint64_t>(right);
    switch (operation) {
    case TokenKind::kPlus:
        return wrapped(a + b);
    case TokenKind::kMinus:
        return wrapped(a - b);
    case TokenKind::kStar:
        return wrapped(a * b);
    case TokenKind::kSlash:
    case TokenKind::kPercent: {
        if (right == 0) {
            throw ScriptFailure(messages::kDivisionByZero);
        }
        const bool isQuotient = operation == TokenKind::kSlash;
        if (right == -1) { // the least integer has no counterpart above
            return isQuotient ? wrapped(0 - a) : 0;
        }
        return isQuotient ? left / right : left % right;
    }
    default:
        if (const auto result = compared(operation, left, right)) {
            return *result;
        }
        failTypes(operation, leftValue, rightValue);
    }
}

Value applyToFloats(TokenKind operation, const Value& leftValue, const Value& rightValue) {
    const double left = leftValue.toFloat();
    const double right = rightValue.toFloat();
    switch (operation) {
    case TokenKind::kPlus:
        return left + right;
    case TokenKind::kMinus:
        return left - right;
    case TokenKind::kStar:
        return left * right;
    case TokenKind::kSlash:
    case TokenKind::kPercent:
        if (right == 0.0) {
            throw ScriptFailure(messages::kDivisionByZero);
        }
        return operation == TokenKind::kSlash ? left / right : std::fmod(left, right);
    default:
        if (const auto result = compared(operation, left, right)) {
            return *result;
        }
        failTypes(operation, leftValue, rightValue);
    }
}

Value applyToTexts(TokenKind operation, const Value& left, const Value& right) {
    if (operation == TokenKind::kPlus) {
        std::string joined = left.toText();
        joined += right.isString() ? right.text() : right.toText();
        if (joined.size() > kMaximumTextBytes) {
            throw ScriptFailure(messages::kTextTooLong);
        }
        return joined;
    }
    const auto result = left.isString() && right.isString() ? compared(operation, left.text(), right.text())
                                                            : compared(operation, left.toText(), right.toText());
    if (!result.has_value()) {
        failTypes(operation, left, right);
    }
    return *result;
}

template <typename Operation>
Vector combined(const Vector& left, const Vector& right, Operation operation) {
    return {operation(left.x, right.x), operation(left.y, right.y), operation(left.z, right.z)};
}

double checkedQuotient(double left, double right) {
    if (right == 0.0) {
        throw ScriptFailure(messages::kDivisionByZero);
    }
    return left / right;
}

Value compareVectors(TokenKind operation, const Value& left, const Value& right) {
    const Vector a = left.toVector();
    const Vector b = right.toVector();
    const bool isEqual = a.x == b.x && a.y == b.y && a.z == b.z;
    if (operation == TokenKind::kEqual || operation == TokenKind::kNotEqual) {
        return isEqual == (operation == TokenKind::kEqual);
    }
    const auto result = compared(operation, left.toFloat(), right.toFloat()); // order is by length
    if (!result.has_value()) {
        failTypes(operation, left, right);
    }
    return *result;
}

Value applyToVectors(TokenKind operation, const Value& left, const Value& right) {
    const Vector a = left.toVector();
    const Vector b = right.toVector();
    const bool areBoth = left.type() == right.type();
    switch (operation) {
    case TokenKind::kPlus:
        return combined(a, b, [](double p, double q) { return p + q; });
    case TokenKind::kMinus:
        return combined(a, b, [](double p, double q) { return p - q; });
    case TokenKind::kStar:
        return areBoth ? Value(dotProduct(a, b)) : Value(combined(a, b, [](double p, double q) { return p * q; }));
    case TokenKind::kSlash:
        return combined(a, b, checkedQuotient);
    case TokenKind::kCaret:
        if (!areBoth) {
            failTypes(operation, left, right);
        }
        return crossProduct(a, b);
    default:
        return compareVectors(operation, left, right);
    }
}

Matrix product(const Matrix& left, const Matrix& right) {
    Matrix result{left.rows, right.columns, std::vector<double>(left.rows * right.columns, 0.0)};
    for (std::size_t row = 0; row < left.rows; ++row) {
        for (std::size_t column = 0; column < right.columns; ++column) {
            double sum = 0.0;
            for (std::size_t inner = 0; inner < left.columns; ++inner) {
                sum += left.cells[row * left.columns + inner] * right.cells[inner * right.columns + column];
            }
            result.cells[row * result.columns + column] = sum;
        }
    }
    return result;
}

Value applyToMatrices(TokenKind operation, const Value& left, const Value& right) {
    const bool areBoth = left.type() == right.type();
    const bool isScaling = operation == TokenKind::kStar && !areBoth && (left.isNumber() || right.isNumber());
    if (isScaling) {
        Matrix scaled = left.isNumber() ? right.matrix() : left.matrix();
        const double factor = left.isNumber() ? left.toFloat() : right.toFloat();
        for (double& cell : scaled.cells) {
            cell *= factor;
        }
        return scaled;
    }
    const Matrix& a = left.matrix();
    const Matrix& b = right.matrix();
    if (areBoth && operation == TokenKind::kStar && a.columns == b.rows) {
        return product(a, b);
    }
    const bool isSameShape = areBoth && a.rows == b.rows && a.columns == b.columns;
    if (isSameShape && (operation == TokenKind::kPlus || operation == TokenKind::kMinus)) {
        Matrix sum = a;
        for (std::size_t cell = 0; cell < sum.cells.size(); ++cell) {
            sum.cells[cell] += operation == TokenKind::kPlus ? b.cells[cell] : -b.cells[cell];
        }
        return sum;
    }
    failTypes(operation, left, right);
}

} // namespace

Vector crossProduct(const Vector& left, const Vector& right) {
    return {left.y * right.z - left.z * right.y, left.z * right.x - left.x * right.z,
            left.x * right.y - left.y * right.x};
}

double dotProduct(const Vector& left, const Vector& right) {
    return left.x * right.x + left.y * right.y + left.z * right.z;
}

Value applyBinary(TokenKind operation, const Value& left, const Value& right) {
    const auto isEither = [&](ValueType type) { return left.type() == type || right.type() == type; };
    if (left.isArray() || right.isArray() || left.isNone() || right.isNone()) {
        failTypes(operation, left, right);
    }
    if (isEither(ValueType::kMatrix)) {
        return applyToMatrices(operation, left, right);
    }
    if (isEither(ValueType::kString)) {
        return applyToTexts(operation, left, right);
    }
    if (isEither(ValueType::kVector)) {
        return applyToVectors(operation, left, right);
    }
    return isEither(ValueType::kFloat) ? applyToFloats(operation, left, right) : applyToInts(operation, left, right);
}

Value negated(const Value& value) {
    switch (value.type()) {
    case ValueType::kInt:
        return wrapped(0 - static_cast<std::uint64_t>(value.toInt()));
    case ValueType::kVector:
    case ValueType::kMatrix:
        return applyBinary(TokenKind::kStar, value, -1);
    default:
        return -convertedOrFail(value, ValueType::kFloat).toFloat();
    }
}

bool isTrue(const Value& value) {
    if (value.isArray() || value.isNone() || value.type() == ValueType::kMatrix) {
        throw ScriptFailure(messages::cannotConvert(typeName(value.type()), typeName(ValueType::kInt)));
    }
    return value.toBool();
}

Value convertedOrFail(const Value& value, ValueType type) {
    std::optional<Value> converted = value.convertedTo(type);
    if (!converted.has_value()) {
        throw ScriptFailure(messages::cannotConvert(typeName(value.type()), typeName(type)));
    }
    return std::move(*converted);
}

TokenKind operatorOfAssignment(TokenKind assignment) {
    switch (assignment) {
    case TokenKind::kPlusAssign:
        return TokenKind::kPlus;
    case TokenKind::kMinusAssign:
        return TokenKind::kMinus;
    case TokenKind::kStarAssign:
        return TokenKind::kStar;
    case TokenKind::kSlashAssign:
        return TokenKind::kSlash;
    case TokenKind::kPercentAssign:
        return TokenKind::kPercent;
    default:
        return TokenKind::kCaret;
    }
}

} // namespace host::mel
