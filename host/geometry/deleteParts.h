#pragma once

#include "host/geometry/MeshData.h"

#include <memory>
#include <vector>

namespace host {

/// What deleting left undone: numbers of edges or vertices that were asked for.
struct DeletedParts {
    std::shared_ptr<MeshData> mesh;
    std::int32_t leftCount = 0;
};

/// The chosen edges gone, the faces on both sides of each one face, where the lowest of them was. Edges that then have
/// one face on both sides and a loose end go too. Left are border edges, edges between more than two faces or faces
/// wound unlike, at faces with holes, and all edges within what would become a ring. When `cleans`, vertices at deleted
/// edges that are left with two edges go as well, where every face keeps three corners. All keep their order.
DeletedParts deleteEdges(const MeshData& mesh, const std::vector<bool>& chosen, bool cleans);

/// The chosen vertices that have exactly two edges gone, these edges one, where every face keeps three corners.
DeletedParts deleteVertices(const MeshData& mesh, const std::vector<bool>& chosen);

} // namespace host
