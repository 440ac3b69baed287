#include "host/mel/Evaluator.h"

#include "host/mel/operators.h"

namespace host::mel {

namespace {

// The type that holds all elements of an array literal.
ValueType commonType(ValueType left, ValueType right) {
    for (ValueType type : {ValueType::kString, ValueType::kVector, ValueType::kFloat}) {
        if (left == type || right == type) {
            return type;
        }
    }
    return ValueType::kInt;
}

} // namespace

Value Evaluator::evaluate(const Expression& expression) {
    const DepthGuard guard(state_.depth);
    state_.step();
    switch (expression.kind) {
    case ExpressionKind::kLiteral:
        return expression.literal;
    case ExpressionKind::kVariable:
        return variableOf(expression.variable).value;
    case ExpressionKind::kElement:
        return evaluateElement(expression);
    case ExpressionKind::kComponent:
        return evaluateComponent(expression);
    case ExpressionKind::kArray:
        return evaluateArray(expression);
    case ExpressionKind::kVector:
        return evaluateVector(expression);
    case ExpressionKind::kMatrix:
        return evaluateMatrix(expression);
    case ExpressionKind::kNegate: {
        const Value operand = evaluate(expression.children.front());
        setPlace(expression.offset);
        return negated(operand);
    }
    case ExpressionKind::kNot:
        return !holds(expression.children.front());
    case ExpressionKind::kChain:
        return evaluateChain(expression);
    case ExpressionKind::kLogical:
        return evaluateLogical(expression);
    case ExpressionKind::kConditional:
        return evaluate(expression.children[holds(expression.children[0]) ? 1 : 2]);
    case ExpressionKind::kAssign: {
        Value assigned;
        assign(expression, &assigned);
        return assigned;
    }
    case ExpressionKind::kStep:
        return evaluateStep(expression);
    case ExpressionKind::kCast: {
        const Value operand = evaluate(expression.children.front());
        setPlace(expression.offset);
        return convertedOrFail(operand, expression.type);
    }
    case ExpressionKind::kCall:
    case ExpressionKind::kCommand:
        return evaluateCall(expression);
    case ExpressionKind::kCatch:
        return evaluateCatch(expression);
    }
    return {};
}

// The value without a copy where it lies in a variable; valid until that variable is changed.
const Value& Evaluator::view(const Expression& expression, Value& storage) {
    if (expression.kind == ExpressionKind::kVariable) {
        return variableOf(expression.variable).value;
    }
    storage = evaluate(expression);
    return storage;
}

std::size_t Evaluator::evaluateIndex(const Expression& expression) {
    const Value value = evaluate(expression);
    setPlace(expression.offset);
    const std::int64_t index = convertedOrFail(value, ValueType::kInt).toInt();
    if (index < 0) {
        throw ScriptFailure(messages::kNegativeIndex);
    }
    return static_cast<std::size_t>(index);
}

// Place of the addressed cell in row order; looked up last, since evaluating the indices may change the matrix.
std::size_t Evaluator::evaluateCell(const Expression& element, const Value& indexed) {
    if (element.children.size() != 3) {
        setPlace(element.offset);
        throw ScriptFailure(messages::kMatrixNeedsTwoIndices);
    }
    const std::size_t row = evaluateIndex(element.children[1]);
    const std::size_t column = evaluateIndex(element.children[2]);
    setPlace(element.offset);
    const Matrix& matrix = indexed.matrix();
    if (row >= matrix.rows || column >= matrix.columns) {
        throw ScriptFailure(messages::kMatrixIndex);
    }
    return row * matrix.columns + column;
}

Value Evaluator::evaluateElement(const Expression& expression) {
    Value storage;
    const Expression& base = expression.children.front();
    const Value& indexed = view(base, storage);
    if (indexed.type() == ValueType::kMatrix) {
        const std::size_t cell = evaluateCell(expression, indexed);
        return indexed.matrix().cells[cell];
    }
    const std::size_t index = evaluateIndex(expression.children[1]);
    setPlace(expression.offset);
    const bool isUndecided = indexed.isNone() && base.kind == ExpressionKind::kVariable;
    if (expression.children.size() != 2 || !(indexed.isArray() || isUndecided)) {
        throw ScriptFailure(messages::notIndexable(typeName(indexed.type())));
    }
    return indexed.element(index);
}

Value Evaluator::evaluateComponent(const Expression& expression) {
    const Value value = evaluate(expression.children.front());
    setPlace(expression.offset);
    if (value.type() != ValueType::kVector) {
        throw ScriptFailure(messages::cannotConvert(typeName(value.type()), typeName(ValueType::kVector)));
    }
    const Vector vector = value.toVector();
    switch (expression.name.front()) {
    case 'x':
        return vector.x;
    case 'y':
        return vector.y;
    default:
        return vector.z;
    }
}

Value Evaluator::evaluateArray(const Expression& expression) {
    std::vector<Value> elements;
    elements.reserve(expression.children.size());
    ValueType type = ValueType::kInt;
    for (const Expression& child : expression.children) {
        elements.push_back(evaluate(child));
        type = commonType(type, elements.back().type());
    }
    setPlace(expression.offset);
    Value array = Value::defaultOf(arrayTypeOf(type));
    for (const Value& element : elements) {
        const Value converted = convertedOrFail(element, type);
        switch (type) {
        case ValueType::kString:
            array.editStrings().push_back(converted.text());
            break;
        case ValueType::kVector:
            array.editVectors().push_back(converted.toVector());
            break;
        case ValueType::kFloat:
            array.editFloats().push_back(converted.toFloat());
            break;
        default:
            array.editInts().push_back(converted.toInt());
        }
    }
    return array;
}

Value Evaluator::evaluateVector(const Expression& expression) {
    double parts[3] = {0.0, 0.0, 0.0};
    for (std::size_t part = 0; part < 3; ++part) {
        const Value value = evaluate(expression.children[part]);
        setPlace(expression.offset);
        parts[part] = convertedOrFail(value, ValueType::kFloat).toFloat();
    }
    return Vector{parts[0], parts[1], parts[2]};
}

Value Evaluator::evaluateMatrix(const Expression& expression) {
    Matrix matrix{expression.children.size() / expression.columns, expression.columns, {}};
    for (const Expression& child : expression.children) {
        const Value value = evaluate(child);
        setPlace(expression.offset);
        matrix.cells.push_back(convertedOrFail(value, ValueType::kFloat).toFloat());
    }
    return matrix;
}

Value Evaluator::evaluateChain(const Expression& expression) {
    Value left = evaluate(expression.children.front());
    for (std::size_t part = 1; part < expression.children.size(); ++part) {
        const Value right = evaluate(expression.children[part]);
        setPlace(expression.offset);
        const TokenKind operation = expression.operators[part - 1];
        const bool isAppending = operation == TokenKind::kPlus && left.isString() && right.isString();
        if (!isAppending) {
            left = applyBinary(operation, left, right);
            continue;
        }
        state_.step((left.text().size() + right.text().size()) / 64);
        if (left.text().size() + right.text().size() > kMaximumTextBytes) {
            throw ScriptFailure(messages::kTextTooLong);
        }
        left.editText() += right.text();
    }
    return left;
}

Value Evaluator::evaluateLogical(const Expression& expression) {
    const bool isOr = expression.operators.front() == TokenKind::kOr;
    for (const Expression& child : expression.children) {
        if (holds(child) == isOr) {
            return isOr;
        }
    }
    return !isOr;
}

} // namespace host::mel
