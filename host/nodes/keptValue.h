#pragma once

#include "host/graph/Graph.h"

namespace host {

/// The number that an output leaves unchanged where it has nothing to say: what the channel that it drives stores
/// itself, seen through a unit conversion; the output's default when it drives none.
double keptValue(const Graph& graph, const Plug& output);

} // namespace host
