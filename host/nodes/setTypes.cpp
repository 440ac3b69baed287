#include "host/nodes/apiTypes.h"
#include "host/nodes/traxCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kObjectSet[] = {
    {"dagSetMembers", "dsm", "any", {}, 0, kArray | kUnordered},
    {"dnSetMembers", "dnsm", "any", {}, 0, kArray | kUnordered},
    {"memberWireframeColor", "mwc", "short", {}, -1},
    {"groupNodes", "gn", "message", {}, 0, kArray | kUnordered},
    {"usedBy", "ub", "message", {}, 0, kArray | kUnordered},
    {"partition", "pa", "message"},
    {"verticesOnlySet", "vo", "bool"},
    {"edgesOnlySet", "eo", "bool"},
    {"facetsOnlySet", "fo", "bool"},
    {"editPointsOnlySet", "epo", "bool"},
    {"renderableOnlySet", "ro", "bool"},
    {"annotation", "an", "string"},
    {"isLayer", "il", "bool"},
    {"hiddenInOutliner", "hio", "bool"},
};

constexpr AttributeRow kShadingEngine[] = {
    {"surfaceShader", "ss", "float3", "surfaceShaderR ssr surfaceShaderG ssg surfaceShaderB ssb", 0, kColor},
    {"displacementShader", "ds", "float"},
    {"volumeShader", "vs", "float3", "volumeShaderR vsr volumeShaderG vsg volumeShaderB vsb", 0, kColor},
    {"imageShader", "is", "float3", "imageShaderR isr imageShaderG isg imageShaderB isb", 0, kColor},
    {"defaultShadows", "defs", "any", {}, 0, kArray},
    {"defaultLights", "dl", "any"},
    {"linkedLights", "ll", "any", {}, 0, kArray},
    {"ignoredLights", "ign", "any", {}, 0, kArray},
    {"uvLink", "uvl", "any", {}, 0, kArray},
};

// A character hands the values that drive its elements on to what the elements drive. With clips, see tieClips, they
// read as the played values.
constexpr AttributeRow kCharacter[] = {
    {"unitlessValues", "uv", "double", {}, 0, kArray},
    {"linearValues", "lv", "distance", {}, 0, kArray},
    {"angularValues", "av", "angle", {}, 0, kArray},
    {"timeValues", "tv", "time", {}, 0, kArray},
    {"unitlessClipValues", "ucv", "any", {}, 0, kArray},
    {"linearClipValues", "lcv", "any", {}, 0, kArray},
    {"angularClipValues", "acv", "any", {}, 0, kArray},
    {"attributeAliasList", "aal", "attributeAlias"},
    {"clipIndexMap", "cim", "Int32Array"},
    {"clipEvaluate", "cer", "any"},
    {"animationMapping", "am", "data"},
    {"timelineClipStart", "tcs", "time"},
    {"timelineClipEnd", "tce", "time"},
    {"clipInput", "kci", "any", {}, 0, kArray | kHidden},
    {"clipTime", "kct", "time", {}, 0, kHidden},
    {"unitlessPlayed", "kpu", "double", {}, 0, kArray | kComputed | kHidden},
    {"linearPlayed", "kpl", "distance", {}, 0, kArray | kComputed | kHidden},
    {"angularPlayed", "kpa", "angle", {}, 0, kArray | kComputed | kHidden},
    {"timePlayed", "kpt", "time", {}, 0, kArray | kComputed | kHidden},
};

constexpr AttributeRow kPartition[] = {
    {"sets", "st", "message", {}, 0, kArray | kUnordered},
    {"partitionType", "pt", "short"},
    {"annotation", "an", "string"},
};

constexpr AttributeRow kDagPose[] = {
    {"worldMatrix", "wm", "matrix", {}, 0, kArray},
    {"xformMatrix", "xm", "matrix", {}, 0, kArray},
    {"members", "m", "message", {}, 0, kArray},
    {"parents", "p", "message", {}, 0, kArray},
    {"world", "w", "message"},
    {"global", "g", "bool", {}, 0, kArray},
    {"bindPose", "bp", "bool"},
};

constexpr AttributeRow kMaterialInfo[] = {
    {"shadingGroup", "sg", "message"},
    {"material", "m", "message"},
    {"texture", "t", "message", {}, 0, kArray | kUnordered},
};

constexpr TypeRow kTypes[] = {
    {"objectSet", "dependNode", api::kSet, kObjectSet},
    {"shadingEngine", "objectSet", api::kShadingEngine, kShadingEngine},
    {"character", "objectSet", api::kCharacter, kCharacter, {DagRole::kNone, computeCharacter, "clipTime"}},
    {"partition", "dependNode", api::kPartition, kPartition},
    {"dagPose", "dependNode", api::kDagPose, kDagPose},
    {"materialInfo", "dependNode", api::kMaterialInfo, kMaterialInfo},
};

} // namespace

void registerSetTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
