#include "host/mel/Evaluator.h"

#include "host/mel/Parser.h"

#include <new>

namespace host::mel {

void Evaluator::placeFailure(ScriptFailure& failure) const {
    if (failure.placed.has_value() || state_.placeUnit == nullptr) {
        return;
    }
    const SourcePosition position = state_.placeUnit->position(state_.placeOffset);
    failure.placed = ScriptError{failure.text, state_.placeUnit->file, position.line, position.column};
}

Value Evaluator::runText(std::string_view text, std::string file, bool outermostIsGlobal) {
    // A text inside a text brings the frames of its reader and of the command that runs it.
    constexpr std::size_t kFramesOfAText = 16;
    const DepthGuard guard(state_.depth, kFramesOfAText);
    state_.step(text.size() / 16);
    const ParseResult parsed = parseUnit(text, file, state_.globals, outermostIsGlobal);
    if (parsed.unit == nullptr) {
        const SyntaxError& error = parsed.error;
        throw ScriptFailure(ScriptError{error.text, std::move(file), error.position.line, error.position.column});
    }
    for (const auto& procedure : parsed.unit->procedures) {
        if (procedure->isGlobal) {
            state_.procedures[procedure->name] = std::shared_ptr<const Procedure>(parsed.unit, procedure.get());
        }
    }
    return runUnit(*parsed.unit);
}

Value Evaluator::runUnit(const Unit& unit) {
    const PlaceGuard place(state_);
    Frame frame;
    frame.unit = &unit;
    frame.slots.resize(unit.slotCount);
    const FrameGuard guard(frame_, frame);
    Value last;
    try {
        for (const Statement& statement : unit.statements) {
            setPlace(statement.offset);
            last = Value();
            if (statement.kind == StatementKind::kExpression) {
                last = evaluate(statement.expressions.front());
            } else {
                execute(statement);
            }
        }
    } catch (ScriptFailure& failure) {
        placeFailure(failure); // while the text is still there
        throw;
    } catch (const std::bad_alloc&) {
        ScriptFailure failure(messages::kOutOfMemory);
        placeFailure(failure);
        throw failure;
    }
    return last;
}

Value Evaluator::runScript(const std::string& name) {
    const std::optional<ScriptFile> script = state_.loader ? state_.loader(name) : std::nullopt;
    if (!script.has_value()) {
        throw ScriptFailure(messages::noScript(name));
    }
    return runText(script->text, script->path, false);
}

Callable Evaluator::find(std::string_view name, bool mayLoad) {
    Callable callable;
    if (frame_ != nullptr) {
        const auto local = frame_->unit->localProcedures.find(name);
        callable.procedure = local != frame_->unit->localProcedures.end() ? local->second : nullptr;
    }
    const auto global = state_.procedures.find(name);
    if (callable.procedure == nullptr && global != state_.procedures.end()) {
        callable.keeper = global->second;
        callable.procedure = callable.keeper.get();
    }
    if (callable.procedure != nullptr) {
        return callable;
    }
    callable.builtin = findBuiltin(name);
    if (callable.builtin == nullptr) {
        callable.command = state_.commands.find(name);
    }
    if (callable.exists() || !mayLoad || !state_.loader) {
        return callable;
    }
    const std::optional<ScriptFile> script = state_.loader(std::string(name) + ".mel");
    if (script.has_value()) {
        runText(script->text, script->path, false);
        return find(name, false);
    }
    return callable;
}

} // namespace host::mel
