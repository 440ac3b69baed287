#pragma once

#include <maya/detail/ValueArray.h>

/// An array of integers.
class MIntArray : public host::api::ValueArray<int> {
public:
    using ValueArray::ValueArray;
};
