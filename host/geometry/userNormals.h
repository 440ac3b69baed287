#pragma once

#include "host/geometry/MeshData.h"

#include <cstdint>
#include <vector>

namespace host {

/// Gives `to`, a mesh made of `from`, the user normals of `from` at its corners: corner c of `to` was cornerFrom[c], or
/// is new when that is negative. Where corners with different user normals share one now, the first one's counts.
void carryUserNormals(const MeshData& from, MeshData& to, const std::vector<std::int32_t>& cornerFrom);

} // namespace host
