#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// Computes the matrices of DAG nodes: of transforms from their channels (clamped to enabled limits), of joints with
/// their orientation and scale compensation; a shape and the world have the identity. A world matrix is
/// matrix * offsetParentMatrix * parentMatrix; the parent matrix is the identity when the node does not inherit its
/// parent's transform. Element i of a world-space matrix is for path i of the node. The inverse of a matrix without one
/// is the identity. Hierarchies of any depth take no stack.
void computeDagMatrices(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Fills which attribute of a DAG node type changes which matrices; all others change none.
void fillDagAffects(NodeType& type);

} // namespace host
