#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Value.h"

#include <memory>
#include <vector>

namespace host {

/// Chosen vertices that are within a distance of each other, also by way of others, become one in the middle of all of
/// them (of the smallest number; the others close up). Distances are measured where `matrix` places the points. Sides
/// whose ends become one go, and so do faces with fewer than three corners left; edges between the same vertices become
/// one, hard when one of them is. What corners have stays. Vertices that are no numbers stay. Faces keep their order.
std::shared_ptr<MeshData> mergeVertices(const MeshData& mesh, const std::vector<bool>& chosen, double distance,
                                        const Matrix44& matrix);

} // namespace host
