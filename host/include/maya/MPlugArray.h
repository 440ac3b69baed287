#pragma once

#include <maya/MPlug.h>
#include <maya/detail/ValueArray.h>

/// An array of plugs.
class MPlugArray : public host::api::ValueArray<MPlug> {
public:
    using ValueArray::ValueArray;
};
