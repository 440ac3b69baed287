#include "host/mel/Evaluator.h"

#include "host/mel/operators.h"

namespace host::mel {

Variable& Evaluator::variableOf(const VariableReference& reference) {
    Variable& variable = reference.global != nullptr ? *reference.global : frame_->slots[reference.slot];
    return variable.resolved();
}

void Evaluator::store(Variable& variable, Value value) {
    const ValueType type = variable.type != ValueType::kNone ? variable.type : value.type();
    if (type == ValueType::kNone) {
        throw ScriptFailure(messages::cannotConvert(typeName(type), typeName(ValueType::kInt)));
    }
    if (value.type() != type) {
        value = convertedOrFail(value, type);
    }
    variable.type = type;
    variable.value = std::move(value);
}

void Evaluator::growArray(Variable& variable, std::size_t size) {
    if (size > kMaximumElements) {
        throw ScriptFailure(messages::kArrayTooLarge);
    }
    state_.step((size - variable.value.size()) / 16);
    switch (variable.type) {
    case ValueType::kIntArray:
        variable.value.editInts().resize(size);
        break;
    case ValueType::kFloatArray:
        variable.value.editFloats().resize(size);
        break;
    case ValueType::kStringArray:
        variable.value.editStrings().resize(size);
        break;
    default:
        variable.value.editVectors().resize(size);
    }
}

Value Evaluator::storeElement(Variable& variable, const Expression& element, const Value& value) {
    if (variable.type == ValueType::kNone) {
        variable.declare(arrayTypeOf(value.type()));
    }
    if (variable.type == ValueType::kMatrix) {
        const std::size_t cell = evaluateCell(element, variable.value);
        const double number = convertedOrFail(value, ValueType::kFloat).toFloat();
        variable.value.editMatrix().cells[cell] = number;
        return number;
    }
    const std::size_t index = evaluateIndex(element.children[1]);
    setPlace(element.offset);
    if (!isArrayType(variable.type) || element.children.size() != 2) {
        throw ScriptFailure(messages::notIndexable(typeName(variable.type)));
    }
    Value converted = convertedOrFail(value, elementTypeOf(variable.type));
    state_.step(variable.value.isShared() ? variable.value.size() / 16 : 0);
    if (index >= variable.value.size()) {
        growArray(variable, index + 1);
    }
    switch (variable.type) {
    case ValueType::kIntArray:
        variable.value.editInts()[index] = converted.toInt();
        break;
    case ValueType::kFloatArray:
        variable.value.editFloats()[index] = converted.toFloat();
        break;
    case ValueType::kStringArray:
        variable.value.editStrings()[index] = converted.text();
        break;
    default:
        variable.value.editVectors()[index] = converted.toVector();
    }
    return converted;
}

// Texts are often built piece by piece; appending in place keeps that linear.
void Evaluator::appendText(Variable& variable, const Value& value) {
    const std::string piece = convertedOrFail(value, ValueType::kString).toText();
    state_.step(piece.size() / 16);
    if (variable.value.text().size() + piece.size() > kMaximumTextBytes) {
        throw ScriptFailure(messages::kTextTooLong);
    }
    variable.value.editText() += piece;
}

// result, if wanted, gets the value after its conversion to the variable's type.
void Evaluator::assign(const Expression& expression, Value* result) {
    const Expression& target = expression.children[0];
    const TokenKind operation = expression.operators.front();
    const bool isElement = target.kind == ExpressionKind::kElement;
    Value value = evaluate(expression.children[1]);
    Variable& variable = variableOf((isElement ? target.children.front() : target).variable);
    setPlace(expression.offset);
    const bool isAppending = operation == TokenKind::kPlusAssign && !isElement && variable.type == ValueType::kString;
    if (isAppending) {
        appendText(variable, value);
    } else if (operation != TokenKind::kAssign) {
        const Value before = isElement ? evaluateElement(target) : variable.value;
        setPlace(expression.offset);
        value = applyBinary(operatorOfAssignment(operation), before, value);
    }
    if (isElement) {
        Value stored = storeElement(variable, target, value);
        if (result != nullptr) {
            *result = std::move(stored);
        }
        return;
    }
    if (!isAppending) {
        store(variable, std::move(value));
    }
    if (result != nullptr) {
        *result = variable.value;
    }
}

Value Evaluator::evaluateStep(const Expression& expression) {
    const Expression& target = expression.children.front();
    const bool isElement = target.kind == ExpressionKind::kElement;
    Variable& variable = variableOf((isElement ? target.children.front() : target).variable);
    Value before = isElement ? evaluateElement(target) : variable.value;
    setPlace(expression.offset);
    if (!before.isNumber()) {
        throw ScriptFailure(messages::cannotConvert(typeName(before.type()), typeName(ValueType::kInt)));
    }
    const bool isUp = expression.operators.front() == TokenKind::kIncrement;
    Value after = applyBinary(isUp ? TokenKind::kPlus : TokenKind::kMinus, before, 1);
    if (isElement) {
        storeElement(variable, target, after);
    } else {
        store(variable, after);
    }
    return expression.isPrefix ? after : before;
}

} // namespace host::mel
