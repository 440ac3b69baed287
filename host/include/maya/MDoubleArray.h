#pragma once

#include <maya/detail/ValueArray.h>

/// An array of doubles.
class MDoubleArray : public host::api::ValueArray<double> {
public:
    using ValueArray::ValueArray;
};
