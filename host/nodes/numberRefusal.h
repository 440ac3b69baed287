#pragma once

#include "host/graph/Graph.h"

#include <string>

namespace host {

/// Why the history of a shape of type "mesh" does not give what the real host would, though all of it is evaluated: a
/// node names parts of the mesh by numbers that a node before it gives in an order of this host's own. One line, with
/// the shape called `shown`; empty when there is nothing:
///   node type 'polyQuad' before 'polyDelFacet' is not supported: body.polyDelFacet1 names parts of the mesh by numbers
///     that body.polyQuad1 gives them (delete the history of 'body', or export from Maya)
std::string findNumberRefusal(Graph& graph, Node& mesh, const std::string& shown);

} // namespace host
