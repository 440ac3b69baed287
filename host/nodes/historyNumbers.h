#pragma once

#include "host/graph/Graph.h"

#include <cstdint>

namespace host {

/// Kinds of parts of a mesh that have numbers.
namespace part {
constexpr unsigned kVertices = 1U << 0U;
constexpr unsigned kEdges = 1U << 1U;
constexpr unsigned kFaces = 1U << 2U;
constexpr unsigned kUvs = 1U << 3U;
constexpr int kKindCount = 4;
} // namespace part

/// Kinds of parts whose numbers, after a node as it is set, need not be those of the real host.
unsigned looseNumbers(Graph& graph, Node& node);

/// Kinds of parts that a node names by number, where it does not name all of a kind.
unsigned namedNumbers(Graph& graph, Node& node);

} // namespace host
