#pragma once

#include "host/geometry/skinning.h"
#include "host/graph/Graph.h"

#include <memory>

namespace host {

/// The points of a skinCluster (classic linear), and the weights that it stores as one block.
void computeSkinCluster(Evaluation& evaluation, Node& node, const PlugAddress& output);

void fillSkinAffects(NodeType& type);

/// The weights of a node of type "skinCluster" as they are now; never null. Gathered once, until a weight changes.
std::shared_ptr<const SkinWeights> skinWeights(Graph& graph, Node& skinCluster);

} // namespace host
