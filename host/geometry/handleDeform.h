#pragma once

#include <Imath/ImathVec.h>

namespace host {

/// The deformations of the handles that act along their own y axis, in the space of the handle. Angles in radians.

/// The part of the y axis on which a handle acts. Bounds that are the wrong way round count as one place.
struct HandleBounds {
    double low = -1.0, high = 1.0;

    double within(double y) const; // the nearest place on it
    double partAt(double y) const; // 0 at low, 1 at high; held outside, 0 when there is no length
};

/// Bends the axis into a circle of the radius 1 / curvature around (1 / curvature, 0, 0), its y = 0 staying; lengths
/// along the axis stay. A positive curvature bends towards positive x. What lies beyond a bound goes on straight.
Imath::V3d bentPoint(const Imath::V3d& point, double curvature, const HandleBounds& bounds);

/// Turns about the axis, as rotateY does, from startAngle at the low bound evenly to endAngle at the high one.
Imath::V3d twistedPoint(const Imath::V3d& point, double startAngle, double endAngle, const HandleBounds& bounds);

/// Scales x and z, evenly from the start factors at the low bound to the end factors at the high one.
struct FlareFactors {
    double startX = 1.0, startZ = 1.0, endX = 1.0, endZ = 1.0;
};
Imath::V3d flaredPoint(const Imath::V3d& point, const FlareFactors& factors, const HandleBounds& bounds);

} // namespace host
