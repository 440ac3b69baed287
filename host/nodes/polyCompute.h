#pragma once

#include "host/graph/NodeType.h"

namespace host {

// Nodes with one mesh in (inputPolymesh) and one out. What is no mesh passes through, and so does everything while the
// node's state says so.
void computePolyTweak(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Nodes that are not evaluated: no mesh comes out, or the input.
void computeNoMesh(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePassingModifier(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
