#pragma once

#include "host/graph/Graph.h"
#include "host/nodes/transformMatrix.h"

#include <Imath/ImathVec.h>

namespace host {

/// Value of a number or of a compound of three numbers of a node now, in internal units; `otherwise` (in each
/// component) when the node has no such attribute.
double numberOf(Graph& graph, Node& node, const char* name, double otherwise);
Imath::V3d vectorOf(Graph& graph, Node& node, const char* name, double otherwise);

/// The three angles, in radians, that make up a rotation without scale or shear.
Imath::V3d anglesOf(const Matrix44& rotation, RotateOrder order);

/// World matrix of a DAG node along its first path; the identity for others.
Matrix44 worldMatrixOf(Graph& graph, Node& node);

/// Sets translate, rotate, scale and shear of a transform so that its world matrix becomes `world`, with its pivots,
/// rotate axis, joint orient, rotate order and scale compensation as they are. Channels that are locked or connected
/// stay, and so does everything below a parent that is scaled to nothing.
void moveToWorldMatrix(Graph& graph, Node& transform, const Matrix44& world);

} // namespace host
