#pragma once

#include "host/geometry/meshNumbers.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

namespace host {

/// Faces made of the corners of a mesh, each now at a vertex of its own choice: how operations say what they make.
struct CornerMesh {
    explicit CornerMesh(std::shared_ptr<Points> vertices) : points(std::move(vertices)) {}

    /// `oldEdge`: what its side was, written like a corner edge of MeshTopology; kDerived: the edge that led from the
    /// old corner to that of the next one.
    void addCorner(std::int32_t from, std::int32_t vertex, std::int32_t oldEdge = kDerived) {
        cornerFrom.push_back(from);
        cornerVertices.push_back(vertex);
        oldEdges.push_back(oldEdge);
    }
    void closeLoop() { loopStarts.push_back(static_cast<std::int32_t>(cornerFrom.size())); }
    void closeFace() { faceStarts.push_back(static_cast<std::int32_t>(loopStarts.size()) - 1); }
    std::int32_t faceCount() const { return static_cast<std::int32_t>(faceStarts.size()) - 1; }
    std::int32_t addPoint(const Imath::V3f& point) {
        points->push_back(point);
        return static_cast<std::int32_t>(points->size()) - 1;
    }

    static constexpr std::int32_t kDerived = std::numeric_limits<std::int32_t>::min();

    std::shared_ptr<Points> points;
    Ids oldEdges;       // per corner
    Ids cornerFrom;     // per corner, the one of the old mesh whose values it has, or kGone
    Ids cornerVertices; // per corner, its vertex
    Ids loopStarts{0}, faceStarts{0};
};

/// The mesh that these faces make: a copy of `mesh` with other faces and points, and edges as follows. Sides at the
/// vertices where an old edge was are that edge, and keep its number; other sides of it are a new one each, as hard or
/// soft, behind all old ones; `edgeFrom` is the old edge of each edge. Edges that no side is left of go, and the others
/// close up. Sides without an old edge (where a corner is new, or follows another one than it did) are soft.
/// Groups are not changed.
struct RebuiltMesh {
    std::shared_ptr<MeshData> mesh;
    Ids edgeFrom;
};
RebuiltMesh rebuilt(const MeshData& mesh, const CornerMesh& faces);
/// The same, but all sides between two vertices are one edge: the lowest old one that is among them, hard when one is.
RebuiltMesh rebuiltWithOneEdge(const MeshData& mesh, const CornerMesh& faces);

/// Per old edge what became of it, from the old one of each.
Ids newEdgeNumbers(const Ids& edgeFrom, std::int32_t oldCount);

} // namespace host
