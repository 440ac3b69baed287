#pragma once

#include "host/nodes/transformMatrix.h"

#include <Imath/ImathVec.h>

namespace host {

/// Angles (radians, in the given order) of a rotation without scale or shear. At the middle angle's two poles the
/// third-applied angle is 0.
Imath::V3d rotationAngles(const Imath::M33d& rotation, RotateOrder order);

/// The rotation that lies between two by `weight` (0: first, 1: second) on the shorter way round.
Imath::V3d slerpRotation(const Imath::V3d& first, const Imath::V3d& second, double weight, RotateOrder order);

} // namespace host
