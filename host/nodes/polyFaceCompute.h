#pragma once

#include "host/geometry/extrusion.h"
#include "host/graph/Evaluation.h"

namespace host {

// Modifiers that change which faces, edges and vertices there are, or where: one mesh in (inputPolymesh;
// deleteComponent: inputGeometry) and one out. What is no mesh passes through, and so does everything while the node's
// state says so. findHistoryProblem tells what of them is not evaluated.
void computePolySubdFace(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolySmoothFace(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyMergeVert(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyChipOff(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyDelFacet(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyDelEdge(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyDelVertex(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeDeleteComponent(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyExtrudeFace(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// Vertices, or those of edges or faces, moved by a translation.
void computePolyMove(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// Modifiers that change nothing which is read from a mesh.
void computeUnchanged(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// What a polyExtrudeFace node is set to.
Extrusion extrusionOf(Evaluation& evaluation, Node& node);

/// One mesh in, each of its shells out: in the order of their lowest faces.
void computePolySeparate(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
