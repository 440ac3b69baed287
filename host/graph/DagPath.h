#pragma once

#include "host/graph/Graph.h"

#include <string>
#include <vector>

namespace host {

/// One way from the world down to a node: the nodes below the world, topmost first. Empty means the world itself.
struct DagPath {
    std::vector<Node*> nodes;

    Node* end() const { return nodes.empty() ? nullptr : nodes.back(); }
    friend bool operator==(const DagPath& a, const DagPath& b) { return a.nodes == b.nodes; }
};

/// All paths to a node in instance order: for each parent in its order, each path of that parent in its order.
std::vector<DagPath> allPaths(const Graph& graph, const Node& node);
/// Position of a path among allPaths of its end node; 0 for a node with one path. -1 when the path is not one of them.
int instanceNumber(const Graph& graph, const DagPath& path);
/// Number of paths without listing them.
std::size_t pathCount(const Graph& graph, const Node& node);
/// "|a|b|c"; "|" is never alone: the world gives "".
std::string fullPathName(const DagPath& path);

} // namespace host
