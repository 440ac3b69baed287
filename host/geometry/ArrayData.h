#pragma once

#include "host/graph/Data.h"
#include "host/graph/Value.h"

#include <Imath/ImathVec.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// A value that is a list of like things. The list is as long as the file gave it; it has no logical indices.
template <typename T, DataKind K>
struct ArrayData final : Data {
    static constexpr DataKind kKind = K;

    ArrayData() : Data(K) {}
    explicit ArrayData(std::vector<T> items) : Data(K), values(std::move(items)) {}

    std::vector<T> values;
};

using StringArrayData = ArrayData<std::string, DataKind::kStringArray>;
using DoubleArrayData = ArrayData<double, DataKind::kDoubleArray>;
using FloatArrayData = ArrayData<float, DataKind::kFloatArray>;
using IntArrayData = ArrayData<std::int32_t, DataKind::kIntArray>;
using PointArrayData = ArrayData<Imath::V4d, DataKind::kPointArray>; // centimetres; w as stored, usually 1
using VectorArrayData = ArrayData<Imath::V3d, DataKind::kVectorArray>;
using MatrixArrayData = ArrayData<Matrix44, DataKind::kMatrixArray>;

/// One alias of a node: the name and the attribute path (without the node) that it stands for.
struct AttributeAlias {
    std::string alias;
    std::string path;
};
using AttributeAliasData = ArrayData<AttributeAlias, DataKind::kAttributeAlias>;

/// The data as the class that its kind promises; null when there is none or it is of another kind.
template <typename ArrayType>
const ArrayType* arrayDataOf(const DataPtr& data) {
    return data && data->kind == ArrayType::kKind ? static_cast<const ArrayType*>(data.get()) : nullptr;
}

} // namespace host
