#include "host/api/plugElements.h"

#include "host/graph/plugSteps.h"

#include <algorithm>
#include <set>

namespace host {

namespace {

/// Adds the element of each connected place of one attribute at or below the array.
template <class Connections>
void addConnected(const Connections& connections, AttrIndex attr, const PlugAddress& array,
                  std::set<std::int32_t>& indices) {
    PlugAddress from = array;
    from.attr = attr;
    const auto depth = static_cast<std::size_t>(array.depth);
    for (auto at = connections.lower_bound(from); at != connections.end() && at->first.attr == attr; ++at) {
        const PlugAddress& address = at->first;
        if (!std::equal(array.index.begin(), array.index.begin() + array.depth, address.index.begin())) {
            break; // sorted by indices: no more of this array
        }
        if (address.depth > array.depth) {
            indices.insert(address.index[depth]);
        }
    }
}

/// The stored rows when they are all that the array has.
const NumberRows* onlyRows(const Graph& graph, const Plug& array) {
    const NumberRows* rows = graph.storedRows(array);
    return rows != nullptr && connectedElements(array).empty() ? rows : nullptr;
}

} // namespace

std::vector<std::int32_t> connectedElements(const Plug& array) {
    std::set<std::int32_t> indices;
    for (const AttrIndex attr : withDescendants(*array.node, array.at.attr)) {
        addConnected(array.node->incoming(), attr, array.at, indices);
        addConnected(array.node->outgoing(), attr, array.at, indices);
    }
    return {indices.begin(), indices.end()};
}

std::size_t elementCount(const Graph& graph, const Plug& array) {
    const NumberRows* rows = onlyRows(graph, array);
    return rows != nullptr ? rows->rowCount() : graph.elementIndices(array).size();
}

std::optional<std::int32_t> elementAt(const Graph& graph, const Plug& array, std::size_t physical) {
    if (const NumberRows* rows = onlyRows(graph, array)) {
        return physical < rows->rowCount() ? std::optional(rows->logicalIndex(physical)) : std::nullopt;
    }
    const std::vector<std::int32_t> indices = graph.elementIndices(array);
    return physical < indices.size() ? std::optional(indices[physical]) : std::nullopt;
}

} // namespace host
