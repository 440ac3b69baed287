#pragma once

#include "host/graph/Graph.h"

#include <cstddef>
#include <string>
#include <vector>

namespace host {

/// One way from the world down to a node: the nodes below the world, topmost first. Empty means the world itself.
struct DagPath {
    std::vector<Node*> nodes;

    Node* end() const { return nodes.empty() ? nullptr : nodes.back(); }
    friend bool operator==(const DagPath& a, const DagPath& b) { return a.nodes == b.nodes; }
};

/// Nested instancing multiplies paths without bound: no more than this many are listed, and no more than
/// kPathNodeLimit nodes in them all.
constexpr std::size_t kPathLimit = 1000000;
constexpr std::size_t kPathNodeLimit = 50000000;

/// All paths to a node in instance order: for each parent in its order, each path of that parent in its order. Beyond
/// the limits the first ones, with a warning through the graph ("'a' has too many DAG paths: only the first 1000000 are
/// used"). A node without parents that is not the world counts as a top node.
std::vector<DagPath> allPaths(const Graph& graph, const Node& node);
/// Position of a path among all paths of its end node; 0 for a node with one path. -1 when the path is not one of them
/// (or is beyond the range of int).
int instanceNumber(const Graph& graph, const DagPath& path);
/// Number of paths without listing them; stops at the largest number of its type.
std::size_t pathCount(const Graph& graph, const Node& node);
/// "|a|b|c"; "|" is never alone: the world gives "".
std::string fullPathName(const DagPath& path);

} // namespace host
