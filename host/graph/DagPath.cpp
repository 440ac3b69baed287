#include "host/graph/DagPath.h"

#include "host/graph/PathCounter.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();

/// A node on the way up from the end node, and which of its parents comes next.
struct Step {
    Node* node;
    std::size_t nextParent = 0;
};

bool isTop(const Graph& graph, const Step& step) {
    const auto& parents = step.node->parents();
    return parents.empty() || parents[step.nextParent] == &graph.world();
}

DagPath pathOf(const std::vector<Step>& way) {
    DagPath path;
    path.nodes.reserve(way.size());
    for (auto step = way.rbegin(); step != way.rend(); ++step) {
        path.nodes.push_back(step->node);
    }
    return path;
}

} // namespace

std::vector<DagPath> allPaths(const Graph& graph, const Node& node) {
    std::vector<DagPath> paths;
    if (&node == &graph.world()) {
        return {DagPath{}};
    }
    std::size_t listedNodes = 0;
    std::vector<Step> way{{graph.node(node.id())}};
    while (!way.empty()) {
        Step& step = way.back();
        const auto& parents = step.node->parents();
        if (step.nextParent == std::max<std::size_t>(parents.size(), 1)) {
            way.pop_back();
            continue;
        }
        if (!isTop(graph, step)) {
            way.push_back({parents[step.nextParent++]});
            continue;
        }
        ++step.nextParent;
        listedNodes += way.size();
        if (paths.size() == kPathLimit || (listedNodes > kPathNodeLimit && !paths.empty())) {
            graph.warn(node.name() + " has too many DAG paths: only the first " + std::to_string(paths.size()) +
                       " are used");
            return paths;
        }
        paths.push_back(pathOf(way));
    }
    return paths;
}

int instanceNumber(const Graph& graph, const DagPath& path) {
    const PathCounter counter(graph);
    std::size_t number = 0;
    const Node* parent = &graph.world();
    for (const Node* node : path.nodes) {
        const bool topWithoutParent = node->parents().empty() && parent == &graph.world();
        const std::size_t before = topWithoutParent ? 0 : counter.before(*node, *parent);
        if (before > kMost - number) {
            return -1;
        }
        number += before;
        parent = node;
    }
    return number > static_cast<std::size_t>(std::numeric_limits<int>::max()) ? -1 : static_cast<int>(number);
}

std::size_t pathCount(const Graph& graph, const Node& node) {
    return PathCounter(graph).count(node);
}

std::string fullPathName(const DagPath& path) {
    std::string name;
    for (const Node* node : path.nodes) {
        name += "|" + node->name();
    }
    return name;
}

} // namespace host
