#pragma once

#include "host/graph/Graph.h"
#include "host/nodes/animCurve.h"

#include <memory>

namespace host {

/// Computes `output` of the eight kinds of animation curve from its keys at `input`, and `animationCurve`, the curve
/// made ready for that, which only a change of the keys drops.
void computeAnimCurve(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// The curve of a node of one of the eight kinds (any other node gives null). It is made once, and again after a
/// change.
std::shared_ptr<const AnimCurve> animCurveOf(Graph& graph, Node& node);

/// Fills which attribute of a curve type changes what.
void fillCurveAffects(NodeType& type);

} // namespace host
