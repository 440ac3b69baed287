#include "host/geometry/skinning.h"

#include <Imath/ImathMatrixAlgo.h>

#include <cmath>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;

/// The weights of one vertex that count.
class VertexWeights {
public:
    VertexWeights(const SkinWeights& weights, const SkinMatrices& matrices, std::size_t vertex)
        : weights_(weights), matrices_(matrices), first_(weights.starts[vertex]), last_(weights.starts[vertex + 1]) {
        double sum = 0.0;
        forAll([&](double weight, const Matrix44&) { sum += weight; });
        isAny_ = sum != 0.0;
        scale_ = matrices.normalizes && isAny_ ? 1.0 / sum : 1.0;
    }

    bool isAny() const { return isAny_; }

    template <typename Add>
    void forAll(Add&& add) const {
        for (std::size_t pair = first_; pair < last_; ++pair) {
            const auto influence = static_cast<std::size_t>(weights_.influences[pair]);
            if (influence < matrices_.influences.size() && matrices_.influences[influence].exists) {
                add(weights_.weights[pair] * scale_, matrices_.influences[influence].matrix);
            }
        }
    }

private:
    const SkinWeights& weights_;
    const SkinMatrices& matrices_;
    std::size_t first_, last_;
    bool isAny_ = false;
    double scale_ = 1.0;
};

V3f turned(const V3f& normal, const Matrix44& matrix) {
    Imath::M33d turn;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            turn[row][column] = matrix[row][column];
        }
    }
    if (turn.determinant() == 0.0 || !std::isfinite(turn.determinant())) {
        return normal;
    }
    const V3d direction = V3d(normal) * turn.inverse().transposed();
    const double length = direction.length();
    return length > 0.0 ? V3f(direction * (normal.length() / length)) : normal;
}

/// The user normals, each turned by matrixOf(vertex).
template <typename MatrixOf>
Points turnUserNormals(const MeshData& mesh, MatrixOf&& matrixOf) {
    Points normals = *mesh.userNormals;
    const NormalFans& fans = mesh.topology->normalFans();
    std::vector<bool> done(normals.size(), false);
    for (std::size_t corner = 0; corner < fans.ofCorner.size(); ++corner) {
        const auto id = static_cast<std::size_t>(fans.ofCorner[corner]);
        if (id < done.size() && !done[id] && mesh.isUserNormal(fans.ofCorner[corner])) {
            done[id] = true;
            normals[id] =
                turned(normals[id], matrixOf(static_cast<std::size_t>(mesh.topology->cornerVertices()[corner])));
        }
    }
    return normals;
}

} // namespace

void skinPoints(const SkinWeights& weights, const SkinMatrices& matrices, Points& points) {
    for (std::size_t vertex = 0; vertex < points.size() && vertex + 1 < weights.starts.size(); ++vertex) {
        const VertexWeights own(weights, matrices, vertex);
        if (!own.isAny()) {
            continue;
        }
        const V3d point(points[vertex]);
        V3d sum(0.0);
        own.forAll([&](double weight, const Matrix44& matrix) { sum += weight * (point * matrix); });
        points[vertex] = V3f(sum * matrices.fromGeometry);
    }
}

Points skinNormals(const SkinWeights& weights, const SkinMatrices& matrices, const MeshData& mesh) {
    return turnUserNormals(mesh, [&](std::size_t vertex) {
        Matrix44 blended;
        if (vertex + 1 >= weights.starts.size()) {
            return blended;
        }
        const VertexWeights own(weights, matrices, vertex);
        if (own.isAny()) {
            blended = Matrix44(0.0);
            own.forAll([&](double weight, const Matrix44& matrix) { blended += matrix * weight; });
            blended = blended * matrices.fromGeometry;
        }
        return blended;
    });
}

Points turnNormals(const MeshData& mesh, const Matrix44& matrix) {
    return turnUserNormals(mesh, [&](std::size_t) { return matrix; });
}

} // namespace host
