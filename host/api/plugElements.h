#pragma once

#include "host/graph/Graph.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace host {

/// The elements of an array that exist: set, connected or, for world-space arrays, one per path. `array` names a whole
/// array. Constant time for arrays of numbers that nothing is connected to.
std::size_t elementCount(const Graph& graph, const Plug& array);
/// Logical index of the n-th; nothing when out of range.
std::optional<std::int32_t> elementAt(const Graph& graph, const Plug& array, std::size_t physical);

/// Logical indices of the elements that a connection ends at or begins at, or at something below them; ascending.
std::vector<std::int32_t> connectedElements(const Plug& array);

} // namespace host
