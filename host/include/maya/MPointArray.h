#pragma once

#include <maya/MPoint.h>
#include <maya/detail/ValueArray.h>

/// An array of points, also to be filled from and copied to rows of 4 numbers.
class MPointArray : public host::api::ValueArray<MPoint> {
public:
    using ValueArray::ValueArray;
    MPointArray(const double source[][4], unsigned int count) { host::api::appendRows(*this, source, count); }

    using ValueArray::append;
    MStatus append(double x, double y, double z, double w = 1.0) { return append(MPoint(x, y, z, w)); }

    using ValueArray::get;
    MStatus get(double out[][4]) const {
        host::api::copyRows(*this, out);
        return MStatus::kSuccess;
    }
};
