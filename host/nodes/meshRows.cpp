#include "host/nodes/meshRows.h"

#include <set>

namespace host {

namespace {

constexpr std::int64_t kFillAlways = 65536; // gaps up to here cost nothing worth a word
constexpr std::int64_t kFillPerRow = 16;

/// The elements of a whole array at or below which a connection arrives.
std::set<std::int32_t> drivenElements(const Graph& graph, const Plug& array) {
    std::set<std::int32_t> driven;
    if (!graph.isDriven(array)) {
        return driven;
    }
    const Node& node = *array.node;
    const auto add = [&](AttrIndex attr) {
        PlugAddress from = array.at;
        from.attr = attr;
        for (auto link = node.incoming().lower_bound(from); link != node.incoming().end(); ++link) {
            const PlugAddress& at = link->first;
            if (at.attr != attr || at.depth <= array.at.depth) {
                break;
            }
            driven.insert(at.index[static_cast<std::size_t>(array.at.depth)]);
        }
    };
    add(array.at.attr);
    for (const AttrIndex child : node.attribute(array.at.attr).children) {
        add(child);
    }
    return driven;
}

} // namespace

std::int64_t denseCount(const NumberRows* rows) {
    if (rows == nullptr || rows->rowCount() == 0) {
        return 0;
    }
    const std::int64_t count = std::int64_t{rows->logicalIndex(rows->rowCount() - 1)} + 1;
    const auto stored = static_cast<std::int64_t>(rows->rowCount());
    return count <= stored * kFillPerRow + kFillAlways ? count : -1;
}

bool hasVectors(const Graph& graph, const Plug& array) {
    const NumberRows* rows = graph.storedRows(array);
    return (rows != nullptr && rows->rowCount() > 0) || graph.isDriven(array);
}

void addVectors(Graph& graph, const Plug& array, std::vector<Imath::V3f>& vectors) {
    const std::set<std::int32_t> driven = drivenElements(graph, array);
    if (const NumberRows* rows = graph.storedRows(array)) {
        for (std::size_t row = 0; row < rows->rowCount(); ++row) {
            const std::int32_t logical = rows->logicalIndex(row);
            if (logical >= 0 && static_cast<std::size_t>(logical) < vectors.size() && driven.count(logical) == 0) {
                vectors[static_cast<std::size_t>(logical)] +=
                    Imath::V3f(static_cast<float>(rows->value(row, 0)), static_cast<float>(rows->value(row, 1)),
                               static_cast<float>(rows->value(row, 2)));
            }
        }
    }
    const std::vector<AttrIndex>& children = array.node->attribute(array.at.attr).children;
    for (const std::int32_t logical : driven) {
        if (logical < 0 || static_cast<std::size_t>(logical) >= vectors.size()) {
            continue;
        }
        Plug element{array.node, array.at.element(logical)};
        for (unsigned axis = 0; axis < 3; ++axis) {
            element.at.attr = children[axis];
            vectors[static_cast<std::size_t>(logical)][axis] += static_cast<float>(graph.number(element));
        }
    }
}

} // namespace host
