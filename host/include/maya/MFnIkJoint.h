#pragma once

#include <maya/MFnTransform.h>

/// What joints have beside a transform's parts.
class MFnIkJoint : public MFnTransform {
public:
    MFnIkJoint();
    explicit MFnIkJoint(const MObject& object, MStatus* ReturnStatus = nullptr);
    explicit MFnIkJoint(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    ~MFnIkJoint() override;

    MFn::Type type() const override;

    /// The joint orient.
    MStatus getOrientation(MEulerRotation& rotation) const;
    MStatus getOrientation(double rotation[3], MTransformationMatrix::RotationOrder& order) const;
    MStatus getOrientation(MQuaternion& rotation) const;
    /// The rotate axis.
    MStatus getScaleOrientation(MEulerRotation& rotation) const;
    MStatus getScaleOrientation(double rotation[3], MTransformationMatrix::RotationOrder& order) const;
    MStatus getScaleOrientation(MQuaternion& rotation) const;
    /// The scale.
    MStatus getSegmentScale(double scale[3]) const;
    MStatus getPreferedAngle(double rotation[3]) const;
    MStatus getPreferredAngle(double rotation[3]) const;
};
