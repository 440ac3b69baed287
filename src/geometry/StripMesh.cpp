#include "geometry/StripMesh.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace tvk {

namespace {

// A number from 0 per distinct position, so that a table over all of them is as short as the list of corners.
std::vector<int32_t> densePositions(const std::vector<const Corner*>& corners, std::size_t& count) {
    int32_t lowest = std::numeric_limits<int32_t>::max();
    int32_t highest = std::numeric_limits<int32_t>::min();
    for (const Corner* corner : corners) {
        lowest = std::min(lowest, corner->position);
        highest = std::max(highest, corner->position);
    }
    std::vector<int32_t> dense(corners.size());
    const int64_t span = corners.empty() ? 0 : int64_t{highest} - lowest + 1;
    if (span <= 4 * static_cast<int64_t>(corners.size())) {
        for (std::size_t i = 0; i < corners.size(); ++i)
            dense[i] = corners[i]->position - lowest;
        count = static_cast<std::size_t>(span);
        return dense;
    }
    // A small polygon of a large model: a table over the span would cost more than its faces.
    std::vector<int32_t> sorted;
    sorted.reserve(corners.size());
    for (const Corner* corner : corners)
        sorted.push_back(corner->position);
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (std::size_t i = 0; i < corners.size(); ++i)
        dense[i] =
            static_cast<int32_t>(std::lower_bound(sorted.begin(), sorted.end(), corners[i]->position) - sorted.begin());
    count = sorted.size();
    return dense;
}

bool cornerLess(const Corner& a, const Corner& b) {
    if (a.normal != b.normal)
        return a.normal < b.normal;
    if (a.texCoord != b.texCoord)
        return a.texCoord < b.texCoord;
    return a.color != b.color ? a.color < b.color : a.matrix < b.matrix;
}

// Numbers equal corners of one position alike.
//   uses   places into `corners` that share a position; reordered
void weldPosition(const std::vector<const Corner*>& corners, std::vector<int32_t>::iterator begin,
                  std::vector<int32_t>::iterator end, std::vector<int32_t>& firstUse) {
    const auto at = [&](int32_t place) -> const Corner& { return *corners[static_cast<std::size_t>(place)]; };
    std::stable_sort(begin, end, [&](int32_t a, int32_t b) { return cornerLess(at(a), at(b)); });
    auto first = begin;
    for (auto use = begin; use != end; ++use) {
        if (at(*first) != at(*use))
            first = use;
        firstUse[static_cast<std::size_t>(*use)] = *first;
    }
}

// Such faces stay alone: which vertex follows when a strip enters them is not told by the edge.
bool repeatsVertex(const std::array<int32_t, 4>& corners, uint32_t sides) {
    for (uint32_t i = 0; i < sides; ++i) {
        for (uint32_t j = i + 1; j < sides; ++j) {
            if (corners[i] == corners[j])
                return true;
        }
    }
    return false;
}

struct HalfEdge {
    int32_t from;
    int32_t to;
    uint32_t place; // face * 4 + edge
};

// The half-edges that run up (from a lower to a higher vertex) or down, in order of their lower vertex, higher vertex
// and place. Both lists put the two directions of an edge into the same place of the order.
std::vector<HalfEdge> sortedHalfEdges(const StripMesh& mesh, bool up, std::size_t vertexCount) {
    std::vector<uint32_t> starts(vertexCount + 1, 0);
    const auto forEach = [&](auto visit) {
        for (std::size_t face = 0; face < mesh.faceCount(); ++face) {
            if (repeatsVertex(mesh.corners[face], mesh.sides))
                continue;
            for (uint32_t k = 0; k < mesh.sides; ++k) {
                const int32_t from = mesh.corners[face][k];
                const int32_t to = mesh.corners[face][k + 1 == mesh.sides ? 0 : k + 1];
                if ((from < to) == up)
                    visit(HalfEdge{from, to, static_cast<uint32_t>(face * 4 + k)});
            }
        }
    };
    forEach([&](const HalfEdge& edge) { ++starts[static_cast<std::size_t>(std::min(edge.from, edge.to)) + 1]; });
    for (std::size_t vertex = 0; vertex < vertexCount; ++vertex)
        starts[vertex + 1] += starts[vertex];
    std::vector<HalfEdge> edges(starts.back());
    std::vector<uint32_t> next(starts.begin(), starts.end() - 1);
    forEach(
        [&](const HalfEdge& edge) { edges[next[static_cast<std::size_t>(std::min(edge.from, edge.to))]++] = edge; });
    for (std::size_t vertex = 0; vertex < vertexCount; ++vertex) {
        std::sort(edges.begin() + starts[vertex], edges.begin() + starts[vertex + 1],
                  [](const HalfEdge& a, const HalfEdge& b) {
                      const int32_t endA = std::max(a.from, a.to);
                      const int32_t endB = std::max(b.from, b.to);
                      return endA != endB ? endA < endB : a.place < b.place;
                  });
    }
    return edges;
}

} // namespace

WeldedCorners weldCorners(const FaceList& faces, const std::vector<std::size_t>& starts,
                          const std::vector<int32_t>& chosen) {
    std::vector<const Corner*> corners;
    for (const int32_t face : chosen) {
        for (std::size_t i = starts[static_cast<std::size_t>(face)]; i < starts[static_cast<std::size_t>(face) + 1];
             ++i)
            corners.push_back(&faces.corners[i]);
    }
    std::size_t positionCount = 0;
    const std::vector<int32_t> positions = densePositions(corners, positionCount);

    std::vector<uint32_t> ends(positionCount + 1, 0);
    for (const int32_t position : positions)
        ++ends[static_cast<std::size_t>(position) + 1];
    for (std::size_t i = 0; i < positionCount; ++i)
        ends[i + 1] += ends[i];
    std::vector<uint32_t> next(ends.begin(), ends.end() - 1);
    std::vector<int32_t> uses(corners.size());
    for (std::size_t i = 0; i < corners.size(); ++i)
        uses[next[static_cast<std::size_t>(positions[i])]++] = static_cast<int32_t>(i);

    std::vector<int32_t> firstUse(corners.size());
    for (std::size_t i = 0; i < positionCount; ++i)
        weldPosition(corners, uses.begin() + ends[i], uses.begin() + ends[i + 1], firstUse);

    WeldedCorners welded;
    welded.indices.resize(corners.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto first = static_cast<std::size_t>(firstUse[i]);
        if (first == i) {
            welded.indices[i] = static_cast<int32_t>(welded.vertices.size());
            welded.vertices.push_back(*corners[i]);
        } else {
            welded.indices[i] = welded.indices[first];
        }
    }
    return welded;
}

void linkFaces(StripMesh& mesh) {
    mesh.across.assign(mesh.faceCount(), {StripMesh::kNone, StripMesh::kNone, StripMesh::kNone, StripMesh::kNone});
    int32_t highest = -1;
    for (const std::array<int32_t, 4>& face : mesh.corners)
        highest = std::max(highest, *std::max_element(face.begin(), face.end()));
    const std::size_t vertexCount = static_cast<std::size_t>(highest) + 1;
    const std::vector<HalfEdge> up = sortedHalfEdges(mesh, true, vertexCount);
    const std::vector<HalfEdge> down = sortedHalfEdges(mesh, false, vertexCount);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < up.size() && j < down.size()) {
        const HalfEdge& a = up[i];
        const HalfEdge& b = down[j];
        if (a.from == b.to && a.to == b.from) {
            mesh.across[neighbourOf(a.place)][edgeOf(a.place)] = b.place;
            mesh.across[neighbourOf(b.place)][edgeOf(b.place)] = a.place;
            ++i;
            ++j;
        } else if (a.from < b.to || (a.from == b.to && a.to < b.from)) {
            ++i;
        } else {
            ++j;
        }
    }
}

void sortIntoPatches(StripMesh& mesh) {
    const std::size_t count = mesh.faceCount();
    if (count <= kStripPatchSize)
        return;
    // Breadth first, and from a new start when a patch is full, so that patches are round and not bands.
    std::vector<uint32_t> order;
    order.reserve(count);
    std::vector<uint32_t> numbers(count, StripMesh::kNone);
    std::vector<uint32_t> waiting;
    std::size_t next = 0; // in waiting
    uint32_t start = 0;
    std::size_t patchEnd = 0;
    const auto number = [&](uint32_t face) {
        numbers[face] = static_cast<uint32_t>(order.size());
        order.push_back(face);
        waiting.push_back(face);
    };
    while (order.size() < count) {
        if (order.size() >= patchEnd) {
            patchEnd = order.size() + kStripPatchSize;
            waiting.clear();
            next = 0;
        }
        if (next == waiting.size()) {
            while (numbers[start] != StripMesh::kNone)
                ++start;
            number(start);
        }
        for (const uint32_t across : mesh.across[waiting[next++]]) {
            if (across != StripMesh::kNone && numbers[neighbourOf(across)] == StripMesh::kNone)
                number(neighbourOf(across));
        }
    }

    StripMesh sorted;
    sorted.sides = mesh.sides;
    sorted.corners.reserve(count);
    sorted.across.reserve(count);
    for (const uint32_t face : order) {
        sorted.corners.push_back(mesh.corners[face]);
        std::array<uint32_t, 4> across = mesh.across[face];
        for (uint32_t& place : across)
            place = place == StripMesh::kNone ? place : numbers[neighbourOf(place)] * 4 + edgeOf(place);
        sorted.across.push_back(across);
    }
    mesh = std::move(sorted);
}

} // namespace tvk
