#include "host/mel/Interpreter.h"

#include "host/mel/Evaluator.h"
#include "host/mel/InterpreterState.h"

#include <limits>
#include <new>

namespace host::mel {

namespace {

constexpr std::uint64_t kStepsBetweenHooks = 4096;

} // namespace

void Interpreter::State::beginSteps() {
    steps = 0;
    nextHook = 0;
    isInterrupted = false;
}

void Interpreter::State::checkSteps() {
    if (stepLimit != 0 && steps > stepLimit) {
        throw ScriptFailure(messages::kStepLimit, true);
    }
    const std::uint64_t nextLimit = stepLimit != 0 ? stepLimit + 1 : std::numeric_limits<std::uint64_t>::max();
    isInterrupted = isInterrupted || (stepHook && nextHook != 0 && !stepHook());
    if (isInterrupted) {
        throw ScriptFailure(messages::kInterrupted, true);
    }
    nextHook = std::min(steps + kStepsBetweenHooks, nextLimit);
}

std::string ScriptError::describe() const {
    std::string place = file;
    if (line != 0) {
        place += (place.empty() ? "line " : ", line ") + std::to_string(line) + ", column " + std::to_string(column);
    }
    return place.empty() ? text : place + ": " + text;
}

Interpreter::Interpreter() : state_(std::make_unique<State>()) {}

Interpreter::~Interpreter() = default;

CommandTable& Interpreter::commands() {
    return state_->commands;
}

const CommandTable& Interpreter::commands() const {
    return state_->commands;
}

MessageSinks& Interpreter::sinks() {
    return state_->sinks;
}

void Interpreter::setScriptLoader(ScriptLoader loader) {
    state_->loader = std::move(loader);
}

// Runs one action of an evaluator of its own, turns failures into results, and runs what was deferred behind the
// outermost.
template <typename Action>
EvalResult Interpreter::run(Action action) {
    EvalResult result;
    if (state_->running == 0) {
        state_->beginSteps();
    }
    ++state_->running;
    try {
        Evaluator evaluator(*this);
        result.value = action(evaluator);
    } catch (const ScriptFailure& failure) {
        result.error = failure.error();
    } catch (const std::bad_alloc&) {
        result.error = ScriptError{std::string(messages::kOutOfMemory), {}, 0, 0};
    }
    --state_->running;
    if (state_->running == 0) {
        runDeferred();
    }
    return result;
}

void Interpreter::runDeferred() {
    ++state_->running;
    while (!state_->deferred.empty()) {
        const std::string script = std::move(state_->deferred.front());
        state_->deferred.pop_front();
        const EvalResult result = eval(script);
        if (!result.ok() && state_->sinks.error) {
            state_->sinks.error(result.error->text);
        }
        const bool isStopped = state_->isInterrupted || (state_->stepLimit != 0 && state_->steps > state_->stepLimit);
        if (isStopped) {
            state_->deferred.clear();
        }
    }
    --state_->running;
}

EvalResult Interpreter::eval(std::string_view text, std::string_view sourceName) {
    return run([&](Evaluator& evaluator) { return evaluator.runText(text, std::string(sourceName), true); });
}

EvalResult Interpreter::source(const std::string& name) {
    return run([&](Evaluator& evaluator) { return evaluator.runScript(name); });
}

EvalResult Interpreter::call(std::string_view name, std::vector<Value> arguments) {
    return run([&](Evaluator& evaluator) { return evaluator.call(std::string(name), std::move(arguments)); });
}

bool Interpreter::hasProcedure(std::string_view name) const {
    return state_->procedures.find(name) != state_->procedures.end();
}

std::string Interpreter::whatIs(std::string_view name) const {
    if (!name.empty() && name.front() == '$') {
        const auto variable = state_->globals.find(name.substr(1));
        const bool isKnown = variable != state_->globals.end() && variable->second->type != ValueType::kNone;
        return isKnown ? std::string(typeName(variable->second->type)) + " variable" : "Unknown";
    }
    const auto procedure = state_->procedures.find(name);
    if (procedure != state_->procedures.end()) {
        const std::string& file = procedure->second->unit->file;
        return file.empty() ? "Mel procedure entered interactively." : "Mel procedure found in: " + file;
    }
    if (findBuiltin(name) != nullptr || state_->commands.find(name) != nullptr) {
        return "Command";
    }
    const auto script = state_->loader && !name.empty() ? state_->loader(std::string(name) + ".mel") : std::nullopt;
    return script.has_value() ? "Script found in: " + script->path : "Unknown";
}

const Value* Interpreter::findGlobal(std::string_view name) const {
    const auto found = state_->globals.find(name);
    const bool isDeclared = found != state_->globals.end() && found->second->type != ValueType::kNone;
    return isDeclared ? &found->second->value : nullptr;
}

void Interpreter::setGlobal(std::string_view name, Value value) {
    std::unique_ptr<Variable>& variable = state_->globals[std::string(name)];
    if (variable == nullptr) {
        variable = std::make_unique<Variable>();
    }
    variable->type = value.type();
    variable->value = std::move(value);
}

void Interpreter::defer(std::string script) {
    state_->deferred.push_back(std::move(script));
    if (state_->running == 0) {
        state_->beginSteps();
        runDeferred();
    }
}

void Interpreter::setStepHook(std::function<bool()> hook) {
    state_->stepHook = std::move(hook);
}

void Interpreter::setStepLimit(std::uint64_t steps) {
    state_->stepLimit = steps;
}

} // namespace host::mel
