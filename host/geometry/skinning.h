#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Value.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

/// The weights of a skin in one block: vertex v has the pairs starts[v] … starts[v + 1] - 1. Vertices from
/// starts.size()
/// - 1 on have none. Influences are logical indices, 0 or more, ascending within a vertex; what is not there weighs 0.
struct SkinWeights final : Data {
    SkinWeights() : Data(DataKind::kOther) {}

    std::vector<std::size_t> starts{0};
    std::vector<std::int32_t> influences;
    std::vector<double> weights;

    std::int32_t vertexCount() const { return static_cast<std::int32_t>(starts.size()) - 1; }
};

/// What moves a skin. `influences` are by logical index: geomMatrix * bindPreMatrix * matrix, and whether there is such
/// an influence at all.
struct SkinMatrices {
    struct Influence {
        bool exists = false;
        Matrix44 matrix;
    };
    std::vector<Influence> influences;
    Matrix44 fromGeometry; // inverse of geomMatrix
    bool normalizes = false;
};

/// Moves each point p to the sum of w_i * (p * matrix_i), times fromGeometry. Influences that do not exist do not
/// count; a point that nothing weighs stays. With `normalizes` the weights of a point are divided by their sum.
void skinPoints(const SkinWeights& weights, const SkinMatrices& matrices, Points& points);

/// Turns the user normals of the mesh along with their vertices: by the transposed inverse of the vertex's blended
/// matrix. Computed normals stay marked as such; lengths are kept.
Points skinNormals(const SkinWeights& weights, const SkinMatrices& matrices, const MeshData& mesh);

/// Turns the user normals of the mesh as its surface turns with a matrix; lengths are kept, and all stay when the
/// matrix has no inverse. The mesh must have some.
Points turnNormals(const MeshData& mesh, const Matrix44& matrix);

} // namespace host
