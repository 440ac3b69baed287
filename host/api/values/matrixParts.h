#pragma once

#include <Imath/ImathMatrix.h>
#include <Imath/ImathVec.h>

namespace host::api {

/// scale · shear · rotation · translation.
struct MatrixParts {
    Imath::V3d scale;
    Imath::V3d shear; // xy, xz, yz
    Imath::M44d rotation;
    Imath::V3d translation;
};

/// Splits a matrix whose last column is (0, 0, 0, 1); the product of the parts is the matrix, but for the cases below.
/// The rotation is always a proper one: a mirroring matrix gives three negative scales. An axis that is null, not
/// finite, or depends on the ones before it gets the scale 0, no shear, and a direction that completes the rotation.
MatrixParts splitMatrix(const Imath::M44d& matrix);

} // namespace host::api
