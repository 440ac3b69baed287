#include <maya/MEulerRotation.h>

#include "host/api/values/imathConversions.h"
#include "host/api/values/matrixParts.h"
#include "host/api/values/writeNumbers.h"

#include <Imath/ImathEuler.h>

#include <cmath>
#include <ostream>

using host::api::fromImath;
using host::api::toImath;

namespace {

constexpr double kPi = 3.14159265358979323846;
// Below this cosine of the second angle the first and third turn about one line, as far as doubles can tell.
constexpr double kGimbalLock = 1e-12;
// Far below the half turn at which the nearest angles would become ambiguous.
constexpr double kLargestStep = kPi / 18.0;
constexpr double kMostTurns = 1000.0;

struct OrderRow {
    const char* name;
    Imath::Eulerd::Order imath;
    MEulerRotation::RotationOrder reversed;
    int axes[3]; // in the order in which they apply
    double sign; // 1 when the axes follow each other as x, y, z, x do
};

constexpr OrderRow kOrders[] = {
    {"kXYZ", Imath::Eulerd::XYZ, MEulerRotation::kZYX, {0, 1, 2}, 1.0},
    {"kYZX", Imath::Eulerd::YZX, MEulerRotation::kXZY, {1, 2, 0}, 1.0},
    {"kZXY", Imath::Eulerd::ZXY, MEulerRotation::kYXZ, {2, 0, 1}, 1.0},
    {"kXZY", Imath::Eulerd::XZY, MEulerRotation::kYZX, {0, 2, 1}, -1.0},
    {"kYXZ", Imath::Eulerd::YXZ, MEulerRotation::kZXY, {1, 0, 2}, -1.0},
    {"kZYX", Imath::Eulerd::ZYX, MEulerRotation::kXYZ, {2, 1, 0}, -1.0},
};
static_assert(sizeof kOrders / sizeof kOrders[0] == MEulerRotation::kZYX + 1, "a row for every order");

// A number that is no order is taken for kXYZ.
const OrderRow& rowOf(MEulerRotation::RotationOrder order) {
    const bool known = order >= MEulerRotation::kXYZ && order <= MEulerRotation::kZYX;
    return kOrders[known ? order : MEulerRotation::kXYZ];
}

Imath::Eulerd toImath(const MEulerRotation& rotation) {
    return Imath::Eulerd(toImath(rotation.asVector()), rowOf(rotation.order).imath, Imath::Eulerd::XYZLayout);
}

double boundAngle(double angle) {
    return std::remainder(angle, 2.0 * kPi);
}

double squaredDistance(const MEulerRotation& left, const MEulerRotation& right) {
    const MVector difference = left.asVector() - right.asVector();
    return difference * difference;
}

} // namespace

const MEulerRotation MEulerRotation::identity;

MEulerRotation& MEulerRotation::setValue(double xx, double yy, double zz, RotationOrder o) {
    return *this = MEulerRotation(xx, yy, zz, o);
}

MEulerRotation& MEulerRotation::setValue(const MVector& angles, RotationOrder o) {
    return *this = MEulerRotation(angles, o);
}

MEulerRotation& MEulerRotation::operator=(const MMatrix& matrix) {
    return *this = decompose(matrix, order);
}

MEulerRotation& MEulerRotation::operator=(const MQuaternion& rotation) {
    return *this = decompose(rotation.asMatrix(), order);
}

MEulerRotation MEulerRotation::decompose(const MMatrix& matrix, RotationOrder order) {
    const OrderRow& row = rowOf(order);
    const Imath::M44d rotation = host::api::splitMatrix(toImath(matrix)).rotation;
    Imath::Eulerd extracted(row.imath);
    extracted.extract(rotation);
    MEulerRotation result(fromImath(extracted.toXYZVector()), order);
    const int first = row.axes[0], second = row.axes[1], third = row.axes[2];
    if (std::hypot(rotation[first][first], rotation[first][second]) < kGimbalLock) {
        result[static_cast<unsigned int>(first)] =
            std::atan2(-row.sign * rotation[third][second], rotation[second][second]);
        result[static_cast<unsigned int>(third)] = 0.0;
    }
    return result;
}

MMatrix MEulerRotation::asMatrix() const {
    return fromImath(toImath(*this).toMatrix44());
}

MQuaternion MEulerRotation::asQuaternion() const {
    return fromImath(toImath(*this).toQuat());
}

MEulerRotation MEulerRotation::operator+(const MEulerRotation& other) const {
    return MEulerRotation(asVector() + other.reorder(order).asVector(), order);
}

MEulerRotation MEulerRotation::operator-(const MEulerRotation& other) const {
    return MEulerRotation(asVector() - other.reorder(order).asVector(), order);
}

MEulerRotation MEulerRotation::operator*(double factor) const {
    return MEulerRotation(asVector() * factor, order);
}

MEulerRotation& MEulerRotation::operator+=(const MEulerRotation& other) {
    return *this = *this + other;
}

MEulerRotation& MEulerRotation::operator-=(const MEulerRotation& other) {
    return *this = *this - other;
}

MEulerRotation& MEulerRotation::operator*=(double factor) {
    return *this = *this * factor;
}

MEulerRotation MEulerRotation::operator*(const MEulerRotation& other) const {
    return decompose(asMatrix() * other.asMatrix(), order);
}

MEulerRotation MEulerRotation::operator*(const MQuaternion& other) const {
    return decompose(asMatrix() * other.asMatrix(), order);
}

MEulerRotation& MEulerRotation::operator*=(const MEulerRotation& other) {
    return *this = *this * other;
}

MEulerRotation& MEulerRotation::operator*=(const MQuaternion& other) {
    return *this = *this * other;
}

bool MEulerRotation::operator==(const MEulerRotation& other) const {
    return order == other.order && asVector() == other.asVector();
}

bool MEulerRotation::isEquivalent(const MEulerRotation& other, double tolerance) const {
    return order == other.order && asVector().isEquivalent(other.asVector(), tolerance);
}

bool MEulerRotation::isZero(double tolerance) const {
    return asVector().isEquivalent(MVector::zero, tolerance);
}

MEulerRotation MEulerRotation::reorder(RotationOrder newOrder) const {
    if (newOrder == order) {
        return *this;
    }
    // The target's angles are what counts here, whatever order it has.
    return decompose(asMatrix(), newOrder).closestSolution(MEulerRotation(asVector(), newOrder));
}

MEulerRotation& MEulerRotation::reorderIt(RotationOrder newOrder) {
    return *this = reorder(newOrder);
}

MEulerRotation MEulerRotation::inverse() const {
    return MEulerRotation(-x, -y, -z, rowOf(order).reversed);
}

MEulerRotation& MEulerRotation::invertIt() {
    return *this = inverse();
}

MEulerRotation MEulerRotation::bound() const {
    return MEulerRotation(boundAngle(x), boundAngle(y), boundAngle(z), order);
}

MEulerRotation& MEulerRotation::boundIt() {
    return *this = bound();
}

MEulerRotation MEulerRotation::bound(const MEulerRotation& source) {
    return source.bound();
}

MEulerRotation MEulerRotation::alternateSolution() const {
    const auto second = static_cast<unsigned int>(rowOf(order).axes[1]);
    MEulerRotation alternate(x + kPi, y + kPi, z + kPi, order);
    alternate[second] = kPi - (*this)[second];
    return alternate.bound();
}

MEulerRotation& MEulerRotation::setToAlternateSolution() {
    return *this = alternateSolution();
}

MEulerRotation& MEulerRotation::setToAlternateSolution(const MEulerRotation& source) {
    return *this = source.alternateSolution();
}

MEulerRotation MEulerRotation::closestCut(const MEulerRotation& target) const {
    const MEulerRotation aim = target.reorder(order);
    MEulerRotation cut = *this;
    for (unsigned int i = 0; i < 3; ++i) {
        cut[i] += 2.0 * kPi * std::round((aim[i] - cut[i]) / (2.0 * kPi));
    }
    return cut;
}

MEulerRotation& MEulerRotation::setToClosestCut(const MEulerRotation& target) {
    return *this = closestCut(target);
}

MEulerRotation& MEulerRotation::setToClosestCut(const MEulerRotation& source, const MEulerRotation& target) {
    return *this = source.closestCut(target);
}

MEulerRotation MEulerRotation::closestSolution(const MEulerRotation& target) const {
    const MEulerRotation aim = target.reorder(order);
    const MEulerRotation own = closestCut(aim), other = alternateSolution().closestCut(aim);
    return squaredDistance(other, aim) < squaredDistance(own, aim) ? other : own;
}

MEulerRotation MEulerRotation::closestSolution(const MEulerRotation& source, const MEulerRotation& target) {
    return source.closestSolution(target);
}

MEulerRotation& MEulerRotation::setToClosestSolution(const MEulerRotation& target) {
    return *this = closestSolution(target);
}

MEulerRotation& MEulerRotation::setToClosestSolution(const MEulerRotation& source, const MEulerRotation& target) {
    return *this = source.closestSolution(target);
}

MEulerRotation& MEulerRotation::incrementalRotateBy(const MVector& axis, double angle) {
    const double followed = std::isfinite(angle) ? std::fmod(angle, kMostTurns * 2.0 * kPi) : 0.0;
    const int steps = static_cast<int>(std::ceil(std::fabs(followed) / kLargestStep));
    for (int step = 0; step < steps; ++step) {
        setToClosestSolution(*this * MQuaternion(followed / steps, axis), MEulerRotation(*this));
    }
    return *this;
}

std::ostream& operator<<(std::ostream& stream, const MEulerRotation& rotation) {
    host::api::writeNumbers(stream, {rotation.x, rotation.y, rotation.z});
    return stream << ' ' << rowOf(rotation.order).name;
}
