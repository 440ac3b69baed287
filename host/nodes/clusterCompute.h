#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// cluster and jointCluster: each member p moves to p + weight * (p * M - p), where M turns by the node's clusterXforms
/// when they are set or connected, else by its bindPreMatrix and matrix, in the space of its geomMatrix.
void computeCluster(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// What a cluster's handle hands to it: the handle's own matrix between its parent's inverse and its parent's matrix.
/// The matrices of any other DAG node.
void computeClusterHandle(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
