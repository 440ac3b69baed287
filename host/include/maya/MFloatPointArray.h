#pragma once

#include <maya/MFloatPoint.h>
#include <maya/detail/ValueArray.h>

/// An array of points in single precision, also to be filled from and copied to rows of 4 numbers.
class MFloatPointArray : public host::api::ValueArray<MFloatPoint> {
public:
    using ValueArray::ValueArray;
    MFloatPointArray(const float source[][4], unsigned int count) { host::api::appendRows(*this, source, count); }

    using ValueArray::append;
    MStatus append(float x, float y, float z, float w = 1.0f) { return append(MFloatPoint(x, y, z, w)); }

    using ValueArray::get;
    MStatus get(float out[][4]) const {
        host::api::copyRows(*this, out);
        return MStatus::kSuccess;
    }
};
