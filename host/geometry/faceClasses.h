#pragma once

#include "host/geometry/MeshData.h"

#include <cstdint>
#include <vector>

namespace host {

/// Per face, the number of its class: two faces are of one class when the same groups name them as faces. The first
/// face's class is 0, others are numbered as they come up. Time is linear in the faces that the groups name.
std::vector<std::int32_t> faceClasses(const std::vector<ComponentGroup>& groups, std::int32_t faceCount);

} // namespace host
