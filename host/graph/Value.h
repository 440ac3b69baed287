#pragma once

#include "host/graph/Data.h"
#include "host/graph/NumberRows.h"

#include <Imath/ImathMatrix.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace host {

using Matrix44 = Imath::M44d; // row vectors: p' = p * M, translation in the last row

class Block;

/// An array whose elements are not plain numbers: the elements that exist, ascending by logical index.
struct ElementArray;

/// One stored value. std::monostate: nothing stored, the default holds.
using Value = std::variant<std::monostate, double, std::string, std::shared_ptr<const Matrix44>, DataPtr,
                           std::unique_ptr<NumberRows>, std::unique_ptr<ElementArray>>;

/// The stored values of a node, or of one element of an array of compounds, by attribute. Only what was set is there.
/// Children of a compound outside arrays stand beside each other here under their own index; a compound has no entry.
class Block {
public:
    const Value* find(AttrIndex attr) const;
    Value& at(AttrIndex attr); // made (empty) when missing
    void erase(AttrIndex attr);
    const std::vector<std::pair<AttrIndex, Value>>& entries() const { return entries_; }

private:
    std::vector<std::pair<AttrIndex, Value>> entries_; // ascending by attribute
};

struct ElementArray {
    std::map<std::int32_t, Block> elements; // by logical index

    const Block* find(std::int32_t logical) const;
    Block& at(std::int32_t logical); // made when missing
};

} // namespace host
