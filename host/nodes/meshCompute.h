#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// The meshes of a shape of type "mesh": cachedInMesh (its history's, or else the stored one), outMesh (that with the
/// shape's tweaks) and worldMesh (the same on every path, in object space); the matrices of any other DAG node.
void computeMesh(Evaluation& evaluation, Node& node, const PlugAddress& output);

void fillMeshAffects(NodeType& type);

} // namespace host
