#pragma once

#include <maya/MTime.h>
#include <maya/detail/ValueArray.h>

/// An array of times.
class MTimeArray : public host::api::ValueArray<MTime> {
public:
    using ValueArray::ValueArray;
};
