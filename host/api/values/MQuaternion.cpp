#include <maya/MQuaternion.h>

#include "host/api/values/imathConversions.h"
#include "host/api/values/matrixParts.h"

#include <maya/MEulerRotation.h>

#include <Imath/ImathMatrixAlgo.h>

using host::api::fromImath;
using host::api::toImath;

const MQuaternion MQuaternion::identity;

MQuaternion::MQuaternion(double angle, const MVector& axis) {
    setAxisAngle(axis, angle);
}

MQuaternion::MQuaternion(const MVector& from, const MVector& to) {
    if (from.length() > 0.0 && to.length() > 0.0) {
        Imath::Quatd rotation;
        rotation.setRotation(toImath(from), toImath(to));
        *this = fromImath(rotation);
    }
}

MQuaternion::MQuaternion(const MVector& from, const MVector& to, double factor)
    : MQuaternion(slerp(identity, MQuaternion(from, to), factor)) {}

MQuaternion& MQuaternion::operator=(const MMatrix& matrix) {
    return *this = fromImath(Imath::extractQuat(host::api::splitMatrix(toImath(matrix)).rotation)).normal();
}

MQuaternion& MQuaternion::operator=(const MEulerRotation& rotation) {
    return *this = rotation.asQuaternion();
}

MQuaternion& MQuaternion::setAxisAngle(const MVector& axis, double angle) {
    Imath::Quatd rotation;
    if (axis.length() > 0.0) {
        rotation.setAxisAngle(toImath(axis), angle);
    }
    return *this = fromImath(rotation);
}

MQuaternion& MQuaternion::setToXAxis(double angle) {
    return setAxisAngle(MVector::xAxis, angle);
}

MQuaternion& MQuaternion::setToYAxis(double angle) {
    return setAxisAngle(MVector::yAxis, angle);
}

MQuaternion& MQuaternion::setToZAxis(double angle) {
    return setAxisAngle(MVector::zAxis, angle);
}

MMatrix MQuaternion::asMatrix() const {
    return fromImath(toImath(normal()).toMatrix44());
}

MEulerRotation MQuaternion::asEulerRotation() const {
    return MEulerRotation::decompose(asMatrix(), MEulerRotation::kXYZ);
}

bool MQuaternion::getAxisAngle(MVector& axis, double& angle) const {
    const Imath::Quatd rotation = toImath(*this);
    const bool turns = rotation.v.length() > 0.0;
    axis = turns ? fromImath(rotation.axis()) : MVector::xAxis;
    angle = turns ? rotation.angle() : 0.0;
    return turns;
}

MStatus MQuaternion::get(double out[4]) const {
    for (unsigned int i = 0; i < 4; ++i) {
        out[i] = (*this)[i];
    }
    return MStatus::kSuccess;
}

MQuaternion MQuaternion::operator+(const MQuaternion& other) const {
    return fromImath(toImath(*this) + toImath(other));
}

MQuaternion MQuaternion::operator-(const MQuaternion& other) const {
    return fromImath(toImath(*this) - toImath(other));
}

// Imath's product applies the right one first.
MQuaternion MQuaternion::operator*(const MQuaternion& other) const {
    return fromImath(toImath(other) * toImath(*this));
}

MQuaternion& MQuaternion::operator*=(const MQuaternion& other) {
    return *this = *this * other;
}

MQuaternion MQuaternion::operator*(double factor) const {
    return fromImath(toImath(*this) * factor);
}

MQuaternion operator*(double factor, const MQuaternion& quaternion) {
    return quaternion * factor;
}

bool MQuaternion::operator==(const MQuaternion& other) const {
    return toImath(*this) == toImath(other);
}

bool MQuaternion::isEquivalent(const MQuaternion& other, double tolerance) const {
    const Imath::Quatd own = toImath(*this), others = toImath(other);
    return own.v.equalWithAbsError(others.v, tolerance) && Imath::equalWithAbsError(own.r, others.r, tolerance);
}

MQuaternion MQuaternion::normal() const {
    return fromImath(toImath(*this).normalized());
}

MQuaternion& MQuaternion::normalizeIt() {
    return *this = normal();
}

MQuaternion& MQuaternion::conjugateIt() {
    return *this = conjugate();
}

MQuaternion MQuaternion::inverse() const {
    const bool isNull = x == 0.0 && y == 0.0 && z == 0.0 && w == 0.0;
    return isNull ? identity : fromImath(toImath(*this).inverse());
}

MQuaternion& MQuaternion::invertIt() {
    return *this = inverse();
}

MQuaternion& MQuaternion::negateIt() {
    return *this = -*this;
}

MQuaternion& MQuaternion::scaleIt(double factor) {
    return *this = *this * factor;
}

MQuaternion slerp(const MQuaternion& p, const MQuaternion& q, double t) {
    return fromImath(Imath::slerpShortestArc(toImath(p), toImath(q), t));
}
