#pragma once

#include "host/nodes/transformMatrix.h"

namespace host {

/// What a matrix is made of when it has no pivots: scale, then shear (xy, xz, yz), then rotation, then translation.
/// Of a mirroring matrix all three scales are negative. An axis without length has scale 0 and a direction that makes
/// the rotation whole.
struct MatrixPieces {
    Imath::V3d scale{1.0};
    Imath::V3d shear{0.0};
    Imath::M33d rotation;
    Imath::V3d translate{0.0};
};

MatrixPieces piecesOf(const Matrix44& matrix);

/// The rotation of a matrix alone, without its scale and shear.
Imath::M33d rotationOf(const Matrix44& matrix);

Imath::V3d originOf(const Matrix44& matrix);

/// A matrix that only turns.
Matrix44 matrixOf(const Imath::M33d& rotation);

} // namespace host
