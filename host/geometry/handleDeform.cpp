#include "host/geometry/handleDeform.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::V3d;

/// Below this angle the circle is so large that subtracting its radius would lose digits.
constexpr double kStraight = 1e-9;

} // namespace

double HandleBounds::within(double y) const {
    return std::max(std::min(y, std::max(low, high)), low);
}

double HandleBounds::partAt(double y) const {
    return high > low ? (within(y) - low) / (high - low) : 0.0;
}

V3d bentPoint(const V3d& point, double curvature, const HandleBounds& bounds) {
    if (std::abs(curvature) < kStraight) {
        return point;
    }
    const double onAxis = bounds.within(point.y);
    const double angle = curvature * onAxis;
    const double radius = 1.0 / curvature;
    const double beyond = point.y - onAxis;
    return {radius - (radius - point.x) * std::cos(angle) + beyond * std::sin(angle),
            (radius - point.x) * std::sin(angle) + beyond * std::cos(angle), point.z};
}

V3d twistedPoint(const V3d& point, double startAngle, double endAngle, const HandleBounds& bounds) {
    const double angle = startAngle + (endAngle - startAngle) * bounds.partAt(point.y);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    return {point.x * cosine + point.z * sine, point.y, point.z * cosine - point.x * sine};
}

V3d flaredPoint(const V3d& point, const FlareFactors& factors, const HandleBounds& bounds) {
    const double part = bounds.partAt(point.y);
    return {point.x * (factors.startX + (factors.endX - factors.startX) * part), point.y,
            point.z * (factors.startZ + (factors.endZ - factors.startZ) * part)};
}

} // namespace host
