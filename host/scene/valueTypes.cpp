#include "host/scene/valueTypes.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

constexpr ValueType kValueTypes[] = {
    {"double", ValueForm::kNumbers, 1, DataKind::kNone},
    {"double2", ValueForm::kNumbers, 2, DataKind::kNone},
    {"double3", ValueForm::kNumbers, 3, DataKind::kNone},
    {"double4", ValueForm::kNumbers, 4, DataKind::kNone},
    {"float", ValueForm::kNumbers, 1, DataKind::kNone},
    {"float2", ValueForm::kNumbers, 2, DataKind::kNone},
    {"float3", ValueForm::kNumbers, 3, DataKind::kNone},
    {"long", ValueForm::kNumbers, 1, DataKind::kNone},
    {"long2", ValueForm::kNumbers, 2, DataKind::kNone},
    {"long3", ValueForm::kNumbers, 3, DataKind::kNone},
    {"short", ValueForm::kNumbers, 1, DataKind::kNone},
    {"short2", ValueForm::kNumbers, 2, DataKind::kNone},
    {"short3", ValueForm::kNumbers, 3, DataKind::kNone},
    {"bool", ValueForm::kNumbers, 1, DataKind::kNone},
    {"reflectanceRGB", ValueForm::kNumbers, 3, DataKind::kNone},
    {"spectrumRGB", ValueForm::kNumbers, 3, DataKind::kNone},
    {"string", ValueForm::kString, 0, DataKind::kNone},
    {"matrix", ValueForm::kMatrix, 0, DataKind::kNone},
    {"stringArray", ValueForm::kStringArray, 0, DataKind::kStringArray},
    {"doubleArray", ValueForm::kDoubleArray, 0, DataKind::kDoubleArray},
    {"floatArray", ValueForm::kFloatArray, 0, DataKind::kFloatArray},
    {"Int32Array", ValueForm::kIntArray, 0, DataKind::kIntArray},
    {"pointArray", ValueForm::kPointArray, 0, DataKind::kPointArray},
    {"vectorArray", ValueForm::kVectorArray, 0, DataKind::kVectorArray},
    {"matrixArray", ValueForm::kMatrixArray, 0, DataKind::kMatrixArray},
    {"componentList", ValueForm::kComponentList, 0, DataKind::kComponentList},
    {"attributeAlias", ValueForm::kAttributeAlias, 0, DataKind::kAttributeAlias},
    {"polyFaces", ValueForm::kPolyFaces, 0, DataKind::kPolyFaces},
    {"polyFace", ValueForm::kUnused, 0, DataKind::kOther},
    {"mesh", ValueForm::kUnused, 0, DataKind::kMesh},
    {"nurbsCurve", ValueForm::kNurbsCurve, 0, DataKind::kNurbsCurve},
    {"nurbsTrimface", ValueForm::kUnused, 0, DataKind::kOther},
    {"nurbsSurface", ValueForm::kUnused, 0, DataKind::kNurbsSurface},
    {"lattice", ValueForm::kLattice, 0, DataKind::kLattice},
    {"subd", ValueForm::kUnused, 0, DataKind::kOther},
    {"dataPolyComponent", ValueForm::kUnused, 0, DataKind::kOther},
    {"dataReferenceEdits", ValueForm::kReferenceEdits, 0, DataKind::kOther},
    {"sceneEdits", ValueForm::kUnused, 0, DataKind::kOther},
    {"characterMapping", ValueForm::kCharacterMapping, 0, DataKind::kOther},
    {"sphere", ValueForm::kUnused, 0, DataKind::kOther},
    {"cone", ValueForm::kUnused, 0, DataKind::kOther},
    {"newParticles", ValueForm::kUnused, 0, DataKind::kOther},
    {"int64Array", ValueForm::kUnused, 0, DataKind::kOther},
    {"falloffFunction", ValueForm::kUnused, 0, DataKind::kOther},
};

} // namespace

const ValueType* findValueType(std::string_view name) {
    const auto* found = std::find_if(std::begin(kValueTypes), std::end(kValueTypes),
                                     [&](const ValueType& type) { return type.name == name; });
    return found == std::end(kValueTypes) ? nullptr : found;
}

const ValueType* valueTypeOf(DataKind kind) {
    const auto* found = std::find_if(std::begin(kValueTypes), std::end(kValueTypes), [&](const ValueType& type) {
        return kind != DataKind::kNone && kind != DataKind::kOther && type.dataKind == kind;
    });
    return found == std::end(kValueTypes) ? nullptr : found;
}

} // namespace host
