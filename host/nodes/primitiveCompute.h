#pragma once

#include "host/graph/NodeType.h"

namespace host {

// The meshes of the nodes that create one from numbers. What a node asks for beyond what is known of the real host is
// said, and made in the nearest known way.
void computePolyCube(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyPlane(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolySphere(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyCylinder(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyCone(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyTorus(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyPyramid(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computePolyPrism(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
