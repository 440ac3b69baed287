#include "host/api/objectTypes.h"

#include "host/api/componentKinds.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

struct KindType {
    AttrKind kind;
    MFn::Type type;
};

constexpr std::array<KindType, 16> kAttributeTypes = {{
    {AttrKind::kBool, MFn::kNumericAttribute},
    {AttrKind::kByte, MFn::kNumericAttribute},
    {AttrKind::kChar, MFn::kNumericAttribute},
    {AttrKind::kShort, MFn::kNumericAttribute},
    {AttrKind::kInt, MFn::kNumericAttribute},
    {AttrKind::kFloat, MFn::kNumericAttribute},
    {AttrKind::kDouble, MFn::kNumericAttribute},
    {AttrKind::kEnum, MFn::kEnumAttribute},
    {AttrKind::kDistance, MFn::kDoubleLinearAttribute},
    {AttrKind::kAngle, MFn::kDoubleAngleAttribute},
    {AttrKind::kTime, MFn::kTimeAttribute},
    {AttrKind::kString, MFn::kTypedAttribute},
    {AttrKind::kMatrix, MFn::kMatrixAttribute},
    {AttrKind::kMessage, MFn::kMessageAttribute},
    {AttrKind::kData, MFn::kTypedAttribute},
    {AttrKind::kGeneric, MFn::kGenericAttribute},
}};

/// Compounds of two to four numbers of one storage are types of their own.
struct TupleType {
    std::size_t count;
    AttrKind kind;
    MFn::Type type;
};

constexpr std::array<TupleType, 13> kTupleTypes = {{
    {2, AttrKind::kShort, MFn::kAttribute2Short},
    {2, AttrKind::kInt, MFn::kAttribute2Int},
    {2, AttrKind::kFloat, MFn::kAttribute2Float},
    {2, AttrKind::kDouble, MFn::kAttribute2Double},
    {3, AttrKind::kShort, MFn::kAttribute3Short},
    {3, AttrKind::kInt, MFn::kAttribute3Int},
    {3, AttrKind::kFloat, MFn::kAttribute3Float},
    {3, AttrKind::kDouble, MFn::kAttribute3Double},
    {3, AttrKind::kDistance, MFn::kAttribute3Double},
    {3, AttrKind::kAngle, MFn::kAttribute3Double},
    {2, AttrKind::kDistance, MFn::kAttribute2Double},
    {2, AttrKind::kAngle, MFn::kAttribute2Double},
    {4, AttrKind::kDouble, MFn::kAttribute4Double},
}};

struct NumericType {
    MFnNumericData::Type numeric;
    MFn::Type type;
};

constexpr std::array<NumericType, 9> kNumericTypes = {{
    {MFnNumericData::k2Short, MFn::kData2Short},
    {MFnNumericData::k3Short, MFn::kData3Short},
    {MFnNumericData::k2Int, MFn::kData2Int},
    {MFnNumericData::k3Int, MFn::kData3Int},
    {MFnNumericData::k2Float, MFn::kData2Float},
    {MFnNumericData::k3Float, MFn::kData3Float},
    {MFnNumericData::k2Double, MFn::kData2Double},
    {MFnNumericData::k3Double, MFn::kData3Double},
    {MFnNumericData::k4Double, MFn::kData4Double},
}};

struct DataType {
    DataKind kind;
    MFn::Type type;
    bool isGeometry;
};

constexpr std::array<DataType, 12> kDataTypes = {{
    {DataKind::kStringArray, MFn::kStringArrayData, false},
    {DataKind::kDoubleArray, MFn::kDoubleArrayData, false},
    {DataKind::kFloatArray, MFn::kFloatArrayData, false},
    {DataKind::kIntArray, MFn::kIntArrayData, false},
    {DataKind::kPointArray, MFn::kPointArrayData, false},
    {DataKind::kVectorArray, MFn::kVectorArrayData, false},
    {DataKind::kMatrixArray, MFn::kMatrixArrayData, false},
    {DataKind::kComponentList, MFn::kComponentListData, false},
    {DataKind::kMesh, MFn::kMeshData, true},
    {DataKind::kNurbsCurve, MFn::kNurbsCurveData, true},
    {DataKind::kNurbsSurface, MFn::kNurbsSurfaceData, true},
    {DataKind::kLattice, MFn::kLatticeData, true},
}};

const DataType* rowOf(const DataObject& data) {
    const DataPtr* pointer = std::get_if<DataPtr>(&data.value);
    const auto row = std::find_if(kDataTypes.begin(), kDataTypes.end(), [&](const DataType& one) {
        return pointer != nullptr && *pointer != nullptr && one.kind == (*pointer)->kind;
    });
    return row == kDataTypes.end() ? nullptr : &*row;
}

MFn::Type compoundType(const std::vector<AttrKind>& kinds) {
    const auto row = std::find_if(kTupleTypes.begin(), kTupleTypes.end(), [&](const TupleType& tuple) {
        return tuple.count == kinds.size() &&
               std::all_of(kinds.begin(), kinds.end(), [&](AttrKind kind) { return kind == tuple.kind; });
    });
    return row == kTupleTypes.end() ? MFn::kCompoundAttribute : row->type;
}

template <class Allowed>
bool isOneOf(MFn::Type type, const Allowed& allowed) {
    return std::find(allowed.begin(), allowed.end(), type) != allowed.end();
}

bool isTuple(MFn::Type type) {
    return std::any_of(kTupleTypes.begin(), kTupleTypes.end(), [&](const TupleType& row) { return row.type == type; });
}

} // namespace

MFn::Type typeOf(const Attribute& attribute, const Node* node, const NodeType* type) {
    if (attribute.kind == AttrKind::kCompound) {
        std::vector<AttrKind> kinds;
        for (const AttrIndex child : attribute.children) {
            kinds.push_back(node != nullptr ? node->attribute(child).kind
                                            : type->attributes()[static_cast<std::size_t>(child)].kind);
        }
        return compoundType(kinds);
    }
    const auto row = std::find_if(kAttributeTypes.begin(), kAttributeTypes.end(),
                                  [&](const KindType& one) { return one.kind == attribute.kind; });
    return row == kAttributeTypes.end() ? MFn::kAttribute : row->type;
}

MFn::Type typeOf(MFnNumericData::Type type) {
    const auto row = std::find_if(kNumericTypes.begin(), kNumericTypes.end(),
                                  [&](const NumericType& one) { return one.numeric == type; });
    return row == kNumericTypes.end() ? MFn::kNumericData : row->type;
}

MFn::Type typeOf(const DataObject& data) {
    if (const NumericValue* numeric = std::get_if<NumericValue>(&data.value)) {
        return typeOf(numeric->type);
    }
    if (std::holds_alternative<Matrix44>(data.value)) {
        return MFn::kMatrixData;
    }
    if (std::holds_alternative<std::string>(data.value)) {
        return MFn::kStringData;
    }
    const DataType* row = rowOf(data);
    return row != nullptr ? row->type : MFn::kData;
}

bool nodeHasFn(const Node& node, MFn::Type wanted) {
    if (isOneOf(wanted, std::array{MFn::kBase, MFn::kNamedObject, MFn::kDependencyNode})) {
        return true;
    }
    for (const NodeType* type = &node.type(); type != nullptr; type = type->parent()) {
        const std::vector<int>& families = type->families;
        if (type->apiType() == wanted || std::find(families.begin(), families.end(), wanted) != families.end()) {
            return wanted != MFn::kInvalid;
        }
    }
    return wanted == MFn::kDagNode && node.isDag();
}

bool attributeHasFn(MFn::Type own, MFn::Type wanted) {
    static constexpr std::array kUnits = {MFn::kDoubleLinearAttribute, MFn::kDoubleAngleAttribute, MFn::kTimeAttribute};
    const bool isFamily = (wanted == MFn::kUnitAttribute && isOneOf(own, kUnits)) ||
                          (wanted == MFn::kCompoundAttribute && isTuple(own)) ||
                          (wanted == MFn::kNumericAttribute && isTuple(own));
    return wanted == own || isFamily || isOneOf(wanted, std::array{MFn::kBase, MFn::kNamedObject, MFn::kAttribute});
}

bool dataHasFn(const DataObject& data, MFn::Type wanted) {
    if (isOneOf(wanted, std::array{MFn::kBase, MFn::kData}) || wanted == typeOf(data)) {
        return true;
    }
    const DataType* row = rowOf(data);
    return (wanted == MFn::kNumericData && std::holds_alternative<NumericValue>(data.value)) ||
           (wanted == MFn::kGeometryData && row != nullptr && row->isGeometry);
}

bool componentHasFn(MFn::Type own, MFn::Type wanted) {
    return wanted == own || isOneOf(wanted, std::array{MFn::kBase, MFn::kComponent}) ||
           (wanted == MFn::kSingleIndexedComponent && isSingleIndexed(own));
}

} // namespace host
