#pragma once

#include "geometry/StripMesh.h"
#include "geometry/primitiveBuilding.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tvk {

// Divides linked quads into strips of few vertices.
//   mesh   linkFaces() has linked it; large meshes should be in patches (sortIntoPatches)
//   done   called now and then with the part of the work done, 0 to 1; may be empty
// Returns the strips as vertices in sending order: 2n + 2 for n quads, in pairs across the strip; a single quad, too,
// is corner 0, 1, 3, 2.
std::vector<std::vector<int32_t>> buildQuadStrips(const StripMesh& mesh, StripEffort effort,
                                                  const std::function<void(double)>& done = {});

} // namespace tvk
