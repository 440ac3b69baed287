#pragma once

#include <maya/MEulerRotation.h>
#include <maya/MFnDagNode.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MSpace.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

/// The parts of a transform. kTransform, kPreTransform and kObject give the attributes as they stand; kWorld needs a
/// DAG path, or a node with one path only. Other spaces fail with kInvalidParameter.
class MFnTransform : public MFnDagNode {
public:
    MFnTransform();
    explicit MFnTransform(const MObject& object, MStatus* ReturnStatus = nullptr);
    explicit MFnTransform(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    ~MFnTransform() override;

    MFn::Type type() const override;

    /// All pieces but joint orient and inverse scale, which joints add.
    MTransformationMatrix transformation(MStatus* ReturnStatus = nullptr) const;

    MVector translation(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
    MVector getTranslation(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
    MStatus setTranslation(const MVector& translation, MSpace::Space space);

    /// The `rotate` attribute, with the node's order; no rotate axis, no joint orient.
    MStatus getRotation(MEulerRotation& rotation) const;
    MStatus getRotation(double rotation[3], MTransformationMatrix::RotationOrder& order) const;
    MStatus getRotation(MQuaternion& rotation, MSpace::Space space = MSpace::kTransform) const;
    /// Sets `rotate`; another order than the node's is converted.
    MStatus setRotation(const MEulerRotation& rotation);
    MTransformationMatrix::RotationOrder rotationOrder(MStatus* ReturnStatus = nullptr) const;
    /// The rotate axis.
    MQuaternion rotateOrientation(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;

    MStatus getScale(double scale[3]) const;
    MStatus setScale(const double scale[3]);
    /// xy, xz, yz.
    MStatus getShear(double shear[3]) const;
    MStatus setShear(const double shear[3]);

    MPoint rotatePivot(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
    MVector rotatePivotTranslation(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
    MPoint scalePivot(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
    MVector scalePivotTranslation(MSpace::Space space, MStatus* ReturnStatus = nullptr) const;
};
