#pragma once

#include "host/graph/Graph.h"

#include <string>

namespace host {

/// The handles of non-linear deformers (deformBend, deformTwist, deformFlare …): what they do, as the data in
/// `deformerData`, from their own attributes; and the matrices of any shape.
void computeDeformHandle(Evaluation& evaluation, Node& node, const PlugAddress& output);
void fillDeformHandleAffects(NodeType& type);

/// nonLinear: each member goes as its handle says in the handle's space, which `matrix` takes to the world, weighted
/// by `weightList`. `shapeSpace` takes the points to the world.
void computeNonLinear(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Why this nonLinear cannot be evaluated, to go on after "node type 'nonLinear'": " with a handle of type
/// 'deformWave'". Empty when it can.
std::string limitOfNonLinear(Graph& graph, Node& node);

} // namespace host
