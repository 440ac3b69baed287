#pragma once

#include "host/geometry/MeshData.h"

#include <cstdint>
#include <vector>

namespace host {

/// The shape of single faces, seen along their normal, in object space.

/// Whether the outer loop turns one way only, once around; false with holes. Triangles always are.
bool isConvexFace(const MeshData& mesh, std::int32_t face);

/// Whether all corners lie in one plane, to a part in 10,000 of the face's size.
bool isPlanarFace(const MeshData& mesh, std::int32_t face);

/// Three corners (counted in the face) for each triangle, n - 2 triangles for n corners; see triangulate. A face with
/// holes, or with fewer than three corners, gives none.
std::vector<std::int32_t> triangulateFace(const MeshData& mesh, std::int32_t face);

} // namespace host
