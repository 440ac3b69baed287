#pragma once

#include "host/graph/Graph.h"

namespace host {

/// ikHandle: beside the matrices that every transform has, `solvedRotate`: the rotate angles (radians, in the order of
/// each joint) of the joints from the start joint on that bring the end effector to the handle, mixed with what the
/// joints store or are connected to by ikBlend. The rotate-plane solver takes the side from poleVector (in the space of
/// the handle's parent) and twist; the single-chain solver from how the handle is turned. With another solver, without
/// snapEnable, or without a whole chain, the angles are those that the joints have anyway.
void computeIkHandle(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Fills which attribute of the type changes what.
void fillIkHandleAffects(NodeType& type);

/// Whether the handle's solver is one that computeIkHandle knows.
bool hasKnownSolver(const Node& handle);

/// Ties every handle of the graph to its chain: the joints' rotate is what the handle solves, and the handle is solved
/// again when the chain changes. Files hold no connection for that. May be called again when there are more handles.
void tieIkChains(Graph& graph);

} // namespace host
