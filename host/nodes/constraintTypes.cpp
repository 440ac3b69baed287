#include "host/nodes/apiTypes.h"
#include "host/nodes/constraintCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kConstraint[] = {
    {"enableRestPosition", "erp", "bool", {}, 1},
    {"lockOutput", "lo", "bool"},
    {"hideConstraint", "hcn", "bool"},
};

constexpr AttributeRow kPoint[] = {
    {"target", "tg", "compound", {}, 0, kArray},
    {".targetTranslate", "tt", "distance3", "XYZ"},
    {".targetRotatePivot", "trp", "distance3", "XYZ"},
    {".targetRotateTranslate", "trt", "distance3", "XYZ"},
    {".targetParentMatrix", "tpm", "matrix"},
    {".targetWeight", "tw", "double", {}, 1},
    {"constraintParentInverseMatrix", "cpim", "matrix"},
    {"constraintRotatePivot", "crp", "distance3", "XYZ"},
    {"constraintRotateTranslate", "crt", "distance3", "XYZ"},
    {"offset", "o", "distance3", "XYZ", 0, kKeyable},
    {"restTranslate", "rst", "distance3", "restTranslateX rtx restTranslateY rty restTranslateZ rtz", 0, kKeyable},
    {"offsetPolarity", "op", "double", {}, 1},
    {"constraintOffsetPolarity", "cop", "double", {}, 1},
    {"constraintTranslate", "ct", "distance3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kOrient[] = {
    {"target", "tg", "compound", {}, 0, kArray},
    {".targetRotate", "tr", "angle3", "XYZ"},
    {".targetRotateOrder", "tro", "enum"},
    {".targetRotateCached", "trc", "angle3", "XYZ"},
    {".targetJointOrient", "tjo", "angle3", "XYZ"},
    {".targetParentMatrix", "tpm", "matrix"},
    {".targetWeight", "tw", "double", {}, 1},
    {"constraintRotateOrder", "cro", "enum"},
    {"constraintJointOrient", "cjo", "angle3", "XYZ"},
    {"constraintParentInverseMatrix", "cpim", "matrix"},
    {"offset", "o", "angle3", "XYZ", 0, kKeyable},
    {"interpType", "int", "enum", {}, 1, 0, "No Flip:Average:Shortest:Longest:Cache"},
    {"interpCache", "ica", "enum"},
    {"restRotate", "rsrr", "angle3", "restRotateX rrx restRotateY rry restRotateZ rrz", 0, kKeyable},
    {"lastTargetRotate", "lr", "angle3", "lastTargetRotateX lrx lastTargetRotateY lry lastTargetRotateZ lrz"},
    {"scaleCompensate", "sc", "bool"},
    {"inverseScale", "is", "double3", "XYZ", 1},
    {"useOldOffsetCalculation", "uooc", "bool"},
    {"useDecompositionTarget", "dct", "bool"},
    {"constraintRotate", "cr", "angle3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kParent[] = {
    {"target", "tg", "compound", {}, 0, kArray},
    {".targetTranslate", "tt", "distance3", "XYZ"},
    {".targetRotatePivot", "trp", "distance3", "XYZ"},
    {".targetRotateTranslate", "trt", "distance3", "XYZ"},
    {".targetRotate", "tr", "angle3", "XYZ"},
    {".targetRotateOrder", "tro", "enum"},
    {".targetRotateCached", "trc", "angle3", "XYZ=trcd"},
    {".targetScale", "ts", "double3", "XYZ", 1},
    {".targetJointOrient", "tjo", "angle3", "XYZ"},
    {".targetScaleCompensate", "tsc", "bool"},
    {".targetInverseScale", "tis", "double3", "XYZ", 1},
    {".targetParentMatrix", "tpm", "matrix"},
    {".targetOffsetTranslate", "tot", "distance3", "XYZ"},
    {".targetOffsetRotate", "tor", "angle3", "XYZ"},
    {".targetWeight", "tw", "double", {}, 1},
    {"constraintParentInverseMatrix", "cpim", "matrix"},
    {"constraintRotatePivot", "crp", "distance3", "XYZ"},
    {"constraintRotateTranslate", "crt", "distance3", "XYZ"},
    {"constraintRotateOrder", "cro", "enum"},
    {"constraintJointOrient", "cjo", "angle3", "XYZ"},
    {"constraintInverseScale", "is", "double3", "XYZ", 1},
    {"constraintScaleCompensate", "csc", "bool"},
    {"interpType", "int", "enum", {}, 1, 0, "No Flip:Average:Shortest:Longest:Cache"},
    {"interpCache", "ica", "enum"},
    {"restTranslate", "rst", "distance3", "restTranslateX rtx restTranslateY rty restTranslateZ rtz", 0, kKeyable},
    {"restRotate", "rsrr", "angle3", "restRotateX rrx restRotateY rry restRotateZ rrz", 0, kKeyable},
    {"lastTargetRotate", "lr", "angle3", "lastTargetRotateX lrx lastTargetRotateY lry lastTargetRotateZ lrz"},
    {"rotationDecompositionTarget", "rdt", "angle3", "XYZ"},
    {"useDecompositionTarget", "dct", "bool"},
    {"constraintTranslate", "ct", "distance3", "XYZ", 0, kComputed},
    {"constraintRotate", "cr", "angle3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kScale[] = {
    {"target", "tg", "compound", {}, 0, kArray},
    {".targetScale", "ts", "double3", "XYZ", 1},
    {".targetParentMatrix", "tpm", "matrix"},
    {".targetWeight", "tw", "double", {}, 1},
    {"constraintParentInverseMatrix", "cpim", "matrix"},
    {"constraintScaleCompensate", "csc", "bool"},
    {"offset", "o", "double3", "XYZ", 1, kKeyable},
    {"restScale", "rss", "double3", "restScaleX rsx restScaleY rsy restScaleZ rsz", 1},
    {"constraintScale", "cs", "double3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kAim[] = {
    {"target", "tg", "compound", {}, 0, kArray},
    {".targetTranslate", "tt", "distance3", "XYZ"},
    {".targetRotatePivot", "trp", "distance3", "XYZ"},
    {".targetRotateTranslate", "trt", "distance3", "XYZ"},
    {".targetParentMatrix", "tpm", "matrix"},
    {".targetWeight", "tw", "double", {}, 1},
    {"constraintParentInverseMatrix", "cpim", "matrix"},
    {"constraintTranslate", "ct", "distance3", "XYZ"},
    {"constraintRotatePivot", "crp", "distance3", "XYZ"},
    {"constraintRotateTranslate", "crt", "distance3", "XYZ"},
    {"constraintRotateOrder", "cro", "enum"},
    {"constraintJointOrient", "cjo", "angle3", "XYZ"},
    {"aimVector", "a", "double3", "XYZ", {1, 0, 0}, kKeyable},
    {"upVector", "u", "double3", "XYZ", {0, 1, 0}, kKeyable},
    {"worldUpVector", "wu", "double3", "XYZ", {0, 1, 0}, kKeyable},
    {"worldUpType", "wut", "enum", {}, 4, 0, "scene:object:objectrotation:vector:none"},
    {"worldUpMatrix", "wum", "matrix"},
    {"constraintVector", "cv", "double3", "XYZ"},
    {"offset", "o", "angle3", "XYZ", 0, kKeyable},
    {"restRotate", "rsrr", "angle3", "restRotateX rrx restRotateY rry restRotateZ rrz", 0, kKeyable},
    {"scaleCompensate", "sc", "bool"},
    {"inverseScale", "is", "double3", "XYZ", 1},
    {"constraintRotate", "cr", "angle3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kPoleVector[] = {
    {"pivotSpace", "ps", "matrix"},
};

constexpr AttributeRow kGeometry[] = {
    {"target", "tg", "compound", {}, 0, kArray}, {".targetGeometry", "tgm", "geometry"},
    {".targetWeight", "tw", "double", {}, 1},    {"constraintParentInverseMatrix", "cpim", "matrix"},
    {"constraintGeometry", "cg", "any"},
};

constexpr TypeBehaviour kNotEvaluated{DagRole::kNone, nullptr, {}, true};

constexpr TypeRow kTypes[] = {
    {"constraint", "transform", api::kConstraint, kConstraint, kNotEvaluated},
    {"pointConstraint", "constraint", api::kPointConstraint, kPoint, {DagRole::kNone, computePointConstraint}},
    {"poleVectorConstraint",
     "pointConstraint",
     api::kPoleVectorConstraint,
     kPoleVector,
     {DagRole::kNone, computePoleVectorConstraint}},
    {"orientConstraint", "constraint", api::kOrientConstraint, kOrient, {DagRole::kNone, computeOrientConstraint}},
    {"parentConstraint", "constraint", api::kParentConstraint, kParent, {DagRole::kNone, computeParentConstraint}},
    {"scaleConstraint", "constraint", api::kScaleConstraint, kScale, {DagRole::kNone, computeScaleConstraint}},
    {"aimConstraint", "constraint", api::kAimConstraint, kAim, {DagRole::kNone, computeAimConstraint}},
    {"lookAt", "aimConstraint", api::kLookAt},
    {"geometryConstraint", "constraint", api::kGeometryConstraint, kGeometry},
    {"normalConstraint", "constraint", api::kNormalConstraint},
    {"tangentConstraint", "constraint", api::kTangentConstraint},
    {"pointOnPolyConstraint", "constraint", api::kPointOnPolyConstraint},
    {"symmetryConstraint", "constraint", api::kSymmetryConstraint},
};

} // namespace

void registerConstraintTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
