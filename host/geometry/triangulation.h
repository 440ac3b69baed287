#pragma once

#include "host/geometry/MeshData.h"

#include <Imath/ImathVec.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace host {

/// Corners of one triangle, as positions in the polygon.
using Triangle = std::array<std::int32_t, 3>;

/// The polygon cut into triangles of its winding, two fewer than it has corners. A quad is cut along its shorter
/// diagonal that lies inside (of two equal ones, from its second corner to its fourth), other polygons ear by
/// ear. Degenerate and self-crossing polygons are cut somehow. Fewer than three points give nothing.
std::vector<Triangle> triangulate(const std::vector<Imath::V3d>& polygon);

/// The faces for which `chosen` is true as triangles, each where its face was; the new edges come last and are soft.
/// Faces with holes stay. Groups name the triangles of the faces that they named.
std::shared_ptr<MeshData> triangulateFaces(const MeshData& mesh, const std::vector<bool>& chosen);

} // namespace host
