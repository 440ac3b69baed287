#include "host/mel/Evaluator.h"

#include "host/mel/operators.h"

#include <new>

namespace host::mel {

Value Evaluator::evaluateCall(const Expression& call) {
    setPlace(call.offset);
    const Callable callable = find(call.name, true);
    if (!callable.exists()) {
        throw ScriptFailure(messages::noProcedure(call.name));
    }
    if (callable.procedure != nullptr) {
        return callProcedure(callable, call);
    }
    return callable.builtin != nullptr ? callBuiltin(*callable.builtin, call) : callCommand(*callable.command, call);
}

Value Evaluator::evaluateCatch(const Expression& expression) {
    return hasFailed(expression.isQuiet, [&] { evaluate(expression.children.front()); });
}

Value Evaluator::callProcedure(const Callable& callable, const Expression& call) {
    const Procedure& procedure = *callable.procedure;
    if (call.children.size() != procedure.parameters.size()) {
        throw ScriptFailure(messages::wrongArgumentCount(call.name));
    }
    Frame frame;
    frame.unit = procedure.unit;
    frame.procedure = &procedure;
    frame.slots.resize(procedure.slotCount);
    for (std::size_t index = 0; index < call.children.size(); ++index) {
        const Expression& argument = call.children[index];
        Variable& parameter = frame.slots[index];
        parameter.type = procedure.parameters[index];
        Variable* given = argument.kind == ExpressionKind::kVariable ? &variableOf(argument.variable) : nullptr;
        if (given != nullptr && isArrayType(parameter.type)) {
            given->declare(parameter.type);
        }
        if (given != nullptr && isArrayType(parameter.type) && given->type == parameter.type) {
            parameter.target = given; // arrays are passed by reference
            continue;
        }
        const Value value = evaluate(argument);
        setPlace(argument.offset);
        parameter.value = convertedOrFail(value, parameter.type);
    }
    setPlace(call.offset);
    return runProcedure(procedure, std::move(frame));
}

Value Evaluator::runProcedure(const Procedure& procedure, Frame frame) {
    const PlaceGuard place(state_);
    const FrameGuard guard(frame_, frame);
    try {
        const Flow flow = execute(procedure.body);
        if (procedure.returnType == ValueType::kNone) {
            if (!frame.result.isNone()) {
                throw ScriptFailure(messages::valueFromVoid(procedure.name));
            }
            return {};
        }
        return flow == Flow::kReturn ? convertedOrFail(frame.result, procedure.returnType)
                                     : Value::defaultOf(procedure.returnType);
    } catch (ScriptFailure& failure) {
        placeFailure(failure); // while the text of the procedure is still there
        throw;
    } catch (const std::bad_alloc&) {
        ScriptFailure failure(messages::kOutOfMemory);
        placeFailure(failure);
        throw failure;
    }
}

Value Evaluator::callBuiltin(const Builtin& builtin, const Expression& call) {
    BuiltinCall builtinCall{*this, builtin.name, {}, {}};
    for (const Expression& child : call.children) {
        const bool isVariable = child.kind == ExpressionKind::kVariable;
        builtinCall.arguments.push_back({evaluate(child), child.isWord});
        builtinCall.variables.push_back(isVariable ? &variableOf(child.variable) : nullptr);
    }
    setPlace(call.offset);
    return runBuiltin(builtin, builtinCall);
}

Value Evaluator::runBuiltin(const Builtin& builtin, BuiltinCall& call) {
    if (call.count() < builtin.fewestArguments || call.count() > builtin.mostArguments) {
        throw ScriptFailure(messages::wrongArgumentCount(builtin.name));
    }
    return builtin.run(call);
}

Value Evaluator::callCommand(const NativeCommand& command, const Expression& call) {
    Invocation invocation;
    invocation.name = call.name;
    invocation.isFunctionCall = call.kind == ExpressionKind::kCall;
    invocation.file = frame_->unit->file;
    invocation.line = frame_->unit->position(call.offset).line;
    for (const Expression& child : call.children) {
        invocation.arguments.push_back({evaluate(child), child.isWord});
    }
    setPlace(call.offset);
    return runCommand(command, invocation);
}

Value Evaluator::runCommand(const NativeCommand& command, const Invocation& invocation) {
    CommandResult result = command(interpreter_, invocation);
    if (!result.ok()) {
        throw ScriptFailure(std::move(*result.error));
    }
    return std::move(result.value);
}

Value Evaluator::call(const std::string& name, std::vector<Value> arguments) {
    const Callable callable = find(name, true);
    if (callable.procedure != nullptr) {
        const Procedure& procedure = *callable.procedure;
        if (arguments.size() != procedure.parameters.size()) {
            throw ScriptFailure(messages::wrongArgumentCount(name));
        }
        Frame frame;
        frame.unit = procedure.unit;
        frame.procedure = &procedure;
        frame.slots.resize(procedure.slotCount);
        for (std::size_t index = 0; index < arguments.size(); ++index) {
            frame.slots[index].type = procedure.parameters[index];
            frame.slots[index].value = convertedOrFail(arguments[index], procedure.parameters[index]);
        }
        return runProcedure(procedure, std::move(frame));
    }
    if (callable.builtin != nullptr) {
        BuiltinCall builtinCall{*this, callable.builtin->name, {}, {}};
        for (Value& argument : arguments) {
            builtinCall.arguments.push_back({std::move(argument), false});
        }
        builtinCall.variables.resize(arguments.size(), nullptr);
        return runBuiltin(*callable.builtin, builtinCall);
    }
    if (callable.command == nullptr) {
        throw ScriptFailure(messages::noProcedure(name));
    }
    Invocation invocation;
    invocation.name = name;
    invocation.isFunctionCall = true;
    for (Value& argument : arguments) {
        invocation.arguments.push_back({std::move(argument), false});
    }
    return runCommand(*callable.command, invocation);
}

} // namespace host::mel
