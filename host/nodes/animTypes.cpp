#include "host/nodes/apiTypes.h"
#include "host/nodes/arithmeticCompute.h"
#include "host/nodes/blendCompute.h"
#include "host/nodes/curveCompute.h"
#include "host/nodes/curveShapeCompute.h"
#include "host/nodes/expressionCompute.h"
#include "host/nodes/layerCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"
#include "host/nodes/utilityCompute.h"

namespace host {

namespace {

using namespace row;

constexpr std::string_view kTangentLabels =
    "Global:Fixed:Linear:Flat:Smooth:Step:Slow:Fast:Spline=9:Clamped:Plateau=16:StepNext:Auto";

constexpr AttributeRow kAnimCurve[] = {
    {"animationCurve", "ac", "data", {}, 0, kComputed | kHidden},
    {"apply", "a", "any"},
    {"tangentType", "tan", "enum", {}, 0, 0, kTangentLabels},
    {"weightedTangents", "wgt", "bool", {}, 1},
    {"keyTanLocked", "ktl", "bool", {}, 1, kArray},
    {"keyWeightLocked", "kwl", "bool", {}, 1, kArray},
    {"keyTanInX", "kix", "float", {}, 0, kArray},
    {"keyTanInY", "kiy", "float", {}, 0, kArray},
    {"keyTanOutX", "kox", "float", {}, 0, kArray},
    {"keyTanOutY", "koy", "float", {}, 0, kArray},
    {"keyTanInType", "kit", "enum", {}, 0, kArray, kTangentLabels},
    {"keyTanOutType", "kot", "enum", {}, 0, kArray, kTangentLabels},
    {"keyBreakdown", "kbd", "bool", {}, 0, kArray},
    {"keyTickDrawSpecial", "ktds", "bool", {}, 0, kArray},
    {"preInfinity", "pre", "enum", {}, 0, 0, "Constant:Linear:Cycle=3:CycleRelative:Oscillate"},
    {"postInfinity", "pst", "enum", {}, 0, 0, "Constant:Linear:Cycle=3:CycleRelative:Oscillate"},
    {"stippleReadOnly", "stip", "bool"},
    {"useCurveColor", "ucc", "bool"},
    {"curveColor", "cc", "float3", "RGB", 0, kColor},
    {"outStippleThreshold", "ost", "bool"},
    {"stippleRange", "stpr", "any"},
};

// The eight kinds differ in what the curve's input, values and output count.
constexpr AttributeRow kCurveTA[] = {
    {"input", "i", "time"},
    {"keyTimeValue", "ktv", "compound", {}, 0, kArray},
    {".keyTime", "kt", "time"},
    {".keyValue", "kv", "angle"},
    {"output", "o", "angle", {}, 0, kComputed},
    {"rotationInterpolation", "roti", "enum", {}, 1},
};
constexpr AttributeRow kCurveTL[] = {
    {"input", "i", "time"},          {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "time"},
    {".keyValue", "kv", "distance"}, {"output", "o", "distance", {}, 0, kComputed},
};
constexpr AttributeRow kCurveTT[] = {
    {"input", "i", "time"},      {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "time"},
    {".keyValue", "kv", "time"}, {"output", "o", "time", {}, 0, kComputed},
};
constexpr AttributeRow kCurveTU[] = {
    {"input", "i", "time"},        {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "time"},
    {".keyValue", "kv", "double"}, {"output", "o", "double", {}, 0, kComputed},
};
constexpr AttributeRow kCurveUA[] = {
    {"input", "i", "double"},     {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "double"},
    {".keyValue", "kv", "angle"}, {"output", "o", "angle", {}, 0, kComputed},
};
constexpr AttributeRow kCurveUL[] = {
    {"input", "i", "double"},        {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "double"},
    {".keyValue", "kv", "distance"}, {"output", "o", "distance", {}, 0, kComputed},
};
constexpr AttributeRow kCurveUT[] = {
    {"input", "i", "double"},    {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "double"},
    {".keyValue", "kv", "time"}, {"output", "o", "time", {}, 0, kComputed},
};
constexpr AttributeRow kCurveUU[] = {
    {"input", "i", "double"},      {"keyTimeValue", "ktv", "compound", {}, 0, kArray}, {".keyTime", "kt", "double"},
    {".keyValue", "kv", "double"}, {"output", "o", "double", {}, 0, kComputed},
};

// The graph keeps the two times as they are set; see Graph::setTime.
constexpr AttributeRow kTime[] = {
    {"outTime", "o", "time"},
    {"unwarpedTime", "unw", "time"},
    {"enableTimewarp", "etw", "bool"},
    {"timewarpIn", "twi", "time", {}, 0, kArray},
    {"timecodeProductionStart", "tps", "time"},
    {"timecodeMayaStart", "tms", "time"},
};

constexpr AttributeRow kExpression[] = {
    {"expression", "e", "string"},
    {"internalExpression", "ixp", "string"},
    {"input", "in", "double", {}, 0, kArray},
    {"output", "out", "double", {}, 0, kArray | kComputed},
    {"compiled", "cpd", "data", {}, 0, kComputed | kHidden},
    {"time", "tim", "time"},
    {"frame", "f", "double"},
    {"animated", "ani", "short", {}, 1},
    {"object", "obm", "message"},
    {"attribute", "atr", "string", {}, 0, kArray},
    {"unitOption", "uo", "enum", {}, 0, 0, "all:none:angularOnly"},
    {"attributeSet", "as", "any", {}, 0, kArray},
    {"newFileFormat", "nff", "bool"},
    {"evaluate", "evl", "any"},
    {"lastTimeEvaluated", "lte", "double"},
};

constexpr AttributeRow kPairBlend[] = {
    {"weight", "w", "double", {}, 1, kKeyable},
    {"inTranslateX1", "itx1", "distance"},
    {"inTranslateY1", "ity1", "distance"},
    {"inTranslateZ1", "itz1", "distance"},
    {"inTranslateX2", "itx2", "distance"},
    {"inTranslateY2", "ity2", "distance"},
    {"inTranslateZ2", "itz2", "distance"},
    {"inRotateX1", "irx1", "angle"},
    {"inRotateY1", "iry1", "angle"},
    {"inRotateZ1", "irz1", "angle"},
    {"inRotateX2", "irx2", "angle"},
    {"inRotateY2", "iry2", "angle"},
    {"inRotateZ2", "irz2", "angle"},
    {"translateXMode", "txm", "enum", {}, 0, 0, "Blend inputs:Input 1 only:Input 2 only"},
    {"translateYMode", "tym", "enum", {}, 0, 0, "Blend inputs:Input 1 only:Input 2 only"},
    {"translateZMode", "tzm", "enum", {}, 0, 0, "Blend inputs:Input 1 only:Input 2 only"},
    {"rotateMode", "rm", "enum", {}, 0, 0, "Blend inputs:Input 1 only:Input 2 only"},
    {"rotateOrder", "ro", "enum", {}, 0, 0, "xyz:yzx:zxy:xzy:yxz:zyx"},
    {"rotInterpolation", "ri", "enum", {}, 0, 0, "Euler Angles:Quaternions"},
    {"currentDriver", "c", "short"},
    {"outTranslateX", "otx", "distance", {}, 0, kComputed},
    {"outTranslateY", "oty", "distance", {}, 0, kComputed},
    {"outTranslateZ", "otz", "distance", {}, 0, kComputed},
    {"outRotateX", "orx", "angle", {}, 0, kComputed},
    {"outRotateY", "ory", "angle", {}, 0, kComputed},
    {"outRotateZ", "orz", "angle", {}, 0, kComputed},
};

constexpr AttributeRow kBlendWeighted[] = {
    {"input", "i", "double", {}, 0, kArray},
    {"weight", "w", "double", {}, 1, kArray},
    {"current", "c", "short"},
    {"output", "o", "double", {}, 0, kComputed},
};

constexpr AttributeRow kUnitConversion[] = {
    {"conversionFactor", "cf", "double", {}, 1},
    {"input", "i", "double"},
    {"output", "o", "double", {}, 0, kComputed},
};
constexpr AttributeRow kTimeToUnit[] = {
    {"conversionFactor", "cf", "double", {}, 1},
    {"input", "i", "time"},
    {"output", "o", "double", {}, 0, kComputed},
};
constexpr AttributeRow kUnitToTime[] = {
    {"conversionFactor", "cf", "double", {}, 1},
    {"input", "i", "double"},
    {"output", "o", "time", {}, 0, kComputed},
};

constexpr AttributeRow kAnimClip[] = {
    {"clip", "cl", "any"},
    {"clipInstance", "ci", "bool", {}, 1},
    {"poseClip", "pc", "bool"},
    {"sourceStart", "ss", "time"},
    {"sourceEnd", "se", "time"},
    {"startFrame", "st", "time"},
    {"scale", "sc", "double", {}, 1},
    {"weight", "w", "double", {}, 1},
    {"weightStyle", "ws", "short"},
    {"cycle", "cy", "any"},
    {"preCycle", "prc", "double"},
    {"postCycle", "poc", "double"},
    {"hold", "h", "time"},
    {"enable", "ea", "bool", {}, 1},
    {"offset", "os", "enum", {}, 0, kArray},
    {"absoluteChannel", "ac", "bool", {}, 1, kArray},
    {"timeWarp", "tw", "time"},
    {"timeWarpEnable", "twe", "bool"},
    {"absoluteUnit", "abu", "short", {}, 0, kArray},
    {"dontBlend", "db", "bool"},
};

constexpr AttributeRow kClipLibrary[] = {
    {"clip", "cp", "any", {}, 0, kArray},
    {"clipFunction", "cf", "any", {}, 0, kArray},
    {"sourceClip", "sc", "any", {}, 0, kArray},
    {"clipEvalList", "cel", "compound", {}, 0, kArray},
    {".clipEval", "cev", "compound", {}, 0, kArray},
    {"..clipEval_Raw", "cevr", "any"},
    {"characterdata", "cd", "compound", {}, 0, kArray},
    {".characterMapping", "cm", "any"},
    {".clipIndexMap", "cim", "Int32Array"},
};

constexpr AttributeRow kClipScheduler[] = {
    {"clip", "cp", "any", {}, 0, kArray},
    {"clipFunction", "cfr", "any", {}, 0, kArray},
    {"clipEvaluate", "ce", "any"},
    {"numTracks", "nt", "short"},
    {"start", "st", "time", {}, 0, kArray},
    {"sourceStart", "ss", "time", {}, 0, kArray},
    {"sourceEnd", "se", "time", {}, 0, kArray},
    {"scale", "sc", "double", {}, 1, kArray},
    {"weight", "w", "double", {}, 1, kArray},
    {"weightStyle", "ws", "short", {}, 0, kArray},
    {"hold", "h", "time", {}, 0, kArray},
    {"preCycle", "prc", "double", {}, 0, kArray},
    {"postCycle", "poc", "double", {}, 0, kArray},
    {"enable", "ea", "bool", {}, 1, kArray},
    {"track", "tr", "short", {}, 0, kArray},
    {"trackState", "ts", "short", {}, 0, kArray},
    {"blendList", "bl", "any", {}, 0, kArray},
};

// What layers tell each other: a parent its children (weight, mute, whether one of them is alone), a child its parent.
constexpr AttributeRow kAnimLayer[] = {
    {"parentLayer", "plyr", "message"},
    {"childrenLayers", "cdly", "any", {}, 0, kArray | kUnordered},
    {"blendNodes", "bnds", "message", {}, 0, kArray | kUnordered},
    {"mute", "mute", "bool", {}, 0, kKeyable},
    {"solo", "sl", "bool", {}, 0, kKeyable},
    {"lock", "lo", "bool"},
    {"override", "ovrd", "bool", {}, 0, kKeyable},
    {"passthrough", "pth", "bool", {}, 1, kKeyable},
    {"preferred", "pref", "bool"},
    {"selected", "slct", "bool"},
    {"collapse", "clps", "bool"},
    {"ghost", "ghst", "bool"},
    {"ghostColor", "ghc", "short"},
    {"playing", "play", "bool"},
    {"weight", "wgt", "double", {}, 1, kKeyable},
    {"parentWeight", "pwth", "double", {}, 1},
    {"parentMute", "pmte", "bool"},
    {"siblingSolo", "sslo", "bool"},
    {"childsoloed", "chsl", "bool", {}, 0, kArray | kUnordered},
    {"rotationAccumulationMode", "ram", "enum", {}, 0, 0, "Component:Layer"},
    {"scaleAccumulationMode", "sam", "enum", {}, 0, 0, "Multiply:Additive"},
    {"foregroundWeight", "fgwt", "double", {}, 1, kComputed},
    {"backgroundWeight", "bgwt", "double", {}, 1, kComputed},
    {"outMute", "omte", "bool", {}, 0, kComputed},
    {"childSoloedOut", "csol", "bool", {}, 0, kComputed},
    {"outRotationAccumulationMode", "oram", "enum", {}, 0, kComputed, "Component:Layer"},
    {"outScaleAccumulationMode", "osam", "enum", {}, 0, kComputed, "Multiply:Additive"},
};

constexpr AttributeRow kAnimBlend[] = {
    {"weightA", "wa", "double", {}, 1},
    {"weightB", "wb", "double", {}, 1},
};

// Kinds of values that layers blend.
constexpr AttributeRow kBlendDouble[] = {
    {"inputA", "ia", "double"}, {"inputB", "ib", "double"}, {"output", "o", "double", {}, 0, kComputed}};
constexpr AttributeRow kBlendAngle[] = {
    {"inputA", "ia", "angle"}, {"inputB", "ib", "angle"}, {"output", "o", "angle", {}, 0, kComputed}};
constexpr AttributeRow kBlendLength[] = {
    {"inputA", "ia", "distance"}, {"inputB", "ib", "distance"}, {"output", "o", "distance", {}, 0, kComputed}};
constexpr AttributeRow kBlendWhole[] = {
    {"inputA", "ia", "long"}, {"inputB", "ib", "long"}, {"output", "o", "long", {}, 0, kComputed}};
constexpr AttributeRow kBlendBool[] = {
    {"inputA", "ia", "bool"}, {"inputB", "ib", "bool"}, {"output", "o", "bool", {}, 0, kComputed}};
constexpr AttributeRow kBlendTime[] = {
    {"inputA", "ia", "time"}, {"inputB", "ib", "time"}, {"output", "o", "time", {}, 0, kComputed}};
constexpr AttributeRow kBlendScale[] = {
    {"inputA", "ia", "double", {}, 1},
    {"inputB", "ib", "double", {}, 1},
    {"accumulationMode", "acm", "enum", {}, 0, 0, "Multiply:Additive"},
    {"output", "o", "double", {}, 1, kComputed},
};
constexpr AttributeRow kBlendRotation[] = {
    {"inputA", "ia", "angle3", "XYZ"},
    {"inputB", "ib", "angle3", "XYZ"},
    {"rotateOrder", "ro", "enum", {}, 0, 0, "xyz:yzx:zxy:xzy:yxz:zyx"},
    {"accumulationMode", "acm", "enum", {}, 0, 0, "Component:Layer"},
    {"rotationInterpolation", "rotI", "enum"},
    {"output", "o", "angle3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kMute[] = {
    {"input", "i", "any"},
    {"output", "o", "any", {}, 0, kComputed},
    {"mute", "m", "bool"},
    {"hold", "h", "any"},
};

constexpr AttributeRow kMotionPath[] = {
    {"uValue", "u", "double", {}, 0, kKeyable},
    {"frontTwist", "ft", "angle", {}, 0, kKeyable},
    {"upTwist", "ut", "angle", {}, 0, kKeyable},
    {"sideTwist", "st", "angle", {}, 0, kKeyable},
    {"geometryPath", "gp", "nurbsCurve"},
    {"fractionMode", "fm", "bool"},
    {"follow", "f", "bool"},
    {"normal", "n", "bool"},
    {"inverseUp", "iu", "bool"},
    {"inverseFront", "if", "bool"},
    {"frontAxis", "fa", "enum", {}, 1, 0, "X:Y:Z"},
    {"upAxis", "ua", "enum", {}, 2, 0, "X:Y:Z"},
    {"worldUpType", "wut", "enum", {}, 0, 0, "Scene Up:Object Up:Object Rotation Up:Vector:Normal"},
    {"worldUpVector", "wu", "distance3", "XYZ", {0, 1, 0}},
    {"worldUpMatrix", "wum", "matrix"},
    {"bank", "b", "bool"},
    {"bankScale", "bs", "double", {}, 1},
    {"bankThreshold", "bt", "double", {}, 90},
    {"rotateOrder", "ro", "enum", {}, 0, 0, "xyz:yzx:zxy:xzy:yxz:zyx"},
    {"positionMarkerTime", "pmt", "time", {}, 0, kArray},
    {"flowNode", "fn", "any"},
    {"allCoordinates", "ac", "distance3", "xCoordinate xc yCoordinate yc zCoordinate zc", 0, kComputed},
    {"rotate", "r", "angle3", "XYZ", 0, kComputed},
    {"orientMatrix", "om", "matrix", {}, 0, kComputed},
};

constexpr TypeBehaviour kCurve{DagRole::kNone, computeAnimCurve};
constexpr TypeBehaviour kTimeCurve{DagRole::kNone, computeAnimCurve, "input"};
constexpr TypeBehaviour kNotEvaluated{DagRole::kNone, nullptr, {}, true};
constexpr TypeBehaviour kLayered{DagRole::kNone, computeLayeredNumber};
constexpr TypeBehaviour kLayeredChoice{DagRole::kNone, computeLayeredChoice};

constexpr TypeRow kTypes[] = {
    {"animCurve", "dependNode", api::kAnimCurve, kAnimCurve},
    {"animCurveTA", "animCurve", api::kAnimCurveTimeToAngular, kCurveTA, kTimeCurve},
    {"animCurveTL", "animCurve", api::kAnimCurveTimeToDistance, kCurveTL, kTimeCurve},
    {"animCurveTT", "animCurve", api::kAnimCurveTimeToTime, kCurveTT, kTimeCurve},
    {"animCurveTU", "animCurve", api::kAnimCurveTimeToUnitless, kCurveTU, kTimeCurve},
    {"animCurveUA", "animCurve", api::kAnimCurveUnitlessToAngular, kCurveUA, kCurve},
    {"animCurveUL", "animCurve", api::kAnimCurveUnitlessToDistance, kCurveUL, kCurve},
    {"animCurveUT", "animCurve", api::kAnimCurveUnitlessToTime, kCurveUT, kCurve},
    {"animCurveUU", "animCurve", api::kAnimCurveUnitlessToUnitless, kCurveUU, kCurve},
    {"time", "dependNode", api::kTime, kTime},
    {"expression", "dependNode", api::kExpression, kExpression, {DagRole::kNone, computeExpression, "time"}},
    {"unitConversion", "dependNode", api::kUnitConversion, kUnitConversion, {DagRole::kNone, computeUnitConversion}},
    {"timeToUnitConversion",
     "dependNode",
     api::kTimeToUnitConversion,
     kTimeToUnit,
     {DagRole::kNone, computeTimeToUnit, "input"}},
    {"unitToTimeConversion",
     "dependNode",
     api::kUnitToTimeConversion,
     kUnitToTime,
     {DagRole::kNone, computeUnitToTime}},
    {"pairBlend", "dependNode", api::kPairBlend, kPairBlend, {DagRole::kNone, computePairBlend}},
    {"blendWeighted", "dependNode", api::kBlendWeighted, kBlendWeighted, {DagRole::kNone, computeBlendWeighted}},
    {"animClip", "dependNode", api::kClip, kAnimClip},
    {"clipLibrary", "dependNode", api::kClipLibrary, kClipLibrary},
    {"clipScheduler", "dependNode", api::kClipScheduler, kClipScheduler},
    {"animLayer", "objectSet", api::kAnimLayer, kAnimLayer, {DagRole::kNone, computeAnimLayer}},
    {"animBlendNodeBase", "dependNode", api::kBlendNodeBase, kAnimBlend},
    {"animBlendNodeBoolean", "animBlendNodeBase", api::kBlendNodeBoolean, kBlendBool, kLayeredChoice},
    {"animBlendNodeEnum", "animBlendNodeBase", api::kBlendNodeEnum, kBlendWhole, kLayeredChoice},
    {"animBlendNodeAdditive", "animBlendNodeBase", api::kBlendNodeDouble, kBlendDouble, kLayered},
    {"animBlendNodeAdditiveDA", "animBlendNodeBase", api::kBlendNodeDoubleAngle, kBlendAngle, kLayered},
    {"animBlendNodeAdditiveDL", "animBlendNodeBase", api::kBlendNodeDoubleLinear, kBlendLength, kLayered},
    {"animBlendNodeAdditiveF", "animBlendNodeBase", api::kBlendNodeFloat, kBlendDouble, kLayered},
    {"animBlendNodeAdditiveFA", "animBlendNodeBase", api::kBlendNodeFloatAngle, kBlendAngle, kLayered},
    {"animBlendNodeAdditiveFL", "animBlendNodeBase", api::kBlendNodeFloatLinear, kBlendLength, kLayered},
    {"animBlendNodeAdditiveI16", "animBlendNodeBase", api::kBlendNodeInt16, kBlendWhole, kLayered},
    {"animBlendNodeAdditiveI32", "animBlendNodeBase", api::kBlendNodeInt32, kBlendWhole, kLayered},
    {"animBlendNodeAdditiveRotation",
     "animBlendNodeBase",
     api::kBlendNodeAdditiveRotation,
     kBlendRotation,
     {DagRole::kNone, computeLayeredRotation}},
    {"animBlendNodeAdditiveScale",
     "animBlendNodeBase",
     api::kBlendNodeAdditiveScale,
     kBlendScale,
     {DagRole::kNone, computeLayeredScale}},
    {"animBlendNodeTime", "animBlendNodeBase", api::kBlendNodeTime, kBlendTime, kLayered},
    {"mute", "dependNode", api::kMute, kMute, {DagRole::kNone, computeMute}},
    {"motionPath", "dependNode", api::kMotionPath, kMotionPath, {DagRole::kNone, computeMotionPath}},
    {"timeWarp", "dependNode", api::kTimeWarp, kNotEvaluated},
};

} // namespace

void registerAnimTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
