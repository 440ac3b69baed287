#pragma once

#include "host/graph/Graph.h"

#include <string>
#include <vector>

namespace host {

/// What the user must know about a scene before trusting its values: each node type that this host does not evaluate,
/// with the first node of it that drives a transform or a deformable shape, one line per type without "Warning:":
///   node type 'polyBevel3' is not supported: body.polyBevel1 passes its input through
/// ("body" is what it drives: the transform, of a shape too). Nodes that drive nothing of the DAG, whose values arrive
/// only as shading or set membership, are harmless and give no line; nor do inputs of a node whose stored values stay.
/// In the order of the driven nodes' creation, what is nearest to them first.
std::vector<std::string> findEvaluationNotes(const Graph& graph);

} // namespace host
