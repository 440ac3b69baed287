#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// nurbsCurve: its curve in `local`, and in `worldSpace` as it lies in the world: what `create` brings, else what is
/// stored, with what controlPoints adds to its points; and the matrices of any shape.
void computeNurbsCurve(Evaluation& evaluation, Node& node, const PlugAddress& output);
void fillNurbsCurveAffects(NodeType& type);

/// curveInfo: the length of its curve.
void computeCurveInfo(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// motionPath: the place of uValue on its curve, by the parameter or, with fractionMode, by the part of the length;
/// and, with follow, the angles (in rotateOrder) that turn frontAxis along the curve and upAxis as near as possible to
/// the up direction that worldUpType names. Without a curve, nothing moves.
void computeMotionPath(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
