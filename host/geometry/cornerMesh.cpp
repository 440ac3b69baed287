#include "host/geometry/cornerMesh.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

std::uint64_t keyOf(std::int32_t a, std::int32_t b) {
    constexpr unsigned kBits = 32;
    const auto low = static_cast<std::uint64_t>(std::min(a, b));
    return (low << kBits) | static_cast<std::uint32_t>(std::max(a, b));
}

/// Finds the edge of each side.
class Rebuilder {
public:
    Rebuilder(const MeshData& mesh, const CornerMesh& faces)
        : mesh_(mesh), topology_(*mesh.topology), from_(faces),
          edges_(at(mesh.topology->edgeCount()), MeshEdge{kGone, kGone, true}),
          edgeFrom_(identity(mesh.topology->edgeCount())) {
        findSides();
    }

    RebuiltMesh keepingEdgesApart() {
        claimOldEdges();
        for (Side& side : sides_) {
            if (side.edge == kGone) {
                side.edge = newEdge(side);
            }
        }
        return finish();
    }

    RebuiltMesh unitingEdges() {
        std::unordered_map<std::uint64_t, std::int32_t> lowest; // old edge by vertices
        for (const Side& side : sides_) {
            std::int32_t& old = lowest.emplace(keyOf(side.start, side.end), side.old).first->second;
            old = old == kGone || (side.old != kGone && side.old < old) ? side.old : old;
        }
        for (Side& side : sides_) {
            side.smooth = isSmooth(side);
            side.old = lowest.at(keyOf(side.start, side.end));
            side.edge = newEdge(side);
            edges_[at(side.edge)].smooth = edges_[at(side.edge)].smooth && side.smooth;
        }
        return finish();
    }

private:
    struct Side {
        std::int32_t start, end; // vertices
        std::int32_t old;        // edge of the old mesh, or kGone
        std::int32_t edge;
        bool smooth;
        bool isForward; // along the old edge
    };

    RebuiltMesh finish() {
        auto faces = std::make_shared<PolyFaces>();
        faces->loopStarts = from_.loopStarts;
        faces->faceStarts = from_.faceStarts;
        const Ids numbers = closeUp();
        for (const Side& side : sides_) {
            const std::int32_t number = numbers[at(side.edge)];
            faces->edges.push_back(edges_[at(number)].start == side.start ? number : -number - 1);
        }
        RebuiltMesh made{std::make_shared<MeshData>(mesh_), std::move(edgeFrom_)};
        std::string problem;
        made.mesh->topology = MeshTopology::make(static_cast<std::int32_t>(from_.points->size()), std::move(edges_),
                                                 std::move(faces), problem);
        made.mesh->points = from_.points;
        carryCorners(mesh_, *made.mesh, from_.cornerFrom);
        return made;
    }

    bool isSmooth(const Side& side) const { return side.old == kGone || topology_.edges()[at(side.old)].smooth; }

    /// The edge that leads from one old corner to another, as a corner edge; kDerived when there is none.
    std::int32_t oldEdge(std::int32_t corner, std::int32_t next) const {
        if (corner == kGone || next == kGone) {
            return CornerMesh::kDerived;
        }
        const std::int32_t edge = topology_.cornerEdges()[at(corner)];
        const MeshEdge& ends = topology_.edges()[at(MeshTopology::edgeNumber(edge))];
        const std::int32_t end = edge >= 0 ? ends.end : ends.start;
        return end == topology_.cornerVertices()[at(next)] ? edge : CornerMesh::kDerived;
    }

    void findSides() {
        sides_.reserve(from_.cornerFrom.size());
        for (std::size_t loop = 0; loop + 1 < from_.loopStarts.size(); ++loop) {
            const std::int32_t first = from_.loopStarts[loop];
            const std::int32_t last = from_.loopStarts[loop + 1];
            for (std::int32_t corner = first; corner < last; ++corner) {
                const std::int32_t next = corner + 1 == last ? first : corner + 1;
                std::int32_t old = from_.oldEdges[at(corner)];
                if (old == CornerMesh::kDerived) {
                    old = oldEdge(from_.cornerFrom[at(corner)], from_.cornerFrom[at(next)]);
                }
                const bool isKnown = old != CornerMesh::kDerived;
                sides_.push_back({from_.cornerVertices[at(corner)], from_.cornerVertices[at(next)],
                                  isKnown ? MeshTopology::edgeNumber(old) : kGone, kGone, true, !isKnown || old >= 0});
            }
        }
    }

    /// Sides that stand where they were go before others.
    void claimOldEdges() {
        for (Side& side : sides_) {
            if (side.old == kGone) {
                continue;
            }
            const MeshEdge& old = topology_.edges()[at(side.old)];
            if (keyOf(side.start, side.end) == keyOf(old.start, old.end)) {
                edges_[at(side.old)] = old;
                side.edge = side.old;
            }
        }
    }

    std::int32_t newEdge(const Side& side) {
        const auto key = std::make_pair(side.old, keyOf(side.start, side.end));
        const auto [entry, isNew] = known_.emplace(key, kGone);
        if (!isNew) {
            return entry->second;
        }
        const MeshEdge made{side.isForward ? side.start : side.end, side.isForward ? side.end : side.start,
                            isSmooth(side)};
        if (side.old != kGone && edges_[at(side.old)].start == kGone) {
            edges_[at(side.old)] = made;
            return entry->second = side.old;
        }
        edges_.push_back(made);
        edgeFrom_.push_back(side.old);
        return entry->second = static_cast<std::int32_t>(edges_.size()) - 1;
    }

    /// Per edge its number when those that nothing uses are left out.
    Ids closeUp() {
        std::vector<bool> used(edges_.size());
        std::transform(edges_.begin(), edges_.end(), used.begin(),
                       [](const MeshEdge& edge) { return edge.start != kGone; });
        Ids numbers = numberUsed(used);
        edges_ = pick(edges_, numbers);
        edgeFrom_ = pick(edgeFrom_, numbers);
        return numbers;
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    const CornerMesh& from_;
    std::vector<Side> sides_; // per corner
    std::vector<MeshEdge> edges_;
    Ids edgeFrom_;
    std::map<std::pair<std::int32_t, std::uint64_t>, std::int32_t> known_; // by old edge and vertices
};

} // namespace

RebuiltMesh rebuilt(const MeshData& mesh, const CornerMesh& faces) {
    return Rebuilder(mesh, faces).keepingEdgesApart();
}

RebuiltMesh rebuiltWithOneEdge(const MeshData& mesh, const CornerMesh& faces) {
    return Rebuilder(mesh, faces).unitingEdges();
}

Ids newEdgeNumbers(const Ids& edgeFrom, std::int32_t oldCount) {
    Ids numbers(at(oldCount), kGone);
    for (std::size_t edge = edgeFrom.size(); edge-- > 0;) {
        if (edgeFrom[edge] != kGone) {
            numbers[at(edgeFrom[edge])] = static_cast<std::int32_t>(edge); // the first one's in the end
        }
    }
    return numbers;
}

} // namespace host
