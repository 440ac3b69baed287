#pragma once

#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include <memory>

namespace host {
class ApiAccess;
namespace mel {
class Value;
}
} // namespace host

/// The result of a MEL command with its type. Each getResult fails unless the type fits; a single number or string fits
/// an array, and an integer a double.
class MCommandResult {
public:
    enum Type {
        kInvalid = 0,
        kInt,
        kIntArray,
        kDouble,
        kDoubleArray,
        kString,
        kStringArray,
        kVector,
        kVectorArray,
        kMatrix,
        kMatrixArray,
        kInt64,
        kInt64Array,
    };

    explicit MCommandResult(MStatus* ReturnStatus = nullptr);
    MCommandResult(const MCommandResult& other);
    ~MCommandResult();
    MCommandResult& operator=(const MCommandResult& other);

    /// kInvalid for a command without a result.
    Type resultType(MStatus* ReturnStatus = nullptr) const;
    MString stringResult(MStatus* ReturnStatus = nullptr) const;

    MStatus getResult(int& result) const;
    MStatus getResult(MIntArray& result) const;
    MStatus getResult(double& result) const;
    MStatus getResult(MDoubleArray& result) const;
    MStatus getResult(MString& result) const;
    MStatus getResult(MStringArray& result) const;
    MStatus getResult(MVector& result) const;
    MStatus getResult(MVectorArray& result) const;
    MStatus getResult(MMatrix& result) const;

private:
    friend class host::ApiAccess;
    std::unique_ptr<host::mel::Value> value_;
};
