#pragma once

#include "host/graph/Graph.h"

#include <cstddef>

namespace host {

/// Counts DAG paths. A node's count is kept until the DAG above it changes. For this room only.
class PathCounter {
public:
    explicit PathCounter(const Graph& graph) : graph_(graph) {}

    /// Paths to a node; stops at the largest number. The world, and a node without parents, have one.
    std::size_t count(const Node& node) const;
    /// Paths to `node` that come before those through `parent`; the largest number when it is not a parent of it.
    std::size_t before(const Node& node, const Node& parent) const;

    /// To be told before `node` gets `parent` as its last one, and after it has lost one.
    void parentComes(Node& node, const Node& parent) const;
    void parentWent(Node& node) const;

private:
    bool isKnown(const Node& node) const;
    void know(const Node& node, std::size_t count) const;
    void sumUp(const Node& node) const;

    const Graph& graph_;
};

} // namespace host
