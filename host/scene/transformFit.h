#pragma once

#include "host/graph/Graph.h"

namespace host {

/// World matrix of a DAG node along its first path; the identity for others.
Matrix44 worldMatrixOf(Graph& graph, Node& node);

/// Sets translate, rotate, scale and shear of a transform so that its world matrix becomes `world`, with its pivots,
/// rotate axis, joint orient, rotate order and scale compensation as they are. Channels that are locked or connected
/// stay, and so does everything below a parent that is scaled to nothing.
void moveToWorldMatrix(Graph& graph, Node& transform, const Matrix44& world);

} // namespace host
