#pragma once

#include "host/geometry/MeshData.h"

#include <memory>
#include <vector>

namespace host {

/// The chosen faces no longer connected with others: where they meet others, they get vertices and edges of their own,
/// which come last. When not `together`, nor are they connected with each other. Faces keep their numbers, and all that
/// their corners have.
std::shared_ptr<MeshData> detachFaces(const MeshData& mesh, const std::vector<bool>& chosen, bool together);

/// The chosen faces once more, behind all others in their order, with vertices and edges of their own. Groups that name
/// a face name its copy too.
std::shared_ptr<MeshData> duplicateFaces(const MeshData& mesh, const std::vector<bool>& chosen, bool together);

} // namespace host
