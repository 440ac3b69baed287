#include "host/geometry/meshComponents.h"

#include <algorithm>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

std::vector<bool> namedOf(const ComponentList& list, ComponentKind kind, std::int32_t count) {
    std::vector<bool> named(at(count), false);
    for (const IndexRange range : mergedRanges(list, kind)) {
        const std::int32_t last = std::min(range.last, count - 1);
        for (std::int32_t index = range.first; index <= last; ++index) {
            named[at(index)] = true;
        }
    }
    return named;
}

/// Calls add(corner) for the corners of all faces that the list names.
template <typename Add>
void forCornersOfFaces(const ComponentList& list, const MeshTopology& topology, Add&& add) {
    for (const IndexRange range : mergedRanges(list, ComponentKind::kFace)) {
        const std::int32_t last = std::min(range.last, topology.faceCount() - 1);
        for (std::int32_t face = range.first; face <= last; ++face) {
            for (std::int32_t corner = topology.firstCorner(face); corner < topology.firstCorner(face + 1); ++corner) {
                add(at(corner));
            }
        }
    }
}

} // namespace

std::vector<bool> namedFaces(const ComponentList& list, const MeshTopology& topology) {
    return namedOf(list, ComponentKind::kFace, topology.faceCount());
}

std::vector<bool> namedEdges(const ComponentList& list, const MeshTopology& topology) {
    std::vector<bool> named = namedOf(list, ComponentKind::kEdge, topology.edgeCount());
    forCornersOfFaces(list, topology, [&](std::size_t corner) {
        named[at(MeshTopology::edgeNumber(topology.cornerEdges()[corner]))] = true;
    });
    return named;
}

std::vector<bool> namedVertices(const ComponentList& list, const MeshTopology& topology) {
    std::vector<bool> named = namedOf(list, ComponentKind::kVertex, topology.vertexCount());
    for (const IndexRange range : mergedRanges(list, ComponentKind::kEdge)) {
        const std::int32_t last = std::min(range.last, topology.edgeCount() - 1);
        for (std::int32_t edge = range.first; edge <= last; ++edge) {
            named[at(topology.edges()[at(edge)].start)] = true;
            named[at(topology.edges()[at(edge)].end)] = true;
        }
    }
    forCornersOfFaces(list, topology, [&](std::size_t corner) { named[at(topology.cornerVertices()[corner])] = true; });
    return named;
}

std::vector<std::int32_t> listedIndices(const ComponentList& list, ComponentKind kind, std::int32_t count,
                                        std::size_t most) {
    std::vector<std::int32_t> indices;
    for (const ComponentRange& range : list.ranges) {
        if (range.kind != kind || range.dimensions != 1) {
            continue;
        }
        const std::int32_t last = std::min(range.index[0].last, count - 1);
        for (std::int32_t index = range.index[0].first; index <= last && indices.size() < most; ++index) {
            indices.push_back(index);
        }
    }
    return indices;
}

} // namespace host
