#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/Ast.h"
#include "host/mel/InterpreterState.h"
#include "host/mel/builtins.h"

namespace host::mel {

// What a name stands for when it is called; all null when for nothing.
struct Callable {
    const Procedure* procedure = nullptr;
    std::shared_ptr<const Procedure> keeper; // of a global procedure, which may be declared anew while it runs
    const Builtin* builtin = nullptr;
    std::shared_ptr<const NativeCommand> command;

    bool exists() const { return procedure != nullptr || builtin != nullptr || command != nullptr; }
};

// Walks the tree of one evaluation. Its parts are Evaluator.cpp (texts), executeStatements.cpp,
// evaluateExpressions.cpp, evaluateAssignments.cpp and evaluateCalls.cpp. Failures are thrown as ScriptFailure.
class Evaluator {
public:
    explicit Evaluator(Interpreter& interpreter) : interpreter_(interpreter), state_(*interpreter.state_) {}

    // Parses and runs a text; gives the value of its last expression or command.
    Value runText(std::string_view text, std::string file, bool outermostIsGlobal);
    Value runScript(const std::string& name);

    // Calls anything by name with ready values.
    Value call(const std::string& name, std::vector<Value> arguments);

    // Without scripts on the script path, unless mayLoad.
    Callable find(std::string_view name, bool mayLoad);

    // Runs an action that may fail and tells whether it did; the message goes to the error sink unless quiet.
    template <typename Action>
    bool hasFailed(bool isQuiet, Action action);

    Interpreter& interpreter() { return interpreter_; }
    Interpreter::State& state() { return state_; }

private:
    enum class Flow : std::uint8_t { kNext, kBreak, kContinue, kReturn };

    struct Frame {
        const Unit* unit = nullptr;
        const Procedure* procedure = nullptr;
        std::vector<Variable> slots;
        Value result;
    };

    class FrameGuard;
    class PlaceGuard;

    // Statements.
    Flow execute(const Statement& statement);
    Flow executeBlock(const Statement& block);
    Flow executeIf(const Statement& statement);
    Flow executeFor(const Statement& loop);
    Flow executeForIn(const Statement& loop);
    Flow executeWhile(const Statement& loop);
    Flow executeDoWhile(const Statement& loop);
    Flow executeSwitch(const Statement& statement);
    void executeDeclaration(const Declarator& declarator);
    void sizeVariable(Variable& variable, const Declarator& declarator);
    void clearSlots(const Statement& owner);
    bool holds(const Expression& condition);

    // Expressions.
    Value evaluate(const Expression& expression);
    const Value& view(const Expression& expression, Value& storage);
    Value evaluateElement(const Expression& expression);
    Value evaluateComponent(const Expression& expression);
    Value evaluateArray(const Expression& expression);
    Value evaluateVector(const Expression& expression);
    Value evaluateMatrix(const Expression& expression);
    Value evaluateChain(const Expression& expression);
    Value evaluateLogical(const Expression& expression);
    std::size_t evaluateIndex(const Expression& expression);
    std::size_t evaluateCell(const Expression& element, const Value& indexed);

    // Assignments.
    Variable& variableOf(const VariableReference& reference);
    void assign(const Expression& expression, Value* result);
    Value evaluateStep(const Expression& expression);
    void store(Variable& variable, Value value);
    Value storeElement(Variable& variable, const Expression& element, const Value& value);
    void appendText(Variable& variable, const Value& value);
    void growArray(Variable& variable, std::size_t size);

    // Calls.
    Value evaluateCall(const Expression& call);
    Value evaluateCatch(const Expression& expression);
    Value callProcedure(const Callable& callable, const Expression& call);
    Value callBuiltin(const Builtin& builtin, const Expression& call);
    Value callCommand(const NativeCommand& command, const Expression& call);
    Value runBuiltin(const Builtin& builtin, BuiltinCall& call);
    Value runCommand(const NativeCommand& command, const Invocation& invocation);
    Value runProcedure(const Procedure& procedure, Frame frame);
    Value runUnit(const Unit& unit);

    // Failures without a place get this one.
    void setPlace(std::size_t offset) {
        state_.placeUnit = frame_ != nullptr ? frame_->unit : nullptr;
        state_.placeOffset = offset;
    }
    void placeFailure(ScriptFailure& failure) const;

    Interpreter& interpreter_;
    Interpreter::State& state_;
    Frame* frame_ = nullptr;
};

class Evaluator::FrameGuard {
public:
    FrameGuard(Frame*& current, Frame& next) : current_(current), before_(current) { current_ = &next; }
    ~FrameGuard() { current_ = before_; }
    FrameGuard(const FrameGuard&) = delete;
    FrameGuard& operator=(const FrameGuard&) = delete;

private:
    Frame*& current_;
    Frame* before_;
};

// Gives the caller its place back, whose text outlives that of what it calls.
class Evaluator::PlaceGuard {
public:
    explicit PlaceGuard(Interpreter::State& state)
        : state_(state), unit_(state.placeUnit), offset_(state.placeOffset) {}
    ~PlaceGuard() {
        state_.placeUnit = unit_;
        state_.placeOffset = offset_;
    }
    PlaceGuard(const PlaceGuard&) = delete;
    PlaceGuard& operator=(const PlaceGuard&) = delete;

private:
    Interpreter::State& state_;
    const Unit* unit_;
    std::size_t offset_;
};

template <typename Action>
bool Evaluator::hasFailed(bool isQuiet, Action action) {
    try {
        action();
        return false;
    } catch (const ScriptFailure& failure) {
        if (failure.isFatal) {
            throw;
        }
        if (!isQuiet && state_.sinks.error) {
            state_.sinks.error(failure.text);
        }
        return true;
    }
}

} // namespace host::mel
