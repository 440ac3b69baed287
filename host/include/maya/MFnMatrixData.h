#pragma once

#include <maya/MFnData.h>
#include <maya/MMatrix.h>
#include <maya/MTransformationMatrix.h>

/// A 4 by 4 matrix as data.
class MFnMatrixData : public MFnData {
public:
    MFnMatrixData();
    explicit MFnMatrixData(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnMatrixData() override;

    MFn::Type type() const override;

    /// Valid until this function set is attached to another object; the identity when nothing is attached.
    const MMatrix& matrix(MStatus* ReturnStatus = nullptr) const;
    /// False: the host keeps matrices as products only.
    bool isTransformation(MStatus* ReturnStatus = nullptr) const;
    MTransformationMatrix transformation(MStatus* ReturnStatus = nullptr) const;
    MStatus set(const MMatrix& matrix);

    MObject create(MStatus* ReturnStatus = nullptr);
    MObject create(const MMatrix& matrix, MStatus* ReturnStatus = nullptr);

private:
    mutable MMatrix matrix_;
};
