#pragma once

#include <maya/MColor.h>
#include <maya/detail/ValueArray.h>

/// An array of colours, also to be filled from and copied to rows of 4 numbers.
class MColorArray : public host::api::ValueArray<MColor> {
public:
    using ValueArray::ValueArray;
    MColorArray(const float source[][4], unsigned int count) { host::api::appendRows(*this, source, count); }

    using ValueArray::append;
    MStatus append(float r, float g, float b, float a = 1.0f) { return append(MColor(r, g, b, a)); }

    using ValueArray::get;
    MStatus get(float out[][4]) const {
        host::api::copyRows(*this, out);
        return MStatus::kSuccess;
    }
};
