#include "host/mel/VariableScopes.h"

namespace host::mel {

VariableScopes::VariableScopes(GlobalVariables& globals, bool outermostIsGlobal)
    : globals_(globals), outermostIsGlobal_(outermostIsGlobal) {
    functions_.push_back({{Block()}, 0});
}

void VariableScopes::beginProcedure() {
    functions_.push_back({{Block()}, 0});
}

std::size_t VariableScopes::endProcedure() {
    const std::size_t slotCount = functions_.back().slotCount;
    functions_.pop_back();
    return slotCount;
}

void VariableScopes::beginBlock() {
    Block block;
    block.firstSlot = functions_.back().slotCount;
    functions_.back().blocks.push_back(std::move(block));
}

void VariableScopes::endBlock(Statement& owner) {
    owner.firstSlot = functions_.back().blocks.back().firstSlot;
    owner.lastSlot = functions_.back().slotCount;
    functions_.back().blocks.pop_back();
}

Variable* VariableScopes::findGlobalVariable(std::string_view name) const {
    for (const GlobalVariables* table : {&pending_, static_cast<const GlobalVariables*>(&globals_)}) {
        const auto found = table->find(name);
        if (found != table->end()) {
            return found->second.get();
        }
    }
    return nullptr;
}

std::optional<VariableReference> VariableScopes::find(std::string_view name) const {
    const Function& function = functions_.back();
    for (auto block = function.blocks.rbegin(); block != function.blocks.rend(); ++block) {
        const auto found = block->names.find(name);
        if (found != block->names.end()) {
            return found->second.reference;
        }
    }
    Variable* global = !isInProcedure() && outermostIsGlobal_ ? findGlobalVariable(name) : nullptr;
    return global != nullptr ? std::optional(VariableReference{global, 0}) : std::nullopt;
}

std::optional<VariableReference> VariableScopes::declare(const std::string& name, ValueType type) {
    if (isOutermost() && outermostIsGlobal_) {
        return declareGlobal(name, type);
    }
    Function& function = functions_.back();
    const auto [entry, isNew] = function.blocks.back().names.try_emplace(name);
    if (isNew) {
        entry->second = {{nullptr, function.slotCount}, type};
        ++function.slotCount;
    }
    return entry->second.type == type ? std::optional(entry->second.reference) : std::nullopt;
}

std::optional<VariableReference> VariableScopes::declareGlobal(const std::string& name, ValueType type) {
    Variable* global = findGlobalVariable(name);
    if (global == nullptr) {
        global = pending_.emplace(name, std::make_unique<Variable>()).first->second.get();
    }
    if (global->type != type && global->type != ValueType::kNone && type != ValueType::kNone) {
        return std::nullopt;
    }
    const VariableReference reference{global, 0};
    functions_.back().blocks.back().names[name] = {reference, type};
    global->declare(type);
    return reference;
}

void VariableScopes::commit() {
    globals_.merge(pending_);
}

} // namespace host::mel
