#pragma once

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>
#include <maya/detail/RotationOrders.h>

constexpr double MTransformationMatrix_kTol = 1.0e-10;

/// A transformation kept in the pieces that a transform node has; see asMatrix for how they multiply.
///
/// Spaces: kTransform and kObject (kPreTransform) mean the piece as it is stored. For translation and the two pivots,
/// kPostTransform and kWorld mean the place after the whole transformation: row 3 of asMatrix, and the pivot mapped by
/// it. All other pieces are the same in these four. Any other space is refused with kInvalidParameter; a refused getter
/// leaves what it was to fill, or returns zero.
class MTransformationMatrix : public host::api::RotationOrders {
public:
    MTransformationMatrix() = default;
    /// Scale, shear, rotation in order xyz, and row 3 as translation; no pivots. A mirroring matrix gets three negative
    /// scales. An axis whose scale is zero (or not finite) gets the scale 0, no shear, and a direction that completes a
    /// rotation, so the angles are always numbers.
    MTransformationMatrix(const MMatrix& matrix);
    MTransformationMatrix& operator=(const MMatrix& matrix);

    /// sp^-1 · scale · shear · sp · spt · rp^-1 · rotate orientation · rotation · rp · rpt · translation, with the
    /// pivots sp and rp and their translations spt and rpt.
    MMatrix asMatrix() const;
    /// The part from no transformation at 0 to the whole at 1: pieces in proportion, rotations along their arcs.
    MMatrix asMatrix(double percent) const;
    MMatrix asMatrixInverse() const;
    MMatrix asScaleMatrix() const;  // scale alone
    MMatrix asRotateMatrix() const; // rotate orientation · rotation

    MVector getTranslation(MSpace::Space space, MStatus* returnStatus = nullptr) const;
    MVector translation(MSpace::Space space, MStatus* returnStatus = nullptr) const; // the older name
    MStatus setTranslation(const MVector& vector, MSpace::Space space);
    MStatus addTranslation(const MVector& vector, MSpace::Space space);

    MStatus getScale(double scale[3], MSpace::Space space) const;
    MStatus setScale(const double scale[3], MSpace::Space space);
    MStatus addScale(const double factors[3], MSpace::Space space); // multiplies
    MStatus getShear(double shear[3], MSpace::Space space) const;   // xy, xz, yz
    MStatus setShear(const double shear[3], MSpace::Space space);
    MStatus addShear(const double shear[3], MSpace::Space space);

    /// Radians; `order` tells the order in which they apply. Rotate orientation is not part of these.
    MStatus getRotation(double rotation[3], RotationOrder& order) const;
    MStatus getRotation(double rotation[3], RotationOrder& order, MSpace::Space space) const;
    MStatus getRotationQuaternion(double& x, double& y, double& z, double& w,
                                  MSpace::Space space = MSpace::kTransform) const;
    MQuaternion rotation() const;
    MEulerRotation eulerRotation() const;
    RotationOrder rotationOrder() const;
    MStatus setRotation(const double rotation[3], RotationOrder order); // replaces the order, too
    MStatus setRotation(const double rotation[3], RotationOrder order, MSpace::Space space);
    /// Keeps the order.
    MStatus setRotationQuaternion(double x, double y, double z, double w, MSpace::Space space = MSpace::kTransform);
    MTransformationMatrix& rotateTo(const MQuaternion& rotation);
    MTransformationMatrix& rotateTo(const MEulerRotation& rotation);
    /// After the rotation there is in kTransform, kPostTransform and kWorld, before it in kObject.
    MTransformationMatrix& rotateBy(const MQuaternion& rotation, MSpace::Space space, MStatus* returnStatus = nullptr);
    MTransformationMatrix& rotateBy(const MEulerRotation& rotation, MSpace::Space space,
                                    MStatus* returnStatus = nullptr);
    MStatus addRotation(const double rotation[3], RotationOrder order, MSpace::Space space);
    MStatus addRotationQuaternion(double x, double y, double z, double w, MSpace::Space space);
    /// The same rotation in another order, with the nearest angles.
    MStatus reorderRotation(RotationOrder order);

    MQuaternion rotationOrientation() const;
    MTransformationMatrix& setRotationOrientation(const MQuaternion& orientation);

    MPoint rotatePivot(MSpace::Space space, MStatus* returnStatus = nullptr) const;
    MPoint scalePivot(MSpace::Space space, MStatus* returnStatus = nullptr) const;
    MVector rotatePivotTranslation(MSpace::Space space, MStatus* returnStatus = nullptr) const;
    MVector scalePivotTranslation(MSpace::Space space, MStatus* returnStatus = nullptr) const;
    /// With `balance`, the pivot's translation is set so that asMatrix stays as it is.
    MStatus setRotatePivot(const MPoint& pivot, MSpace::Space space, bool balance);
    MStatus setScalePivot(const MPoint& pivot, MSpace::Space space, bool balance);
    MStatus setRotatePivotTranslation(const MVector& vector, MSpace::Space space);
    MStatus setScalePivotTranslation(const MVector& vector, MSpace::Space space);

    /// Compares asMatrix.
    bool isEquivalent(const MTransformationMatrix& other, double tolerance = MTransformationMatrix_kTol) const;
    bool operator==(const MTransformationMatrix& other) const;
    bool operator!=(const MTransformationMatrix& other) const { return !(*this == other); }

    static const MTransformationMatrix identity;

private:
    MVector scale_{1.0, 1.0, 1.0}, shear_;
    MEulerRotation rotation_;
    MQuaternion orientation_;
    MPoint scalePivot_, rotatePivot_;
    MVector scalePivotTranslation_, rotatePivotTranslation_, translation_;
};
