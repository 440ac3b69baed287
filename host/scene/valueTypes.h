#pragma once

#include "host/graph/Attribute.h"

#include <cstdint>
#include <string_view>

namespace host {

/// How the values behind a `setAttr -type` word are written.
enum class ValueForm : std::uint8_t {
    kNumbers, // `count` numbers or booleans
    kString,
    kMatrix, // 16 numbers, or "xform" and a transform in parts
    kStringArray,
    kDoubleArray,
    kFloatArray,
    kIntArray,
    kPointArray,
    kVectorArray,
    kMatrixArray,
    kComponentList,
    kAttributeAlias,
    kPolyFaces,
    kReferenceEdits,
    kCharacterMapping,
    kLattice,
    kNurbsCurve,
    kUnused, // known, but nothing that evaluates needs it
};

struct ValueType {
    std::string_view name;
    ValueForm form;
    int count; // of kNumbers, else 0
    DataKind dataKind;
};

/// By the word of the file; null when no file has it.
const ValueType* findValueType(std::string_view name);
/// The type that values of a data kind have when a later chunk of an array does not name it; null when there is none.
const ValueType* valueTypeOf(DataKind kind);

} // namespace host
