#pragma once

#include "host/graph/NodeType.h"

namespace host {

// Nodes with one mesh in (inputPolymesh, deleteComponent: inputGeometry) and one out. What is no mesh passes through,
// and so does everything while the node's state says so. What a node asks for beyond what is evaluated is said, and
// left out.
void computePolyTweak(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyTweakUv(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolySoftEdge(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyNormal(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyTriangulate(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyQuad(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyMapDel(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyColorPerVertex(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeDeleteComponent(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// All meshes that come in, each placed by its matrix, as one.
void computePolyUnite(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Nodes that are not evaluated: no mesh comes out, or the input.
void computeNoMesh(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePassingModifier(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
