#pragma once

#include "host/graph/Node.h"

#include <cstddef>

namespace host {

// Ways through the stored values of a node. For Graph only: everybody else asks Graph, which also looks at connections
// and drops what depends on a change.

/// Where a value stands: an entry of its own, or one number of a NumberRows. Neither when nothing is stored.
struct StoredPlace {
    const Value* value = nullptr;
    const NumberRows* rows = nullptr;
    std::size_t row = 0;
    int column = 0;

    explicit operator bool() const { return value != nullptr || rows != nullptr; }
};

/// `at` names one value, or a whole array (then `value` holds all its elements). `values` are the node's.
StoredPlace findStored(const Node& node, const Block& values, const PlugAddress& at);

/// The entry of one value that does not lie in a `rows` array, or of a whole array; made, with all above it, when
/// missing.
Value& makeStored(const Node& node, Block& values, const PlugAddress& at);

/// The rows of a whole array of an attribute with `rows`, made when missing.
NumberRows& makeStoredRows(const Node& node, Block& values, const PlugAddress& array);

/// Stores one number, wherever it belongs, as its attribute's kind holds it.
void storeNumber(const Node& node, Block& values, const PlugAddress& at, double value);

/// Whether an element of a whole array (address of the element) holds anything.
bool isElementStored(const Node& node, const Block& values, const PlugAddress& element);

} // namespace host
