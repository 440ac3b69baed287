#pragma once

#include "host/graph/NodeType.h"

namespace host {

// Nodes with one mesh in (inputPolymesh) and one out. What is no mesh passes through, and so does everything while the
// node's state says so.
void computePolyTweak(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyTweakUv(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolySoftEdge(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyNormal(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyTriangulate(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyQuad(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyMapDel(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyColorPerVertex(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// All meshes that come in, each placed by its matrix, as one.
void computePolyUnite(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Nodes that are not evaluated: no mesh comes out, but for the input of a modifier whose state says so.
void computeNoMesh(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeRefusedModifier(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
