#include "host/api/values/matrixParts.h"

#include <cmath>

namespace host::api {

namespace {

using Imath::V3d;

// What is left of a row that depends on the rows above it is rounding, some 1e-16 of its length.
constexpr double kDependent = 1e-13;

// The coordinate axis `preferred`, or in turn the next one that is well away from the direction, made perpendicular to
// it. The direction has length 1 or is null.
V3d perpendicular(int preferred, const V3d& direction) {
    V3d axis(0.0);
    for (int turn = 0; turn < 3 && axis.length() < 0.5; ++turn) {
        axis = V3d(0.0);
        axis[(preferred + turn) % 3] = 1.0;
        axis -= direction * axis.dot(direction);
    }
    return axis.normalized();
}

// Directions for the null axes. With at least one of them the result is right-handed.
void completeAxes(V3d (&axes)[3]) {
    for (int i = 0; i < 3; ++i) {
        const V3d next = axes[(i + 1) % 3];
        const V3d last = axes[(i + 2) % 3];
        if (axes[i] != V3d(0.0)) {
            continue;
        }
        const V3d across = next.cross(last);
        axes[i] = across != V3d(0.0) ? across : perpendicular(i, next + last);
    }
}

} // namespace

MatrixParts splitMatrix(const Imath::M44d& matrix) {
    V3d axes[3] = {V3d(0.0), V3d(0.0), V3d(0.0)};
    V3d sheared[3] = {V3d(0.0), V3d(0.0), V3d(0.0)}; // along the axes above, in units of the row's own scale
    V3d scale(0.0);
    for (int i = 0; i < 3; ++i) {
        const V3d row(matrix[i][0], matrix[i][1], matrix[i][2]);
        V3d rest = row, along(0.0);
        // The second round takes out what rounding left in the first, which matters for nearly dependent rows.
        for (int step = 0; step < 2 * i; ++step) {
            const int above = step % i;
            const double part = rest.dot(axes[above]);
            along[above] += part;
            rest -= axes[above] * part;
        }
        const double length = rest.length();
        if (std::isfinite(length) && length > kDependent * row.length()) {
            scale[i] = length;
            axes[i] = rest / length;
            sheared[i] = along / length;
        }
    }
    completeAxes(axes);
    if (axes[0].dot(axes[1].cross(axes[2])) < 0.0) {
        scale = -scale;
        for (V3d& axis : axes) {
            axis = -axis;
        }
    }
    const Imath::M44d rotation(axes[0].x, axes[0].y, axes[0].z, 0.0, axes[1].x, axes[1].y, axes[1].z, 0.0, axes[2].x,
                               axes[2].y, axes[2].z, 0.0, 0.0, 0.0, 0.0, 1.0);
    return {scale, V3d(sheared[1].x, sheared[2].x, sheared[2].y), rotation, matrix.translation()};
}

} // namespace host::api
