#pragma once

#include "host/graph/Graph.h"

#include <vector>

namespace host {

/// The outputs that are not cached and that `output` may need, by connections, `affects` and the DAG, each after those
/// that it needs itself; without `output`. Found without the stack, so for graphs of any depth. A cycle is cut where it
/// closes. More than what compute functions will read in the end may be among them.
std::vector<Plug> evaluationOrder(const Graph& graph, const Plug& output);

} // namespace host
