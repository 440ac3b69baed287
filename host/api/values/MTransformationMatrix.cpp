#include <maya/MTransformationMatrix.h>

#include "host/api/values/imathConversions.h"
#include "host/api/values/matrixParts.h"

using host::api::fromImath;
using host::api::toImath;

namespace {

bool isUsable(MSpace::Space space) {
    return space > MSpace::kInvalid && space < MSpace::kLast;
}

bool isAfterTransformation(MSpace::Space space) {
    return space == MSpace::kPostTransform || space == MSpace::kWorld;
}

bool isUsable(MTransformationMatrix::RotationOrder order) {
    return order > MTransformationMatrix::kInvalid && order < MTransformationMatrix::kLast;
}

MEulerRotation::RotationOrder eulerOrder(MTransformationMatrix::RotationOrder order) {
    return static_cast<MEulerRotation::RotationOrder>(order - MTransformationMatrix::kXYZ);
}

// Whether the space is usable; tells the status, too, when one is wanted.
bool checkSpace(MSpace::Space space, MStatus* status) {
    if (status != nullptr) {
        *status = isUsable(space) ? MStatus::kSuccess : MStatus::kInvalidParameter;
    }
    return isUsable(space);
}

MStatus readNumbers(const MVector& stored, double out[3], MSpace::Space space) {
    return isUsable(space) ? stored.get(out) : MStatus(MStatus::kInvalidParameter);
}

MStatus storeVector(MVector& stored, const MVector& vector, MSpace::Space space) {
    if (!isUsable(space)) {
        return MStatus::kInvalidParameter;
    }
    stored = vector;
    return MStatus::kSuccess;
}

MMatrix scaleMatrix(const MVector& scale) {
    return fromImath(Imath::M44d().setScale(toImath(scale)));
}

// The rows (1, 0, 0), (xy, 1, 0), (xz, yz, 1).
MMatrix shearMatrix(const MVector& shear) {
    MMatrix matrix;
    matrix[1][0] = shear.x;
    matrix[2][0] = shear.y;
    matrix[2][1] = shear.z;
    return matrix;
}

MMatrix translationMatrix(const MVector& translation) {
    return fromImath(Imath::M44d().setTranslation(toImath(translation)));
}

MVector translationOf(const MMatrix& matrix) {
    return MVector(matrix[3][0], matrix[3][1], matrix[3][2]);
}

} // namespace

const MTransformationMatrix MTransformationMatrix::identity;

MTransformationMatrix::MTransformationMatrix(const MMatrix& matrix) {
    const host::api::MatrixParts parts = host::api::splitMatrix(toImath(matrix));
    scale_ = fromImath(parts.scale);
    shear_ = fromImath(parts.shear);
    rotation_ = MEulerRotation::decompose(fromImath(parts.rotation), MEulerRotation::kXYZ);
    translation_ = fromImath(parts.translation);
}

MTransformationMatrix& MTransformationMatrix::operator=(const MMatrix& matrix) {
    return *this = MTransformationMatrix(matrix);
}

MMatrix MTransformationMatrix::asMatrix() const {
    const MVector scalePivot(scalePivot_), rotatePivot(rotatePivot_);
    return translationMatrix(-scalePivot) * scaleMatrix(scale_) * shearMatrix(shear_) *
           translationMatrix(scalePivot + scalePivotTranslation_ - rotatePivot) * asRotateMatrix() *
           translationMatrix(rotatePivot + rotatePivotTranslation_ + translation_);
}

MMatrix MTransformationMatrix::asMatrix(double percent) const {
    MTransformationMatrix part = *this;
    part.scale_ = MVector::one + (scale_ - MVector::one) * percent;
    part.shear_ = shear_ * percent;
    part.rotation_ = slerp(MQuaternion::identity, rotation_.asQuaternion(), percent);
    part.orientation_ = slerp(MQuaternion::identity, orientation_, percent);
    part.scalePivotTranslation_ = scalePivotTranslation_ * percent;
    part.rotatePivotTranslation_ = rotatePivotTranslation_ * percent;
    part.translation_ = translation_ * percent;
    return part.asMatrix();
}

MMatrix MTransformationMatrix::asMatrixInverse() const {
    return asMatrix().inverse();
}

MMatrix MTransformationMatrix::asScaleMatrix() const {
    return scaleMatrix(scale_);
}

MMatrix MTransformationMatrix::asRotateMatrix() const {
    return orientation_.asMatrix() * rotation_.asMatrix();
}

MVector MTransformationMatrix::getTranslation(MSpace::Space space, MStatus* returnStatus) const {
    if (!checkSpace(space, returnStatus)) {
        return MVector::zero;
    }
    return isAfterTransformation(space) ? translationOf(asMatrix()) : translation_;
}

MVector MTransformationMatrix::translation(MSpace::Space space, MStatus* returnStatus) const {
    return getTranslation(space, returnStatus);
}

MStatus MTransformationMatrix::setTranslation(const MVector& vector, MSpace::Space space) {
    return addTranslation(vector - getTranslation(space), space);
}

MStatus MTransformationMatrix::addTranslation(const MVector& vector, MSpace::Space space) {
    return storeVector(translation_, translation_ + vector, space);
}

MStatus MTransformationMatrix::getScale(double scale[3], MSpace::Space space) const {
    return readNumbers(scale_, scale, space);
}

MStatus MTransformationMatrix::setScale(const double scale[3], MSpace::Space space) {
    return storeVector(scale_, MVector(scale), space);
}

MStatus MTransformationMatrix::addScale(const double factors[3], MSpace::Space space) {
    return storeVector(scale_, MVector(scale_.x * factors[0], scale_.y * factors[1], scale_.z * factors[2]), space);
}

MStatus MTransformationMatrix::getShear(double shear[3], MSpace::Space space) const {
    return readNumbers(shear_, shear, space);
}

MStatus MTransformationMatrix::setShear(const double shear[3], MSpace::Space space) {
    return storeVector(shear_, MVector(shear), space);
}

MStatus MTransformationMatrix::addShear(const double shear[3], MSpace::Space space) {
    return storeVector(shear_, shear_ + MVector(shear), space);
}

MStatus MTransformationMatrix::getRotation(double rotation[3], RotationOrder& order) const {
    order = rotationOrder();
    return rotation_.asVector().get(rotation);
}

MStatus MTransformationMatrix::getRotation(double rotation[3], RotationOrder& order, MSpace::Space space) const {
    return isUsable(space) ? getRotation(rotation, order) : MStatus(MStatus::kInvalidParameter);
}

MStatus MTransformationMatrix::getRotationQuaternion(double& x, double& y, double& z, double& w,
                                                     MSpace::Space space) const {
    if (!isUsable(space)) {
        return MStatus::kInvalidParameter;
    }
    const MQuaternion quaternion = rotation();
    x = quaternion.x;
    y = quaternion.y;
    z = quaternion.z;
    w = quaternion.w;
    return MStatus::kSuccess;
}

MQuaternion MTransformationMatrix::rotation() const {
    return rotation_.asQuaternion();
}

MEulerRotation MTransformationMatrix::eulerRotation() const {
    return rotation_;
}

MTransformationMatrix::RotationOrder MTransformationMatrix::rotationOrder() const {
    return static_cast<RotationOrder>(static_cast<int>(rotation_.order) + kXYZ);
}

MStatus MTransformationMatrix::setRotation(const double rotation[3], RotationOrder order) {
    if (!isUsable(order)) {
        return MStatus::kInvalidParameter;
    }
    rotation_ = MEulerRotation(rotation, eulerOrder(order));
    return MStatus::kSuccess;
}

MStatus MTransformationMatrix::setRotation(const double rotation[3], RotationOrder order, MSpace::Space space) {
    return isUsable(space) ? setRotation(rotation, order) : MStatus(MStatus::kInvalidParameter);
}

MStatus MTransformationMatrix::setRotationQuaternion(double x, double y, double z, double w, MSpace::Space space) {
    if (!isUsable(space)) {
        return MStatus::kInvalidParameter;
    }
    rotateTo(MQuaternion(x, y, z, w));
    return MStatus::kSuccess;
}

MTransformationMatrix& MTransformationMatrix::rotateTo(const MQuaternion& rotation) {
    rotation_ = rotation;
    return *this;
}

MTransformationMatrix& MTransformationMatrix::rotateTo(const MEulerRotation& rotation) {
    rotation_ = rotation;
    return *this;
}

MTransformationMatrix& MTransformationMatrix::rotateBy(const MQuaternion& rotation, MSpace::Space space,
                                                       MStatus* returnStatus) {
    if (checkSpace(space, returnStatus)) {
        const MQuaternion own = this->rotation();
        rotateTo(space == MSpace::kObject ? rotation * own : own * rotation);
    }
    return *this;
}

MTransformationMatrix& MTransformationMatrix::rotateBy(const MEulerRotation& rotation, MSpace::Space space,
                                                       MStatus* returnStatus) {
    return rotateBy(rotation.asQuaternion(), space, returnStatus);
}

MStatus MTransformationMatrix::addRotation(const double rotation[3], RotationOrder order, MSpace::Space space) {
    if (!isUsable(order)) {
        return MStatus::kInvalidParameter;
    }
    MStatus status;
    rotateBy(MEulerRotation(rotation, eulerOrder(order)), space, &status);
    return status;
}

MStatus MTransformationMatrix::addRotationQuaternion(double x, double y, double z, double w, MSpace::Space space) {
    MStatus status;
    rotateBy(MQuaternion(x, y, z, w), space, &status);
    return status;
}

MStatus MTransformationMatrix::reorderRotation(RotationOrder order) {
    if (!isUsable(order)) {
        return MStatus::kInvalidParameter;
    }
    rotation_.reorderIt(eulerOrder(order));
    return MStatus::kSuccess;
}

MQuaternion MTransformationMatrix::rotationOrientation() const {
    return orientation_;
}

MTransformationMatrix& MTransformationMatrix::setRotationOrientation(const MQuaternion& orientation) {
    orientation_ = orientation;
    return *this;
}

MPoint MTransformationMatrix::rotatePivot(MSpace::Space space, MStatus* returnStatus) const {
    if (!checkSpace(space, returnStatus)) {
        return MPoint::origin;
    }
    return isAfterTransformation(space) ? rotatePivot_ * asMatrix() : rotatePivot_;
}

MPoint MTransformationMatrix::scalePivot(MSpace::Space space, MStatus* returnStatus) const {
    if (!checkSpace(space, returnStatus)) {
        return MPoint::origin;
    }
    return isAfterTransformation(space) ? scalePivot_ * asMatrix() : scalePivot_;
}

MVector MTransformationMatrix::rotatePivotTranslation(MSpace::Space space, MStatus* returnStatus) const {
    return checkSpace(space, returnStatus) ? rotatePivotTranslation_ : MVector::zero;
}

MVector MTransformationMatrix::scalePivotTranslation(MSpace::Space space, MStatus* returnStatus) const {
    return checkSpace(space, returnStatus) ? scalePivotTranslation_ : MVector::zero;
}

MStatus MTransformationMatrix::setRotatePivot(const MPoint& pivot, MSpace::Space space, bool balance) {
    if (!isUsable(space)) {
        return MStatus::kInvalidParameter;
    }
    const MMatrix before = asMatrix();
    rotatePivot_ = isAfterTransformation(space) ? pivot * before.inverse() : pivot;
    if (balance) {
        rotatePivotTranslation_ += translationOf(before) - translationOf(asMatrix());
    }
    return MStatus::kSuccess;
}

MStatus MTransformationMatrix::setScalePivot(const MPoint& pivot, MSpace::Space space, bool balance) {
    if (!isUsable(space)) {
        return MStatus::kInvalidParameter;
    }
    const MMatrix before = asMatrix();
    scalePivot_ = isAfterTransformation(space) ? pivot * before.inverse() : pivot;
    if (balance) {
        // The scale pivot's translation comes before the rotation.
        const MVector moved = translationOf(before) - translationOf(asMatrix());
        scalePivotTranslation_ += moved * asRotateMatrix().inverse();
    }
    return MStatus::kSuccess;
}

MStatus MTransformationMatrix::setRotatePivotTranslation(const MVector& vector, MSpace::Space space) {
    return storeVector(rotatePivotTranslation_, vector, space);
}

MStatus MTransformationMatrix::setScalePivotTranslation(const MVector& vector, MSpace::Space space) {
    return storeVector(scalePivotTranslation_, vector, space);
}

bool MTransformationMatrix::isEquivalent(const MTransformationMatrix& other, double tolerance) const {
    return asMatrix().isEquivalent(other.asMatrix(), tolerance);
}

bool MTransformationMatrix::operator==(const MTransformationMatrix& other) const {
    return asMatrix() == other.asMatrix();
}
