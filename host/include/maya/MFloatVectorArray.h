#pragma once

#include <maya/MFloatVector.h>
#include <maya/detail/ValueArray.h>

/// An array of vectors in single precision, also to be filled from and copied to rows of 3 numbers.
class MFloatVectorArray : public host::api::ValueArray<MFloatVector> {
public:
    using ValueArray::ValueArray;
    MFloatVectorArray(const float source[][3], unsigned int count) { host::api::appendRows(*this, source, count); }

    using ValueArray::append;
    MStatus append(float x, float y, float z) { return append(MFloatVector(x, y, z)); }

    using ValueArray::get;
    MStatus get(float out[][3]) const {
        host::api::copyRows(*this, out);
        return MStatus::kSuccess;
    }
};
