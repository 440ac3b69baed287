#include "scene/decomposition.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tvk {
namespace {

constexpr double kShortestAxis = 1e-10;

double dot(const Vector3& a, const Vector3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector3 cross(const Vector3& a, const Vector3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector3 minus(const Vector3& a, const Vector3& b, double factor) {
    return {a[0] - factor * b[0], a[1] - factor * b[1], a[2] - factor * b[2]};
}

// Length of the axis, which becomes a unit vector; 0 for one that is too short, which stays.
double takeLength(Vector3& axis) {
    const double length = std::hypot(axis[0], axis[1], axis[2]); // squares of huge components would overflow
    if (!(length >= kShortestAxis)) {
        return 0.0;
    }
    axis = {axis[0] / length, axis[1] / length, axis[2] / length};
    return length;
}

// A unit vector at right angles to a unit vector.
Vector3 anyNormal(const Vector3& axis) {
    const Vector3 away = std::abs(axis[0]) < 0.9 ? Vector3{1.0, 0.0, 0.0} : Vector3{0.0, 1.0, 0.0};
    Vector3 normal = cross(axis, away);
    takeLength(normal);
    return normal;
}

// Puts directions in the place of axes that have none, so that the three are orthonormal and right-handed.
void completeAxes(std::array<Vector3, 3>& axes, const Vector3& lengths) {
    const auto known = std::count_if(lengths.begin(), lengths.end(), [](double length) { return length > 0.0; });
    if (known == 0) {
        axes = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
        return;
    }
    if (known == 1) {
        const auto k = static_cast<std::size_t>(
            std::find_if(lengths.begin(), lengths.end(), [](double length) { return length > 0.0; }) - lengths.begin());
        axes[(k + 1) % 3] = anyNormal(axes[k]);
        axes[(k + 2) % 3] = cross(axes[k], axes[(k + 1) % 3]);
        return;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        if (!(lengths[i] > 0.0)) {
            axes[i] = cross(axes[(i + 1) % 3], axes[(i + 2) % 3]);
        }
    }
}

Vector3 anglesOf(const std::array<Vector3, 3>& axes) {
    const double sinY = std::clamp(-axes[0][2], -1.0, 1.0);
    const double cosY = std::hypot(axes[0][0], axes[0][1]);
    const double y = std::atan2(sinY, cosY);
    constexpr double kGimbal = 1e-9; // below it only the sum of the other two angles is known
    const double x = cosY > kGimbal ? std::atan2(axes[1][2], axes[2][2]) : std::atan2(-axes[2][1], axes[1][1]);
    const double z = cosY > kGimbal ? std::atan2(axes[0][1], axes[0][0]) : 0.0;
    return {x * kDegreesPerRadian, y * kDegreesPerRadian, z * kDegreesPerRadian};
}

// Moves each angle by whole turns next to the hint's. One that lies half a turn from it stays: 180 does not become
// -180.
Vector3 turnedTo(const Vector3& angles, const Vector3& hint) {
    Vector3 result{};
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = angles[i] + 360.0 * std::nearbyint((hint[i] - angles[i]) / 360.0);
    }
    return result;
}

double distance(const Vector3& a, const Vector3& b) {
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

} // namespace

Vector3 nearestAngles(const Vector3& angles, const Vector3& hint) {
    const Vector3 same = turnedTo(angles, hint);
    const Vector3 other = turnedTo({angles[0] + 180.0, 180.0 - angles[1], angles[2] + 180.0}, hint);
    return distance(other, hint) < distance(same, hint) ? other : same;
}

double normalisedAngle(double degrees) {
    if (degrees >= -180.0 && degrees <= 180.0) {
        return degrees;
    }
    const double turned = degrees - 360.0 * std::floor((degrees + 180.0) / 360.0);
    // Rounding of a huge angle may leave it just outside.
    return std::isfinite(turned) && turned >= -180.0 && turned < 180.0 ? turned : 0.0;
}

Decomposition decompose(const MMatrix& matrix, const Vector3& rotationHint) {
    std::array<Vector3, 3> axes{};
    for (unsigned int r = 0; r < 3; ++r) {
        axes[r] = {matrix(r, 0), matrix(r, 1), matrix(r, 2)};
    }
    Decomposition result;
    Vector3& scale = result.parts.scale;
    scale[0] = takeLength(axes[0]);
    const double xy = dot(axes[1], axes[0]) * (scale[0] > 0.0 ? 1.0 : 0.0);
    axes[1] = minus(axes[1], axes[0], xy);
    scale[1] = takeLength(axes[1]);
    const double xz = dot(axes[2], axes[0]) * (scale[0] > 0.0 ? 1.0 : 0.0);
    const double yz = dot(axes[2], axes[1]) * (scale[1] > 0.0 ? 1.0 : 0.0);
    axes[2] = minus(minus(axes[2], axes[0], xz), axes[1], yz);
    scale[2] = takeLength(axes[2]);
    result.shear = {scale[1] > 0.0 ? xy / scale[1] : 0.0, scale[2] > 0.0 ? xz / scale[2] : 0.0,
                    scale[2] > 0.0 ? yz / scale[2] : 0.0};

    const bool complete = scale[0] > 0.0 && scale[1] > 0.0 && scale[2] > 0.0;
    if (complete && dot(axes[0], cross(axes[1], axes[2])) < 0.0) {
        scale[0] = -scale[0];
        axes[0] = {-axes[0][0], -axes[0][1], -axes[0][2]};
        result.shear = {-result.shear[0], -result.shear[1], result.shear[2]};
    }
    completeAxes(axes, {std::abs(scale[0]), scale[1], scale[2]});

    result.parts.rotate = nearestAngles(anglesOf(axes), rotationHint);
    result.parts.translate = {matrix(3, 0), matrix(3, 1), matrix(3, 2)};
    return result;
}

} // namespace tvk
