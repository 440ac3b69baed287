#pragma once

#include <maya/MMatrix.h>
#include <maya/detail/ValueArray.h>

/// An array of matrices.
class MMatrixArray : public host::api::ValueArray<MMatrix> {
public:
    using ValueArray::ValueArray;
};
