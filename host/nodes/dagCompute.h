#pragma once

#include "host/graph/NodeType.h"
#include "host/graph/Value.h"

#include <Imath/ImathVec.h>

namespace host {

/// Computes the matrices of DAG nodes: of transforms from their channels (clamped to enabled limits), of joints with
/// their orientation and scale compensation; a shape and the world have the identity. A world matrix is
/// matrix * offsetParentMatrix * parentMatrix; the parent matrix is the identity when the node does not inherit its
/// parent's transform. Element i of a world-space matrix is for path i of the node. The inverse of a matrix without one
/// is the identity. Hierarchies of any depth take no stack.
void computeDagMatrices(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// The local matrix of a transform or joint as it would be with these angles (radians, in its order) as its rotate,
/// which is not read.
Matrix44 transformMatrixWith(Evaluation& evaluation, Node& transform, const Imath::V3d& rotate);

/// Fills which attribute of a DAG node type changes which matrices; all others change none.
void fillDagAffects(NodeType& type);

/// Likewise for a type of transform that computes more: what it declares from `firstOwnAttribute` on, and nodeState,
/// changes all outputs that it declares from there on, and no matrices.
void fillOwnAffects(NodeType& type, const char* firstOwnAttribute);

} // namespace host
