#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/Ast.h"
#include "host/mel/Variable.h"

namespace host::mel {

// Names of variables while a text is parsed: which slot or global variable each stands for.
//
// New global variables are kept back until commit, so that a text with a syntax error declares nothing.
class VariableScopes {
public:
    // With outermostIsGlobal, variables outside procedures and blocks are global ones, known to later texts.
    VariableScopes(GlobalVariables& globals, bool outermostIsGlobal);

    void beginProcedure();
    std::size_t endProcedure(); // slots that it needs

    void beginBlock();
    void endBlock(Statement& owner); // notes the block's slots in owner

    std::optional<VariableReference> find(std::string_view name) const;

    // Declares in the innermost block. type may be kNone when only the first assignment will tell it. Nothing when
    // the name is there with another type already.
    std::optional<VariableReference> declare(const std::string& name, ValueType type);
    std::optional<VariableReference> declareGlobal(const std::string& name, ValueType type);

    std::size_t slotCount() const { return functions_.back().slotCount; }
    bool isOutermost() const { return functions_.size() == 1 && functions_.back().blocks.size() == 1; }
    bool isInProcedure() const { return functions_.size() > 1; }
    void commit();

private:
    struct Entry {
        VariableReference reference;
        ValueType type = ValueType::kNone;
    };
    struct Block {
        std::map<std::string, Entry, std::less<>> names;
        std::size_t firstSlot = 0;
    };
    struct Function {
        std::vector<Block> blocks;
        std::size_t slotCount = 0;
    };
    Variable* findGlobalVariable(std::string_view name) const;

    GlobalVariables& globals_;
    GlobalVariables pending_;
    bool outermostIsGlobal_;
    std::vector<Function> functions_;
};

} // namespace host::mel
