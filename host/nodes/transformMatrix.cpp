#include "host/nodes/transformMatrix.h"

#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

/// Elementary rotation about axis 0, 1 or 2.
M33d axisRotation(int axis, double radians) {
    const int next = (axis + 1) % 3;
    const int last = (axis + 2) % 3;
    M33d matrix;
    matrix[next][next] = std::cos(radians);
    matrix[next][last] = std::sin(radians);
    matrix[last][next] = -std::sin(radians);
    matrix[last][last] = std::cos(radians);
    return matrix;
}

M33d scaleAndShear(const TransformPieces& pieces) {
    const V3d& s = pieces.scale;
    const V3d& sh = pieces.shear;
    return M33d(s.x, 0, 0, s.y * sh.x, s.y, 0, s.z * sh.y, s.z * sh.z, s.z);
}

Matrix44 fromParts(const M33d& linear, const V3d& origin) {
    return Matrix44(linear[0][0], linear[0][1], linear[0][2], 0, linear[1][0], linear[1][1], linear[1][2], 0,
                    linear[2][0], linear[2][1], linear[2][2], 0, origin.x, origin.y, origin.z, 1);
}

double inverseOrOne(double value) {
    return value == 0.0 ? 1.0 : 1.0 / value;
}

} // namespace

RotateOrder rotateOrderOf(double number) {
    return number >= 0.0 && number < 6.0 ? static_cast<RotateOrder>(static_cast<int>(number)) : RotateOrder::kXYZ;
}

M33d rotationMatrix(const V3d& radians, RotateOrder order) {
    static constexpr int kAxes[][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};
    const int* axes = kAxes[static_cast<int>(order)];
    return axisRotation(axes[0], radians[axes[0]]) * axisRotation(axes[1], radians[axes[1]]) *
           axisRotation(axes[2], radians[axes[2]]);
}

Matrix44 transformMatrix(const TransformPieces& pieces) {
    const M33d scaled = scaleAndShear(pieces);
    const M33d turned =
        rotationMatrix(pieces.rotateAxis, RotateOrder::kXYZ) * rotationMatrix(pieces.rotate, pieces.rotateOrder);
    const V3d& sp = pieces.scalePivot;
    const V3d& rp = pieces.rotatePivot;
    const V3d beforeTurn = sp - sp * scaled + pieces.scalePivotTranslate - rp;
    const V3d origin = beforeTurn * turned + rp + pieces.rotatePivotTranslate + pieces.translate;
    return fromParts(scaled * turned, origin);
}

Matrix44 jointMatrix(const TransformPieces& pieces, const JointPieces& joint) {
    M33d linear = scaleAndShear(pieces) * rotationMatrix(pieces.rotateAxis, RotateOrder::kXYZ) *
                  rotationMatrix(pieces.rotate, pieces.rotateOrder) *
                  rotationMatrix(joint.jointOrient, RotateOrder::kXYZ);
    if (joint.segmentScaleCompensate) {
        for (int column = 0; column < 3; ++column) {
            const double factor = inverseOrOne(joint.inverseScale[column]);
            for (int line = 0; line < 3; ++line) {
                linear[line][column] *= factor;
            }
        }
    }
    return fromParts(linear, pieces.translate);
}

} // namespace host
