#include <maya/MFnIkJoint.h>

#include "host/api/ApiAccess.h"
#include "host/api/statusResult.h"
#include "host/api/transformValues.h"

using host::ApiAccess;
using host::report;

MFnIkJoint::MFnIkJoint() = default;
MFnIkJoint::~MFnIkJoint() = default;

MFnIkJoint::MFnIkJoint(const MObject& object, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnIkJoint::setObject(object));
}

MFnIkJoint::MFnIkJoint(const MDagPath& path, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnIkJoint::setObject(path));
}

namespace {

MStatus read(const MObject& joint, const char* compound, double value[3]) {
    host::Node* node = ApiAccess::node(joint);
    const std::optional<MVector> vector = node != nullptr ? host::readVector(*node, compound) : std::nullopt;
    if (!vector) {
        return MStatus::kFailure;
    }
    for (unsigned int i = 0; i < 3; ++i) {
        value[i] = (*vector)[i];
    }
    return MStatus::kSuccess;
}

/// Joint orient and rotate axis apply in the order xyz whatever the rotate order is.
MStatus readRotation(const MObject& joint, const char* compound, MEulerRotation& rotation) {
    double angles[3];
    const MStatus status = read(joint, compound, angles);
    if (status == MStatus::kSuccess) {
        rotation = MEulerRotation(angles, MEulerRotation::kXYZ);
    }
    return status;
}

MStatus readRotation(const MObject& joint, const char* compound, MQuaternion& rotation) {
    MEulerRotation angles;
    const MStatus status = readRotation(joint, compound, angles);
    if (status == MStatus::kSuccess) {
        rotation = angles.asQuaternion();
    }
    return status;
}

MStatus readRotation(const MObject& joint, const char* compound, double rotation[3],
                     MTransformationMatrix::RotationOrder& order) {
    const MStatus status = read(joint, compound, rotation);
    if (status == MStatus::kSuccess) {
        order = MTransformationMatrix::kXYZ;
    }
    return status;
}

} // namespace

MFn::Type MFnIkJoint::type() const {
    return MFn::kJoint;
}

MStatus MFnIkJoint::getOrientation(MEulerRotation& rotation) const {
    return readRotation(object_, "jointOrient", rotation);
}

MStatus MFnIkJoint::getOrientation(double rotation[3], MTransformationMatrix::RotationOrder& order) const {
    return readRotation(object_, "jointOrient", rotation, order);
}

MStatus MFnIkJoint::getOrientation(MQuaternion& rotation) const {
    return readRotation(object_, "jointOrient", rotation);
}

MStatus MFnIkJoint::getScaleOrientation(MEulerRotation& rotation) const {
    return readRotation(object_, "rotateAxis", rotation);
}

MStatus MFnIkJoint::getScaleOrientation(double rotation[3], MTransformationMatrix::RotationOrder& order) const {
    return readRotation(object_, "rotateAxis", rotation, order);
}

MStatus MFnIkJoint::getScaleOrientation(MQuaternion& rotation) const {
    return readRotation(object_, "rotateAxis", rotation);
}

MStatus MFnIkJoint::getSegmentScale(double scale[3]) const {
    return read(object_, "scale", scale);
}

MStatus MFnIkJoint::getPreferedAngle(double rotation[3]) const {
    return read(object_, "preferredAngle", rotation);
}

MStatus MFnIkJoint::getPreferredAngle(double rotation[3]) const {
    return getPreferedAngle(rotation);
}
