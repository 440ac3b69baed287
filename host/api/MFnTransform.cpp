#include <maya/MFnTransform.h>

#include "host/api/ApiAccess.h"
#include "host/api/statusResult.h"
#include "host/api/transformValues.h"

using host::ApiAccess;
using host::fail;
using host::Node;
using host::report;
using host::succeed;

MFnTransform::MFnTransform() = default;
MFnTransform::~MFnTransform() = default;

MFnTransform::MFnTransform(const MObject& object, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnTransform::setObject(object));
}

MFnTransform::MFnTransform(const MDagPath& path, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnTransform::setObject(path));
}

namespace {

bool isLocalSpace(MSpace::Space space) {
    return space == MSpace::kTransform || space == MSpace::kObject;
}

/// The numbers of MTransformationMatrix are one more than those of the attribute.
MTransformationMatrix::RotationOrder matrixOrder(MEulerRotation::RotationOrder order) {
    return static_cast<MTransformationMatrix::RotationOrder>(order + 1);
}

MStatus copyVector(const MObject& object, const char* compound, double out[3]) {
    Node* node = ApiAccess::node(object);
    const std::optional<MVector> value = node != nullptr ? host::readVector(*node, compound) : std::nullopt;
    if (!value) {
        return MStatus::kFailure;
    }
    for (unsigned int i = 0; i < 3; ++i) {
        out[i] = (*value)[i];
    }
    return MStatus::kSuccess;
}

MVector localVector(const MObject& object, const char* compound, MSpace::Space space, MStatus* status) {
    if (!isLocalSpace(space)) {
        return fail<MVector>(status, MStatus::kInvalidParameter);
    }
    double value[3];
    return copyVector(object, compound, value) == MStatus::kSuccess ? succeed(status, MVector(value))
                                                                    : fail<MVector>(status, MStatus::kFailure);
}

MStatus writeVector(const MObject& object, const char* compound, const MVector& value) {
    Node* node = ApiAccess::node(object);
    return node != nullptr && host::writeVector(*node, compound, value) ? MStatus::kSuccess : MStatus::kFailure;
}

/// The path on which world space is meant: the attached one, or the only one.
MStatus pathForWorld(const MFnTransform& transform, MDagPath& path) {
    MStatus status;
    path = transform.dagPath(&status);
    if (status == MStatus::kSuccess) {
        return status;
    }
    const bool isAmbiguous = transform.instanceCount(true) != 1;
    return isAmbiguous ? MStatus(MStatus::kFailure) : transform.getPath(path);
}

MPoint pivot(const MFnTransform& transform, const char* compound, MSpace::Space space, MStatus* status) {
    if (space != MSpace::kWorld) {
        return MPoint(localVector(transform.object(), compound, space, status));
    }
    MDagPath path;
    MStatus result = pathForWorld(transform, path);
    if (result != MStatus::kSuccess) {
        return fail<MPoint>(status, MStatus::kFailure);
    }
    const MPoint local(localVector(transform.object(), compound, MSpace::kTransform, status));
    return local * path.inclusiveMatrix();
}

} // namespace

MFn::Type MFnTransform::type() const {
    return MFn::kTransform;
}

MTransformationMatrix MFnTransform::transformation(MStatus* ReturnStatus) const {
    MTransformationMatrix matrix;
    double scale[3], shear[3];
    MEulerRotation rotation;
    if (getScale(scale) != MStatus::kSuccess || getShear(shear) != MStatus::kSuccess ||
        getRotation(rotation) != MStatus::kSuccess) {
        return fail<MTransformationMatrix>(ReturnStatus, MStatus::kFailure);
    }
    constexpr MSpace::Space kSpace = MSpace::kTransform;
    const double angles[3] = {rotation.x, rotation.y, rotation.z};
    matrix.setScale(scale, kSpace);
    matrix.setShear(shear, kSpace);
    matrix.setRotation(angles, rotationOrder());
    matrix.setRotationOrientation(rotateOrientation(kSpace));
    matrix.setScalePivot(scalePivot(kSpace), kSpace, false);
    matrix.setScalePivotTranslation(scalePivotTranslation(kSpace), kSpace);
    matrix.setRotatePivot(rotatePivot(kSpace), kSpace, false);
    matrix.setRotatePivotTranslation(rotatePivotTranslation(kSpace), kSpace);
    matrix.setTranslation(getTranslation(kSpace), kSpace);
    return succeed(ReturnStatus, matrix);
}

MVector MFnTransform::getTranslation(MSpace::Space space, MStatus* ReturnStatus) const {
    if (space != MSpace::kWorld) {
        return localVector(object_, "translate", space, ReturnStatus);
    }
    MDagPath path;
    const MStatus status = pathForWorld(*this, path);
    if (status != MStatus::kSuccess) {
        return fail<MVector>(ReturnStatus, MStatus::kFailure);
    }
    const MPoint local(localVector(object_, "translate", MSpace::kTransform, ReturnStatus));
    return MVector(local * path.exclusiveMatrix());
}

MVector MFnTransform::translation(MSpace::Space space, MStatus* ReturnStatus) const {
    return getTranslation(space, ReturnStatus);
}

MStatus MFnTransform::setTranslation(const MVector& translation, MSpace::Space space) {
    if (space != MSpace::kWorld) {
        return isLocalSpace(space) ? writeVector(object_, "translate", translation)
                                   : MStatus(MStatus::kInvalidParameter);
    }
    MDagPath path;
    const MStatus status = pathForWorld(*this, path);
    return status == MStatus::kSuccess
               ? writeVector(object_, "translate", MVector(MPoint(translation) * path.exclusiveMatrixInverse()))
               : status;
}

MStatus MFnTransform::getRotation(MEulerRotation& rotation) const {
    double angles[3];
    const MStatus status = copyVector(object_, "rotate", angles);
    if (status == MStatus::kSuccess) {
        rotation = MEulerRotation(angles, host::readRotateOrder(*ApiAccess::node(object_)));
    }
    return status;
}

MStatus MFnTransform::getRotation(double rotation[3], MTransformationMatrix::RotationOrder& order) const {
    const MStatus status = copyVector(object_, "rotate", rotation);
    if (status == MStatus::kSuccess) {
        order = rotationOrder();
    }
    return status;
}

MStatus MFnTransform::getRotation(MQuaternion& rotation, MSpace::Space space) const {
    if (space == MSpace::kWorld) {
        MDagPath path;
        const MStatus status = pathForWorld(*this, path);
        if (status == MStatus::kSuccess) {
            rotation = MTransformationMatrix(path.inclusiveMatrix()).rotation();
        }
        return status;
    }
    MEulerRotation angles;
    const MStatus status = isLocalSpace(space) ? getRotation(angles) : MStatus(MStatus::kInvalidParameter);
    if (status == MStatus::kSuccess) {
        rotation = angles.asQuaternion();
    }
    return status;
}

MStatus MFnTransform::setRotation(const MEulerRotation& rotation) {
    Node* node = ApiAccess::node(object_);
    if (node == nullptr) {
        return MStatus::kFailure;
    }
    return writeVector(object_, "rotate", rotation.reorder(host::readRotateOrder(*node)).asVector());
}

MTransformationMatrix::RotationOrder MFnTransform::rotationOrder(MStatus* ReturnStatus) const {
    Node* node = ApiAccess::node(object_);
    return node == nullptr ? fail(ReturnStatus, MStatus::kFailure, MTransformationMatrix::kInvalid)
                           : succeed(ReturnStatus, matrixOrder(host::readRotateOrder(*node)));
}

MQuaternion MFnTransform::rotateOrientation(MSpace::Space space, MStatus* ReturnStatus) const {
    return MEulerRotation(localVector(object_, "rotateAxis", space, ReturnStatus)).asQuaternion();
}

MStatus MFnTransform::getScale(double scale[3]) const {
    return copyVector(object_, "scale", scale);
}

MStatus MFnTransform::setScale(const double scale[3]) {
    return writeVector(object_, "scale", MVector(scale));
}

MStatus MFnTransform::getShear(double shear[3]) const {
    return copyVector(object_, "shear", shear);
}

MStatus MFnTransform::setShear(const double shear[3]) {
    return writeVector(object_, "shear", MVector(shear));
}

MPoint MFnTransform::rotatePivot(MSpace::Space space, MStatus* ReturnStatus) const {
    return pivot(*this, "rotatePivot", space, ReturnStatus);
}

MVector MFnTransform::rotatePivotTranslation(MSpace::Space space, MStatus* ReturnStatus) const {
    return localVector(object_, "rotatePivotTranslate", space, ReturnStatus);
}

MPoint MFnTransform::scalePivot(MSpace::Space space, MStatus* ReturnStatus) const {
    return pivot(*this, "scalePivot", space, ReturnStatus);
}

MVector MFnTransform::scalePivotTranslation(MSpace::Space space, MStatus* ReturnStatus) const {
    return localVector(object_, "scalePivotTranslate", space, ReturnStatus);
}
