#pragma once

#include "geometry/StripMesh.h"
#include "geometry/primitiveBuilding.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tvk {

// Divides linked triangles into strips of few vertices.
//   mesh   linkFaces() has linked it; large meshes should be in patches (sortIntoPatches)
//   done   called now and then with the part of the work done, 0 to 1; may be empty
// Returns the strips as vertices in sending order: n + 2 for n triangles, a single one in winding order.
std::vector<std::vector<int32_t>> buildTriangleStrips(const StripMesh& mesh, StripEffort effort,
                                                      const std::function<void(double)>& done = {});

} // namespace tvk
