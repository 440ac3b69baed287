#pragma once

#include <maya/MDagPath.h>
#include <maya/detail/ValueArray.h>

/// An array of DAG paths.
class MDagPathArray : public host::api::ValueArray<MDagPath> {
public:
    using ValueArray::ValueArray;
};
