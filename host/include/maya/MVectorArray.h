#pragma once

#include <maya/MVector.h>
#include <maya/detail/ValueArray.h>

/// An array of vectors, also to be filled from and copied to rows of 3 numbers.
class MVectorArray : public host::api::ValueArray<MVector> {
public:
    using ValueArray::ValueArray;
    MVectorArray(const double source[][3], unsigned int count) { host::api::appendRows(*this, source, count); }

    using ValueArray::append;
    MStatus append(double x, double y, double z) { return append(MVector(x, y, z)); }

    using ValueArray::get;
    MStatus get(double out[][3]) const {
        host::api::copyRows(*this, out);
        return MStatus::kSuccess;
    }
};
