#include "host/nodes/blendRotation.h"

#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::Quatd;
using Imath::V3d;

/// Cosine below which the middle angle counts as straight up or down: the two others are not told apart then.
constexpr double kPoleCosine = 1e-9;

Quatd quaternionOf(const V3d& radians, RotateOrder order) {
    const M33d rotation = rotationMatrix(radians, order);
    Matrix44 matrix;
    for (int line = 0; line < 3; ++line) {
        for (int column = 0; column < 3; ++column) {
            matrix[line][column] = rotation[line][column];
        }
    }
    return Imath::extractQuat(matrix);
}

} // namespace

V3d rotationAngles(const M33d& rotation, RotateOrder order) {
    static constexpr int kAxes[][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};
    const int* axes = kAxes[static_cast<int>(order)];
    const int a = axes[0];
    const int b = axes[1];
    const int c = axes[2];
    // The formulas for a, b, c in cyclic order; the other three orders are their mirror images.
    const double sign = (a + 1) % 3 == b ? 1.0 : -1.0;
    V3d angles;
    const double cosine = std::hypot(rotation[a][a], rotation[a][b]);
    angles[b] = std::atan2(-sign * rotation[a][c], cosine);
    if (cosine > kPoleCosine) {
        angles[a] = std::atan2(sign * rotation[b][c], rotation[c][c]);
        angles[c] = std::atan2(sign * rotation[a][b], rotation[a][a]);
    } else {
        angles[a] = std::atan2(-sign * rotation[c][b], rotation[b][b]);
        angles[c] = 0.0;
    }
    return angles;
}

V3d slerpRotation(const V3d& first, const V3d& second, double weight, RotateOrder order) {
    const Quatd between =
        Imath::slerpShortestArc(quaternionOf(first, order), quaternionOf(second, order), weight).normalized();
    return rotationAngles(between.toMatrix33(), order);
}

} // namespace host
