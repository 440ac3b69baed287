#include "host/mel/Evaluator.h"

#include "host/mel/operators.h"

namespace host::mel {

bool Evaluator::holds(const Expression& condition) {
    Value storage;
    const Value& value = view(condition, storage);
    setPlace(condition.offset);
    return isTrue(value);
}

// Variables of a block start anew whenever it is entered.
void Evaluator::clearSlots(const Statement& owner) {
    for (std::size_t slot = owner.firstSlot; slot < owner.lastSlot; ++slot) {
        frame_->slots[slot] = Variable();
    }
}

Evaluator::Flow Evaluator::execute(const Statement& statement) {
    const DepthGuard guard(state_.depth);
    state_.step();
    setPlace(statement.offset);
    switch (statement.kind) {
    case StatementKind::kEmpty:
        return Flow::kNext;
    case StatementKind::kExpression:
        if (statement.expressions.front().kind == ExpressionKind::kAssign) {
            assign(statement.expressions.front(), nullptr);
        } else {
            evaluate(statement.expressions.front());
        }
        return Flow::kNext;
    case StatementKind::kDeclare:
        for (const Declarator& declarator : statement.declarators) {
            executeDeclaration(declarator);
        }
        return Flow::kNext;
    case StatementKind::kBlock:
        clearSlots(statement);
        return executeBlock(statement);
    case StatementKind::kIf:
        return executeIf(statement);
    case StatementKind::kFor:
        return executeFor(statement);
    case StatementKind::kForIn:
        return executeForIn(statement);
    case StatementKind::kWhile:
        return executeWhile(statement);
    case StatementKind::kDoWhile:
        return executeDoWhile(statement);
    case StatementKind::kSwitch:
        return executeSwitch(statement);
    case StatementKind::kBreak:
        return Flow::kBreak;
    case StatementKind::kContinue:
        return Flow::kContinue;
    case StatementKind::kReturn:
        frame_->result = statement.expressions.empty() ? Value() : evaluate(statement.expressions.front());
        setPlace(statement.offset);
        return Flow::kReturn;
    }
    return Flow::kNext;
}

Evaluator::Flow Evaluator::executeBlock(const Statement& block) {
    for (const Statement& child : block.children) {
        const Flow flow = execute(child);
        if (flow != Flow::kNext) {
            return flow;
        }
    }
    return Flow::kNext;
}

Evaluator::Flow Evaluator::executeIf(const Statement& statement) {
    for (std::size_t branch = 0; branch < statement.expressions.size(); ++branch) {
        if (holds(statement.expressions[branch])) {
            return execute(statement.children[branch]);
        }
    }
    const bool hasElse = statement.children.size() > statement.expressions.size();
    return hasElse ? execute(statement.children.back()) : Flow::kNext;
}

Evaluator::Flow Evaluator::executeFor(const Statement& loop) {
    execute(loop.children.front());
    while (holds(loop.expressions.front())) {
        const Flow flow = execute(loop.children.back());
        if (flow == Flow::kBreak) {
            break;
        }
        if (flow == Flow::kReturn) {
            return flow;
        }
        for (std::size_t update = 1; update < loop.expressions.size(); ++update) {
            evaluate(loop.expressions[update]);
        }
    }
    return Flow::kNext;
}

Evaluator::Flow Evaluator::executeForIn(const Statement& loop) {
    const Value array = evaluate(loop.expressions.front()); // a copy: the body may change the variable
    const Declarator& declarator = loop.declarators.front();
    setPlace(declarator.offset);
    if (!array.isArray()) {
        throw ScriptFailure(messages::notIndexable(typeName(array.type())));
    }
    for (std::size_t index = 0; index < array.size(); ++index) {
        Variable& variable = variableOf(declarator.variable);
        variable.declare(declarator.type);
        store(variable, array.element(index));
        const Flow flow = execute(loop.children.front());
        if (flow == Flow::kBreak) {
            break;
        }
        if (flow == Flow::kReturn) {
            return flow;
        }
    }
    return Flow::kNext;
}

Evaluator::Flow Evaluator::executeWhile(const Statement& loop) {
    while (holds(loop.expressions.front())) {
        const Flow flow = execute(loop.children.front());
        if (flow == Flow::kBreak) {
            break;
        }
        if (flow == Flow::kReturn) {
            return flow;
        }
    }
    return Flow::kNext;
}

Evaluator::Flow Evaluator::executeDoWhile(const Statement& loop) {
    do {
        const Flow flow = execute(loop.children.front());
        if (flow == Flow::kBreak) {
            break;
        }
        if (flow == Flow::kReturn) {
            return flow;
        }
    } while (holds(loop.expressions.front()));
    return Flow::kNext;
}

Evaluator::Flow Evaluator::executeSwitch(const Statement& statement) {
    clearSlots(statement);
    const Value wanted = evaluate(statement.expressions.front());
    const CaseLabel* chosen = nullptr;
    for (const CaseLabel& label : statement.labels) {
        const bool isDefault = !label.value.has_value();
        if (isDefault) {
            chosen = chosen != nullptr ? chosen : &label;
            continue;
        }
        const Value candidate = evaluate(*label.value);
        setPlace(label.value->offset);
        if (isTrue(applyBinary(TokenKind::kEqual, wanted, candidate))) {
            chosen = &label;
            break;
        }
    }
    const std::size_t first = chosen != nullptr ? chosen->firstChild : statement.children.size();
    for (std::size_t child = first; child < statement.children.size(); ++child) {
        const Flow flow = execute(statement.children[child]);
        if (flow != Flow::kNext) {
            return flow == Flow::kBreak ? Flow::kNext : flow;
        }
    }
    return Flow::kNext;
}

void Evaluator::executeDeclaration(const Declarator& declarator) {
    Variable& variable = variableOf(declarator.variable);
    const bool isFirst = variable.type == ValueType::kNone || (declarator.isGlobal && !variable.hasRunInitializer);
    variable.declare(declarator.type);
    if (isFirst || !declarator.isGlobal) {
        sizeVariable(variable, declarator);
    }
    const bool skipsInitializer = declarator.isGlobal && variable.hasRunInitializer;
    if (declarator.initial.empty() || skipsInitializer) {
        return;
    }
    variable.hasRunInitializer = declarator.isGlobal;
    Value initial = evaluate(declarator.initial.front());
    setPlace(declarator.offset);
    store(variable, std::move(initial));
}

void Evaluator::sizeVariable(Variable& variable, const Declarator& declarator) {
    if (declarator.sizes.empty()) {
        return;
    }
    const std::size_t first = evaluateIndex(declarator.sizes.front());
    if (declarator.type != ValueType::kMatrix) {
        if (variable.value.size() < first) {
            growArray(variable, first);
        }
        return;
    }
    const std::size_t columns = evaluateIndex(declarator.sizes.back());
    setPlace(declarator.offset);
    const bool isTooLarge = columns != 0 && first > kMaximumElements / columns;
    if (isTooLarge) {
        throw ScriptFailure(messages::kArrayTooLarge);
    }
    state_.step(first * columns / 16);
    variable.value = Matrix{first, columns, std::vector<double>(first * columns, 0.0)};
}

} // namespace host::mel
