#pragma once

#include "host/geometry/MeshData.h"

#include <cstdint>

namespace host {

/// Normal of a face times twice its area (by Newell's sum over the outer loop); 0 0 0 for a degenerate face.
Imath::V3d faceAreaVector(const MeshData& mesh, std::int32_t face);

/// Unit normal of a face; 0 0 0 for a degenerate face.
Imath::V3f faceNormal(const MeshData& mesh, std::int32_t face);

/// Normal of a vertex from all faces around it, hard edges and user normals not regarded; unit length, or 0 0 0.
Imath::V3f vertexNormal(const MeshData& mesh, std::int32_t vertex, NormalWeighting weighting);

/// Computed normals of all ids of the mesh's normal fans, user normals put in where there are any.
Points computeNormals(const MeshData& mesh);

} // namespace host
