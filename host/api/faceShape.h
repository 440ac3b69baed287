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

/// Three corners (counted in the face) for each triangle: a fan from corner 0 where the face is convex, ears cut off
/// one after the other elsewhere. A face of n corners gives n - 2 triangles, also when it is folded; one with holes, or
/// with fewer than three corners, gives none. Quadratic in the number of corners that turn inward.
std::vector<std::int32_t> triangulateFace(const MeshData& mesh, std::int32_t face);

} // namespace host
