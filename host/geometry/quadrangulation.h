#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Value.h"

#include <memory>
#include <vector>

namespace host {

/// Which triangles may become a quad.
struct QuadRules {
    double angle = 0.5235987755982988; // radians; most that the normals of two triangles may differ by
    bool keepsGroupBorders = true;     // not across the border of a group of faces
    bool keepsUvBorders = true;        // not across a border of any UV set
    bool keepsHardEdges = true;
    Matrix44 matrix; // places the points that angles and shapes are measured by
};

/// Pairs of triangles for which `chosen` is true as quads, as the rules allow: two that share one edge, walk it in
/// opposite directions, have no other face there, and make a convex quad of four vertices. Of several pairs that a
/// triangle could be of, the one that is flatter and closer to a rectangle goes first; of equal ones, that of the lower
/// faces. A quad stands where the lower of its faces was, begins at that one's first corner, and takes what corners
/// have from there, but at the vertex that only the other had. Vertices keep their numbers, the edges and faces that
/// are left their order. Time is n log n.
std::shared_ptr<MeshData> quadrangulateFaces(const MeshData& mesh, const std::vector<bool>& chosen,
                                             const QuadRules& rules);

} // namespace host
