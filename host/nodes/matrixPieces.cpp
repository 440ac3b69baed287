#include "host/nodes/matrixPieces.h"

#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

V3d axisOf(const Matrix44& matrix, int axis) {
    return {matrix[axis][0], matrix[axis][1], matrix[axis][2]};
}

/// Directions for axes that have none, so that the three stand upright on each other.
void completeAxes(V3d (&axes)[3], const bool (&has)[3]) {
    for (int i = 0; i < 3; ++i) {
        const int next = (i + 1) % 3;
        const int last = (i + 2) % 3;
        if (!has[i] && has[next] && has[last]) {
            axes[i] = axes[next].cross(axes[last]);
        }
    }
    const int count = (has[0] ? 1 : 0) + (has[1] ? 1 : 0) + (has[2] ? 1 : 0);
    if (count == 0) {
        axes[0] = {1, 0, 0};
        axes[1] = {0, 1, 0};
        axes[2] = {0, 0, 1};
    } else if (count == 1) {
        const int only = has[0] ? 0 : (has[1] ? 1 : 2);
        const V3d& axis = axes[only];
        const V3d other = std::abs(axis.x) < 0.9 ? V3d(1, 0, 0) : V3d(0, 1, 0);
        axes[(only + 1) % 3] = (other - axis * other.dot(axis)).normalized();
        axes[(only + 2) % 3] = axis.cross(axes[(only + 1) % 3]);
    }
}

} // namespace

MatrixPieces piecesOf(const Matrix44& matrix) {
    MatrixPieces pieces;
    pieces.translate = originOf(matrix);
    V3d axes[3];
    bool has[3];
    double along[3][3] = {}; // of an axis, how far it leans to the ones before
    for (int i = 0; i < 3; ++i) {
        axes[i] = axisOf(matrix, i);
        for (int before = 0; before < i; ++before) {
            along[i][before] = has[before] ? axes[i].dot(axes[before]) : 0.0;
            axes[i] -= axes[before] * along[i][before];
        }
        const double length = axes[i].length();
        has[i] = length > 0.0 && std::isfinite(length);
        pieces.scale[i] = has[i] ? length : 0.0;
        axes[i] = has[i] ? axes[i] / length : V3d(0.0);
    }
    pieces.shear = {has[1] ? along[1][0] / pieces.scale.y : 0.0, has[2] ? along[2][0] / pieces.scale.z : 0.0,
                    has[2] ? along[2][1] / pieces.scale.z : 0.0};
    completeAxes(axes, has);
    if (axes[0].dot(axes[1].cross(axes[2])) < 0.0) {
        pieces.scale = -pieces.scale;
        for (V3d& axis : axes) {
            axis = -axis;
        }
    }
    for (int i = 0; i < 3; ++i) {
        for (int column = 0; column < 3; ++column) {
            pieces.rotation[i][column] = axes[i][column];
        }
    }
    return pieces;
}

M33d rotationOf(const Matrix44& matrix) {
    return piecesOf(matrix).rotation;
}

V3d originOf(const Matrix44& matrix) {
    return {matrix[3][0], matrix[3][1], matrix[3][2]};
}

Matrix44 matrixOf(const M33d& rotation) {
    Matrix44 matrix;
    for (int line = 0; line < 3; ++line) {
        for (int column = 0; column < 3; ++column) {
            matrix[line][column] = rotation[line][column];
        }
    }
    return matrix;
}

} // namespace host
