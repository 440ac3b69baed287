#include <maya/MVector.h>

#include "host/api/values/imathConversions.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>

#include <cmath>

using host::api::fromImath;
using host::api::toImath;

const MVector MVector::zero(0.0, 0.0, 0.0);
const MVector MVector::one(1.0, 1.0, 1.0);
const MVector MVector::xAxis(1.0, 0.0, 0.0);
const MVector MVector::yAxis(0.0, 1.0, 0.0);
const MVector MVector::zAxis(0.0, 0.0, 1.0);
const MVector MVector::xNegAxis(-1.0, 0.0, 0.0);
const MVector MVector::yNegAxis(0.0, -1.0, 0.0);
const MVector MVector::zNegAxis(0.0, 0.0, -1.0);

MStatus MVector::get(double out[3]) const {
    out[0] = x;
    out[1] = y;
    out[2] = z;
    return MStatus::kSuccess;
}

MVector MVector::operator*(const MMatrix& matrix) const {
    Imath::V3d result;
    toImath(matrix).multDirMatrix(toImath(*this), result);
    return fromImath(result);
}

MVector& MVector::operator*=(const MMatrix& matrix) {
    return *this = *this * matrix;
}

MVector operator*(const MMatrix& matrix, const MVector& vector) {
    return vector * matrix.transpose();
}

MVector MVector::transformAsNormal(const MMatrix& matrix) const {
    return *this * matrix.inverse().transpose();
}

MVector MVector::rotateBy(const double angles[3], host::api::RotationOrders::RotationOrder order) const {
    const bool known = order > host::api::RotationOrders::kInvalid && order < host::api::RotationOrders::kLast;
    const int number = known ? order - host::api::RotationOrders::kXYZ : MEulerRotation::kXYZ;
    return rotateBy(MEulerRotation(angles, static_cast<MEulerRotation::RotationOrder>(number)));
}

MVector MVector::rotateBy(Axis axis, double angle) const {
    MQuaternion rotation;
    switch (axis) {
    case kXaxis:
        rotation.setToXAxis(angle);
        break;
    case kYaxis:
        rotation.setToYAxis(angle);
        break;
    case kZaxis:
        rotation.setToZAxis(angle);
        break;
    case kWaxis:
        break;
    }
    return rotateBy(rotation);
}

MVector MVector::rotateBy(const MQuaternion& rotation) const {
    return *this * rotation.asMatrix();
}

MVector MVector::rotateBy(const MEulerRotation& rotation) const {
    return *this * rotation.asMatrix();
}

MQuaternion MVector::rotateTo(const MVector& other) const {
    return MQuaternion(*this, other);
}

double MVector::length() const {
    return toImath(*this).length();
}

MVector MVector::normal() const {
    return fromImath(toImath(*this).normalized());
}

MStatus MVector::normalize() {
    *this = normal();
    return *this == zero ? MStatus::kFailure : MStatus::kSuccess;
}

double MVector::angle(const MVector& other) const {
    // The arc tangent keeps small angles, which the arc cosine of the dot product loses.
    const MVector own = normal(), others = other.normal();
    return std::atan2((own ^ others).length(), own * others);
}

bool MVector::isEquivalent(const MVector& other, double tolerance) const {
    return toImath(*this).equalWithAbsError(toImath(other), tolerance);
}

bool MVector::isParallel(const MVector& other, double tolerance) const {
    return (normal() ^ other.normal()).length() <= tolerance;
}
