#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// Computes `output` of the eight kinds of animation curve from its keys at `input`, and `animationCurve`, the curve
/// made ready for that, which only a change of the keys drops.
void computeAnimCurve(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Fills which attribute of a curve type changes what.
void fillCurveAffects(NodeType& type);

} // namespace host
