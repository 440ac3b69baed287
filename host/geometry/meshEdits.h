#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Value.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace host {

// What history does to a mesh. Each function changes a copy that shares with its original what it does not change.
// User normals stay with their corners, groups with their components.

/// Only the faces for which `keeps` is true (one entry per face), and the vertices, edges and texture coordinates that
/// they use; all keep their order.
std::shared_ptr<MeshData> keepFaces(const MeshData& mesh, const std::vector<bool>& keeps);

/// The faces for which `reverses` is true walked the other way round, each from the same first corner. User normals of
/// their corners turn round too when `turnsNormals`.
std::shared_ptr<MeshData> reverseFaces(const MeshData& mesh, const std::vector<bool>& reverses, bool turnsNormals);

/// The edges for which `chosen` is true become soft when the faces on both sides, placed by `matrix`, make an angle of
/// at most `angle` (radians), else hard. Border edges stay.
std::shared_ptr<MeshData> softenEdges(const MeshData& mesh, const std::vector<bool>& chosen, double angle,
                                      const Matrix44& matrix);

/// The meshes as one, each placed by its matrix; UV and colour sets of one name become one. Groups are left out.
std::shared_ptr<MeshData> uniteMeshes(const std::vector<std::pair<MeshPtr, Matrix44>>& meshes);

/// The faces for which `chosen` is true are no longer mapped in this set, and coordinates that nothing uses go.
UvSet withoutFaces(const UvSet& set, const std::vector<bool>& chosen);

} // namespace host
