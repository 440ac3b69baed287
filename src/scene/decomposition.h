#pragma once

#include "scene/NodeRecord.h"

namespace tvk {

/// The parts of an affine matrix that acts on row vectors as scale, then shear, then rotation, then translation.
struct Decomposition {
    TransformSet parts; // rotation nearest to the hint
    Vector3 shear{};    // xy, xz, yz; what `parts` cannot hold
};

/// Shear up to here is rounding and not worth a word.
inline constexpr double kLargestIgnoredShear = 1e-5;

/// Takes a matrix apart.
///   matrix        last column 0 0 0 1
///   rotationHint  degrees, XYZ; of the angle triples that give the same rotation the one nearest to it is returned
/// A negative determinant negates scale x. An axis shorter than 1e-10 gives scale 0 and keeps a valid rotation, so no
/// result is ever not-a-number for a finite matrix.
Decomposition decompose(const MMatrix& matrix, const Vector3& rotationHint);

/// The angle triple (degrees, XYZ) of the same rotation that lies nearest to `hint` by the sum of absolute differences.
Vector3 nearestAngles(const Vector3& angles, const Vector3& hint);

/// Into [-180, 180): an angle that lies in [-180, 180] already stays as it is.
double normalisedAngle(double degrees);

inline constexpr double kDegreesPerRadian = 57.29577951308232;
inline constexpr double kRadiansPerDegree = 0.017453292519943295;

} // namespace tvk
