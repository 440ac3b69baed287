#include "geometry/pivotLabels.h"

#include <algorithm>
#include <array>

namespace tvk {

namespace {

constexpr std::array<uint8_t, 3> kNext{1, 2, 0};
constexpr std::array<uint8_t, 3> kPrevious{2, 0, 1};

// A chain of joined triangles, from one end to the other.
struct Chain {
    std::vector<uint32_t> triangles;
    bool isRing = false;
    bool leavesByOut = false; // the first join is one of out edges
};

// The chain that starts at an end; a triangle that is joined on both sides starts its ring.
void followChain(const StripMesh& mesh, const PivotLabels& pivots, uint32_t first, Chain& chain) {
    chain.triangles.assign(1, first);
    chain.isRing = false;
    chain.leavesByOut = behindOutEdge(mesh, pivots, first) != StripMesh::kNone;
    bool byOut = chain.leavesByOut;
    uint32_t triangle = first;
    while (true) {
        triangle = byOut ? behindOutEdge(mesh, pivots, triangle) : behindInEdge(mesh, pivots, triangle);
        if (triangle == StripMesh::kNone)
            return;
        if (triangle == first) {
            chain.isRing = true;
            return;
        }
        chain.triangles.push_back(triangle);
        byOut = !byOut;
    }
}

// Two triangles can exchange their joined edge's ends; longer chains of even length cannot.
bool startsBadly(const Chain& chain) {
    return !chain.isRing && chain.triangles.size() > 2 && chain.triangles.size() % 2 == 0 && !chain.leavesByOut;
}

// Calls visit(chain) for every chain and ring, in order of the lowest triangle that starts one.
template <typename Visit>
void forEachChain(const StripMesh& mesh, const PivotLabels& pivots, Visit visit) {
    const auto count = static_cast<uint32_t>(mesh.faceCount());
    std::vector<uint8_t> seen(count, 0);
    Chain chain;
    for (const bool rings : {false, true}) {
        for (uint32_t triangle = 0; triangle < count; ++triangle) {
            if (seen[triangle] != 0 || (!rings && behindOutEdge(mesh, pivots, triangle) != StripMesh::kNone &&
                                        behindInEdge(mesh, pivots, triangle) != StripMesh::kNone))
                continue;
            followChain(mesh, pivots, triangle, chain);
            for (const uint32_t member : chain.triangles)
                seen[member] = 1;
            visit(chain);
        }
    }
}

// The vertices of a stretch of a chain that leaves its first triangle through an out edge.
std::vector<int32_t> stripVertices(const StripMesh& mesh, const std::vector<uint32_t>& triangles, uint32_t firstEdge) {
    std::vector<int32_t> vertices;
    vertices.reserve(triangles.size() + 2);
    const std::array<int32_t, 4>& first = mesh.corners[triangles[0]];
    vertices.push_back(first[kPrevious[firstEdge]]);
    vertices.push_back(first[firstEdge]);
    vertices.push_back(first[kNext[firstEdge]]);
    for (std::size_t i = 1; i < triangles.size(); ++i) {
        const std::array<int32_t, 4>& corners = mesh.corners[triangles[i]];
        const int32_t a = vertices[vertices.size() - 2];
        const int32_t b = vertices.back();
        const auto* const other = std::find_if(corners.begin(), corners.begin() + 3,
                                               [&](int32_t corner) { return corner != a && corner != b; });
        vertices.push_back(*other);
    }
    return vertices;
}

void addStrip(const StripMesh& mesh, const PivotLabels& pivots, const std::vector<uint32_t>& triangles,
              std::vector<std::vector<int32_t>>& strips) {
    uint32_t firstEdge = 1; // a single triangle begins with its first corner
    if (triangles.size() == 2) {
        // Whichever edge joins them, leaving through it forwards makes it an out edge.
        const uint8_t pivot = pivots[triangles[0]];
        firstEdge = behindOutEdge(mesh, pivots, triangles[0]) == triangles[1] ? pivot : kPrevious[pivot];
    } else if (triangles.size() > 2) {
        firstEdge = pivots[triangles[0]];
    }
    strips.push_back(stripVertices(mesh, triangles, firstEdge));
}

// Counts the triangles that follow each other round the vertex at one of them and marks their corners as seen.
//   start   triangle * 3 + corner
std::size_t walkFan(const StripMesh& mesh, uint32_t start, std::vector<uint8_t>& seen) {
    std::size_t triangles = 1;
    seen[start] = 1;
    for (const bool forwards : {true, false}) {
        uint32_t place = start;
        while (true) {
            const uint32_t corner = place % 3;
            const uint32_t across = mesh.across[place / 3][forwards ? corner : kPrevious[corner]];
            if (across == StripMesh::kNone)
                break;
            place = neighbourOf(across) * 3 + (forwards ? kNext[edgeOf(across)] : edgeOf(across));
            if (seen[place] != 0)
                break;
            seen[place] = 1;
            ++triangles;
        }
    }
    return triangles;
}

} // namespace

uint32_t behindOutEdge(const StripMesh& mesh, const PivotLabels& pivots, uint32_t triangle) {
    const uint32_t across = mesh.across[triangle][pivots[triangle]];
    if (across == StripMesh::kNone || pivots[neighbourOf(across)] != edgeOf(across))
        return StripMesh::kNone;
    return neighbourOf(across);
}

uint32_t behindInEdge(const StripMesh& mesh, const PivotLabels& pivots, uint32_t triangle) {
    const uint32_t across = mesh.across[triangle][kPrevious[pivots[triangle]]];
    if (across == StripMesh::kNone || pivots[neighbourOf(across)] != kNext[edgeOf(across)])
        return StripMesh::kNone;
    return neighbourOf(across);
}

std::size_t countTriangleStrips(const StripMesh& mesh, const PivotLabels& pivots) {
    std::size_t count = 0;
    forEachChain(mesh, pivots, [&](const Chain& chain) { count += startsBadly(chain) ? 2 : 1; });
    return count;
}

std::vector<std::vector<int32_t>> readTriangleStrips(const StripMesh& mesh, const PivotLabels& pivots) {
    std::vector<std::vector<int32_t>> strips;
    forEachChain(mesh, pivots, [&](Chain& chain) {
        std::vector<uint32_t>& triangles = chain.triangles;
        if (startsBadly(chain)) {
            addStrip(mesh, pivots, {triangles.back()}, strips);
            triangles.pop_back();
        }
        // Of an odd number exactly one end is an out edge. Rings are followed through out edges from the start.
        if (triangles.size() > 2 && !chain.leavesByOut)
            std::reverse(triangles.begin(), triangles.end());
        addStrip(mesh, pivots, triangles, strips);
    });
    return strips;
}

std::vector<uint32_t> findComponents(const StripMesh& mesh) {
    std::vector<uint32_t> components(mesh.faceCount(), StripMesh::kNone);
    std::vector<uint32_t> waiting;
    uint32_t component = 0;
    for (uint32_t start = 0; start < components.size(); ++start) {
        if (components[start] != StripMesh::kNone)
            continue;
        waiting.push_back(start);
        components[start] = component;
        while (!waiting.empty()) {
            const uint32_t triangle = waiting.back();
            waiting.pop_back();
            for (const uint32_t across : mesh.across[triangle]) {
                if (across == StripMesh::kNone || components[neighbourOf(across)] != StripMesh::kNone)
                    continue;
                components[neighbourOf(across)] = component;
                waiting.push_back(neighbourOf(across));
            }
        }
        ++component;
    }
    return components;
}

PivotLabels bestByComponent(const StripMesh& mesh, const std::vector<uint32_t>& components,
                            const std::vector<PivotLabels>& candidates) {
    PivotLabels best = candidates[0];
    std::vector<std::size_t> fewest;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        std::vector<std::size_t> counts;
        forEachChain(mesh, candidates[i], [&](const Chain& chain) {
            const uint32_t component = components[chain.triangles[0]];
            if (component >= counts.size())
                counts.resize(component + 1, 0);
            counts[component] += startsBadly(chain) ? 2 : 1;
        });
        if (i == 0) {
            fewest = counts;
            continue;
        }
        for (std::size_t triangle = 0; triangle < best.size(); ++triangle) {
            if (counts[components[triangle]] < fewest[components[triangle]])
                best[triangle] = candidates[i][triangle];
        }
        for (std::size_t component = 0; component < fewest.size(); ++component)
            fewest[component] = std::min(fewest[component], counts[component]);
    }
    return best;
}

std::size_t leastTriangleStrips(const StripMesh& mesh, const std::vector<uint32_t>& components) {
    std::vector<std::size_t> sixths;
    std::vector<uint8_t> seen(mesh.faceCount() * 3, 0);
    for (uint32_t start = 0; start < seen.size(); ++start) {
        if (seen[start] != 0)
            continue;
        const std::size_t triangles = walkFan(mesh, start, seen);
        const uint32_t component = components[start / 3];
        if (component >= sixths.size())
            sixths.resize(component + 1, 0);
        sixths[component] += triangles % 3 == 0 ? 0 : 3 - triangles % 3;
    }
    std::size_t least = 0;
    for (const std::size_t sum : sixths)
        least += std::max<std::size_t>(1, (sum + 5) / 6);
    return least;
}

} // namespace tvk
