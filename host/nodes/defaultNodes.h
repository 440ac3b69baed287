#pragma once

#include "host/graph/Graph.h"

namespace host {

/// Creates the nodes that every new scene has, marked as default: the cameras persp, top, front and side with their
/// shapes first, then time1, the sets, shaders, lists and globals, with the values and connections that files rely on
/// without saying so. The graph has all registered node types and none of these nodes.
void createDefaultNodes(Graph& graph);

} // namespace host
