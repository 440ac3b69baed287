#include "host/nodes/apiTypes.h"
#include "host/nodes/arithmeticCompute.h"
#include "host/nodes/colorCompute.h"
#include "host/nodes/curveShapeCompute.h"
#include "host/nodes/matrixCompute.h"
#include "host/nodes/remapCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"
#include "host/nodes/utilityCompute.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kMultiplyDivide[] = {
    {"operation", "op", "enum", {}, 1, 0, "No operation:Multiply:Divide:Power"},
    {"input1", "i1", "float3", "XYZ", 0, kKeyable},
    {"input2", "i2", "float3", "XYZ", 1, kKeyable},
    {"output", "o", "float3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kPlusMinusAverage[] = {
    {"operation", "op", "enum", {}, 1, 0, "No operation:Sum:Subtract:Average"},
    {"input1D", "i1", "float", {}, 0, kArray},
    {"input2D", "i2", "float2", "input2Dx i2x input2Dy i2y", 0, kArray},
    {"input3D", "i3", "float3", "input3Dx i3x input3Dy i3y input3Dz i3z", 0, kArray},
    {"output1D", "o1", "float", {}, 0, kComputed},
    {"output2D", "o2", "float2", "output2Dx o2x output2Dy o2y", 0, kComputed},
    {"output3D", "o3", "float3", "output3Dx o3x output3Dy o3y output3Dz o3z", 0, kComputed},
};

constexpr AttributeRow kCondition[] = {
    {"operation", "op", "enum", {}, 0, 0, "Equal:Not Equal:Greater Than:Greater or Equal:Less Than:Less or Equal"},
    {"firstTerm", "ft", "float", {}, 0, kKeyable},
    {"secondTerm", "st", "float", {}, 0, kKeyable},
    {"colorIfTrue", "ct", "float3", "RGB", 0, kKeyable | kColor},
    {"colorIfFalse", "cf", "float3", "RGB", 1, kKeyable | kColor},
    {"outColor", "oc", "float3", "RGB", 0, kColor | kComputed},
};

constexpr AttributeRow kReverse[] = {
    {"input", "i", "float3", "XYZ", 0, kKeyable},
    {"output", "o", "float3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kClamp[] = {
    {"input", "ip", "float3", "RGB", 0, kKeyable},
    {"min", "mn", "float3", "RGB", 0, kKeyable},
    {"max", "mx", "float3", "RGB", 0, kKeyable},
    {"output", "op", "float3", "RGB", 0, kComputed},
};

constexpr AttributeRow kSetRange[] = {
    {"value", "v", "float3", "XYZ", 0, kKeyable},   {"min", "n", "float3", "XYZ", 0, kKeyable},
    {"max", "m", "float3", "XYZ", 0, kKeyable},     {"oldMin", "on", "float3", "XYZ", 0, kKeyable},
    {"oldMax", "om", "float3", "XYZ", 0, kKeyable}, {"outValue", "o", "float3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kRemapValue[] = {
    {"inputValue", "i", "float", {}, 0, kKeyable},
    {"inputMin", "imn", "float", {}, 0, kKeyable},
    {"inputMax", "imx", "float", {}, 1, kKeyable},
    {"outputMin", "omn", "float", {}, 0, kKeyable},
    {"outputMax", "omx", "float", {}, 1, kKeyable},
    {"value", "vl", "compound", {}, 0, kArray},
    {".value_Position", "vlp", "float"},
    {".value_FloatValue", "vlfv", "float"},
    {".value_Interp", "vli", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"color", "cl", "compound", {}, 0, kArray},
    {".color_Position", "clp", "float"},
    {".color_Color", "clc", "float3", "RGB", 0, kColor},
    {".color_Interp", "cli", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"outValue", "ov", "float", {}, 0, kComputed},
    {"outColor", "oc", "float3", "RGB", 0, kColor | kComputed},
};

constexpr AttributeRow kDoubleLinear[] = {
    {"input1", "i1", "distance", {}, 0, kKeyable},
    {"input2", "i2", "distance", {}, 0, kKeyable},
    {"output", "o", "distance", {}, 0, kComputed},
};

constexpr AttributeRow kChoice[] = {
    {"selector", "s", "long", {}, 0, kKeyable},
    {"input", "i", "any", {}, 0, kArray},
    {"output", "o", "any", {}, 0, kComputed},
};

constexpr AttributeRow kDecomposeMatrix[] = {
    {"inputMatrix", "imat", "matrix"},
    {"inputRotateOrder", "ro", "enum", {}, 0, 0, "xyz:yzx:zxy:xzy:yxz:zyx"},
    {"outputQuat", "oq", "double4", "XYZW", 0, kComputed},
    {"outputRotate", "or", "angle3", "XYZ", 0, kComputed},
    {"outputScale", "os", "double3", "XYZ", 0, kComputed},
    {"outputShear", "osh", "double3", "XYZ", 0, kComputed},
    {"outputTranslate", "ot", "distance3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kComposeMatrix[] = {
    {"inputTranslate", "it", "distance3", "XYZ"},
    {"inputRotate", "ir", "angle3", "XYZ"},
    {"inputRotateOrder", "ro", "enum", {}, 0, 0, "xyz:yzx:zxy:xzy:yxz:zyx"},
    {"inputScale", "is", "double3", "XYZ", 1},
    {"inputShear", "ish", "double3", "XYZ"},
    {"inputQuat", "iq", "double4", "XYZW", {0, 0, 0, 1}},
    {"useEulerRotation", "uer", "bool", {}, 1},
    {"outputMatrix", "omat", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kMultMatrix[] = {
    {"matrixIn", "i", "matrix", {}, 0, kArray},
    {"matrixSum", "o", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kAddMatrix[] = {
    {"matrixIn", "i", "matrix", {}, 0, kArray},
    {"matrixSum", "o", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kWtAddMatrix[] = {
    {"wtMatrix", "i", "compound", {}, 0, kArray},
    {".matrixIn", "m", "matrix"},
    {".weightIn", "w", "double"},
    {"matrixSum", "o", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kHoldMatrix[] = {
    {"inMatrix", "i", "matrix"},
    {"outMatrix", "o", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kPassMatrix[] = {
    {"inMatrix", "i", "matrix"},
    {"inScale", "s", "double", {}, 1},
    {"outMatrix", "o", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kFourByFourMatrix[] = {
    {"in00", "i00", "double", {}, 1},
    {"in01", "i01", "double"},
    {"in02", "i02", "double"},
    {"in03", "i03", "double"},
    {"in10", "i10", "double"},
    {"in11", "i11", "double", {}, 1},
    {"in12", "i12", "double"},
    {"in13", "i13", "double"},
    {"in20", "i20", "double"},
    {"in21", "i21", "double"},
    {"in22", "i22", "double", {}, 1},
    {"in23", "i23", "double"},
    {"in30", "i30", "double"},
    {"in31", "i31", "double"},
    {"in32", "i32", "double"},
    {"in33", "i33", "double", {}, 1},
    {"output", "o", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kInverseMatrix[] = {
    {"inputMatrix", "imat", "matrix"},
    {"outputMatrix", "omat", "matrix", {}, 0, kComputed},
};

constexpr AttributeRow kPointMatrixMult[] = {
    {"inPoint", "ip", "double3", "XYZ"},
    {"inMatrix", "im", "matrix"},
    {"vectorMultiply", "vm", "bool"},
    {"output", "o", "double3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kVectorProduct[] = {
    {"operation",
     "op",
     "enum",
     {},
     1,
     0,
     "No operation:Dot Product:Cross Product:Vector Matrix Product:Point Matrix Product"},
    {"input1", "i1", "float3", "XYZ", 0, kKeyable},
    {"input2", "i2", "float3", "XYZ", 0, kKeyable},
    {"matrix", "m", "matrix"},
    {"normalizeOutput", "no", "bool"},
    {"output", "o", "float3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kDistanceBetween[] = {
    {"point1", "p1", "distance3", "XYZ"},
    {"inMatrix1", "im1", "matrix"},
    {"point2", "p2", "distance3", "XYZ"},
    {"inMatrix2", "im2", "matrix"},
    {"distance", "d", "distance", {}, 0, kComputed},
};

constexpr AttributeRow kAngleBetween[] = {
    {"vector1", "v1", "distance3", "XYZ", {1, 0, 0}}, {"vector2", "v2", "distance3", "XYZ", {1, 0, 0}},
    {"angle", "a", "angle", {}, 0, kComputed},        {"axis", "ax", "double3", "XYZ", 0, kComputed},
    {"euler", "eu", "angle3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kBlendColors[] = {
    {"blender", "b", "float", {}, 0.5, kKeyable},
    {"color1", "c1", "float3", "RGB", {1, 0, 0}, kKeyable | kColor},
    {"color2", "c2", "float3", "RGB", {0, 0, 1}, kKeyable | kColor},
    {"output", "op", "float3", "RGB", 0, kColor | kComputed},
};

constexpr AttributeRow kBlendTwoAttr[] = {
    {"attributesBlender", "ab", "double", {}, 0.5, kKeyable},
    {"input", "i", "double", {}, 0, kArray},
    {"current", "c", "short"},
    {"driver", "d", "short"},
    {"output", "o", "double", {}, 0, kComputed},
};

constexpr AttributeRow kGammaCorrect[] = {
    {"value", "v", "float3", "XYZ", 0, kKeyable},
    {"gamma", "g", "float3", "XYZ", 1, kKeyable},
    {"outValue", "o", "float3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kContrast[] = {
    {"value", "v", "float3", "XYZ", 0, kKeyable},
    {"contrast", "c", "float3", "XYZ", 2, kKeyable},
    {"bias", "b", "float3", "XYZ", 0.5, kKeyable},
    {"outValue", "o", "float3", "XYZ"},
};

constexpr AttributeRow kLuminance[] = {
    {"value", "v", "float3", "RGB", 0, kKeyable},
    {"outValue", "o", "float", {}, 0, kComputed},
};

constexpr AttributeRow kHsvToRgb[] = {
    {"inHsv", "i", "float3", "inHsvR ir inHsvG ig inHsvB ib"},
    {"outRgb", "o", "float3", "outRgbR or outRgbG og outRgbB ob", 0, kColor | kComputed},
};

constexpr AttributeRow kRgbToHsv[] = {
    {"inRgb", "i", "float3", "inRgbR ir inRgbG ig inRgbB ib", 0, kColor},
    {"outHsv", "o", "float3", "outHsvH oh outHsvS os outHsvV ov", 0, kComputed},
};

constexpr AttributeRow kSamplerInfo[] = {
    {"pixelCenter", "pc", "float2", "pixelCenterX px pixelCenterY py"},
    {"pointWorld", "pw", "float3", "XYZ"},
    {"pointObj", "po", "float3", "XYZ"},
    {"pointCamera", "p", "float3", "XYZ=p_"},
    {"normalCamera", "n", "float3", "XYZ"},
    {"uvCoord", "uv", "float2", "uCoord u vCoord v"},
    {"rayDirection", "r", "float3", "XYZ"},
    {"facingRatio", "fr", "float"},
    {"flippedNormal", "fn", "bool"},
};

constexpr AttributeRow kRemapColor[] = {
    {"color", "cl", "float3", "RGB", 0, kKeyable | kColor},
    {"inputMin", "imn", "float"},
    {"inputMax", "imx", "float", {}, 1},
    {"outputMin", "omn", "float"},
    {"outputMax", "omx", "float", {}, 1},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kCurveInfo[] = {
    {"inputCurve", "ic", "nurbsCurve"},
    {"arcLength", "al", "distance", {}, 0, kComputed},
    {"controlPoints", "cp", "distance3", "xValue xv yValue yv zValue zv", 0, kArray},
    {"weights", "wt", "double", {}, 0, kArray},
    {"knots", "kn", "double", {}, 0, kArray},
};

constexpr TypeBehaviour kNotEvaluated{DagRole::kNone, nullptr, {}, true};

constexpr TypeRow kTypes[] = {
    {"multiplyDivide", "dependNode", api::kMultiplyDivide, kMultiplyDivide, {DagRole::kNone, computeMultiplyDivide}},
    {"plusMinusAverage",
     "dependNode",
     api::kPlusMinusAverage,
     kPlusMinusAverage,
     {DagRole::kNone, computePlusMinusAverage}},
    {"condition", "dependNode", api::kCondition, kCondition, {DagRole::kNone, computeCondition}},
    {"reverse", "dependNode", api::kReverse, kReverse, {DagRole::kNone, computeReverse}},
    {"clamp", "dependNode", api::kClampColor, kClamp, {DagRole::kNone, computeClamp}},
    {"setRange", "dependNode", api::kSetRange, kSetRange, {DagRole::kNone, computeSetRange}},
    {"remapValue", "dependNode", api::kRemapValue, kRemapValue, {DagRole::kNone, computeRemapValue}},
    {"remapColor", "dependNode", api::kRemapColor, kRemapColor, kNotEvaluated},
    {"remapHsv", "dependNode", api::kRemapHsv, kRemapColor, kNotEvaluated},
    {"addDoubleLinear", "dependNode", api::kAddDoubleLinear, kDoubleLinear, {DagRole::kNone, computeAddDoubleLinear}},
    {"multDoubleLinear",
     "dependNode",
     api::kMultDoubleLinear,
     kDoubleLinear,
     {DagRole::kNone, computeMultDoubleLinear}},
    {"choice", "dependNode", api::kChoice, kChoice, {DagRole::kNone, computeChoice}},
    {"decomposeMatrix",
     "dependNode",
     api::kDecomposeMatrix,
     kDecomposeMatrix,
     {DagRole::kNone, computeDecomposeMatrix}},
    {"composeMatrix", "dependNode", api::kComposeMatrix, kComposeMatrix, {DagRole::kNone, computeComposeMatrix}},
    {"multMatrix", "dependNode", api::kMatrixMult, kMultMatrix, {DagRole::kNone, computeMultMatrix}},
    {"addMatrix", "dependNode", api::kMatrixAdd, kAddMatrix, {DagRole::kNone, computeAddMatrix}},
    {"wtAddMatrix", "dependNode", api::kMatrixWtAdd, kWtAddMatrix, {DagRole::kNone, computeWtAddMatrix}},
    {"holdMatrix", "dependNode", api::kMatrixHold, kHoldMatrix, {DagRole::kNone, computePassMatrix}},
    {"passMatrix", "dependNode", api::kMatrixPass, kPassMatrix, {DagRole::kNone, computePassMatrix}},
    {"inverseMatrix", "dependNode", api::kInverseMatrix, kInverseMatrix, {DagRole::kNone, computeInverseMatrix}},
    {"transposeMatrix", "dependNode", api::kTransposeMatrix, kInverseMatrix, {DagRole::kNone, computeTransposeMatrix}},
    {"fourByFourMatrix",
     "dependNode",
     api::kFourByFourMatrix,
     kFourByFourMatrix,
     {DagRole::kNone, computeFourByFourMatrix}},
    {"pointMatrixMult",
     "dependNode",
     api::kPointMatrixMult,
     kPointMatrixMult,
     {DagRole::kNone, computePointMatrixMult}},
    {"vectorProduct", "dependNode", api::kVectorProduct, kVectorProduct, {DagRole::kNone, computeVectorProduct}},
    {"distanceBetween",
     "dependNode",
     api::kDistanceBetween,
     kDistanceBetween,
     {DagRole::kNone, computeDistanceBetween}},
    {"angleBetween", "dependNode", api::kAngleBetween, kAngleBetween, {DagRole::kNone, computeAngleBetween}},
    {"blendColors", "dependNode", api::kBlendColors, kBlendColors, {DagRole::kNone, computeBlendColors}},
    {"blendTwoAttr", "dependNode", api::kBlendTwoAttr, kBlendTwoAttr, {DagRole::kNone, computeBlendTwoAttr}},
    {"gammaCorrect", "dependNode", api::kGammaCorrect, kGammaCorrect, {DagRole::kNone, computeGammaCorrect}},
    {"contrast", "dependNode", api::kContrast, kContrast, kNotEvaluated},
    {"luminance", "dependNode", api::kLuminance, kLuminance, {DagRole::kNone, computeLuminance}},
    {"hsvToRgb", "dependNode", api::kHsvToRgb, kHsvToRgb, {DagRole::kNone, computeHsvToRgb}},
    {"rgbToHsv", "dependNode", api::kRgbToHsv, kRgbToHsv, {DagRole::kNone, computeRgbToHsv}},
    {"samplerInfo", "dependNode", api::kSamplerInfo, kSamplerInfo, kNotEvaluated},
    {"curveInfo", "dependNode", api::kCurveInfo, kCurveInfo, {DagRole::kNone, computeCurveInfo}},
};

} // namespace

void registerUtilityTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
