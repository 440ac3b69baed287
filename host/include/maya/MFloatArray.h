#pragma once

#include <maya/detail/ValueArray.h>

/// An array of floats.
class MFloatArray : public host::api::ValueArray<float> {
public:
    using ValueArray::ValueArray;
};
