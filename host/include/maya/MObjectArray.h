#pragma once

#include <maya/MObject.h>
#include <maya/detail/ValueArray.h>

/// An array of objects of any kind.
class MObjectArray : public host::api::ValueArray<MObject> {
public:
    using ValueArray::ValueArray;
};
