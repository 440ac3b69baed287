#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Evaluation.h"

namespace host {

/// A number that no other groupId node of the graph has; never 0.
void computeGroupId(Evaluation& evaluation, Node& node, const PlugAddress& output);

// Nodes with one mesh in (inputGeometry) and one out. What is no mesh passes through, and so does everything while the
// node's state says so.
void computeGroupParts(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeTransformGeometry(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeCreateUvSet(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeDeleteUvSet(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeCreateColorSet(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeDeleteColorSet(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Nodes that are not evaluated: the input passes through.
void computePassingGeometry(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Changes a copy of the input mesh.
using ChangeFunction = void (*)(Evaluation& evaluation, Node& node, MeshData& mesh);

/// Puts a changed copy of the mesh that the attribute holds; what is no mesh, and everything while the node's state
/// says that it has no effect, as it is.
void putChanged(Evaluation& evaluation, Node& node, AttrIndex input, const PlugAddress& output, ChangeFunction change);

} // namespace host
