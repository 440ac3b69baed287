#pragma once

#include "host/graph/Graph.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace host {

// The inside of Graph, for the files that implement it.

struct PlugHash {
    std::size_t operator()(const Plug& plug) const {
        std::size_t hash = std::hash<const Node*>{}(plug.node);
        const auto mix = [&hash](std::int32_t part) {
            hash = (hash ^ static_cast<std::uint32_t>(part)) * 0x9E3779B97F4A7C15ULL;
            hash ^= hash >> 32U;
        };
        mix(plug.at.attr);
        for (int i = 0; i < plug.at.depth; ++i) {
            mix(plug.at.index[static_cast<std::size_t>(i)]);
        }
        return hash;
    }
};

using PlugSet = std::unordered_set<Plug, PlugHash>;

struct Graph::Impl {
    struct Slot {
        std::unique_ptr<Node> node;
        std::uint32_t generation = 1;
        std::size_t place = 0; // in `order`
    };
    std::vector<Slot> slots; // slot 0 is the world
    std::vector<std::uint32_t> freeSlots;
    std::unique_ptr<NodeType> worldType; // when the registry has no "world"

    // Destroyed nodes leave nulls behind until somebody asks for the list, so that thousands can go one by one.
    std::vector<Node*> order;
    std::size_t goneNodes = 0;

    std::unordered_set<Node*> timeDriven; // nodes whose type has a time input
    std::unordered_set<Node*> timeNodes;  // nodes that give the time

    // Paths counted in the nodes are valid for this version of the DAG; nodes whose own count alone changes do not
    // raise it.
    std::uint64_t dagVersion = 1;
    static inline std::uint64_t lastLoss = 0; // of all graphs: a later scene has another number
    std::uint64_t lossOfParents = ++lastLoss;
    /// Per node with many parents: how many paths come before those through each parent.
    struct PathsBefore {
        std::uint64_t version = 0;
        std::unordered_map<const Node*, std::size_t> count;
    };
    std::unordered_map<const Node*, PathsBefore> pathsBefore;

    std::size_t cachedCount = 0; // entries of all caches: nothing to drop while it is 0
    std::size_t computeCount = 0;
    std::size_t dropCount = 0;
    PlugSet computing;
    int depth = 0;
    bool preparing = false;
    // A value that stands for another (too deep) went into a cache that does not depend on what is cached: from then
    // on, dropping may not stop at outputs that are dropped already.
    bool everGaveUp = false;

    std::set<std::string> said;
};

/// "node.long.name[2]" for messages.
std::string messageName(const Graph& graph, const Plug& plug);

} // namespace host
