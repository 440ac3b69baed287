#include "host/nodes/apiTypes.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kLight[] = {
    {"color", "cl", "float3", "RGB=c", 1, kKeyable | kColor},
    {"intensity", "in", "float", {}, 1, kKeyable},
    {"useRayTraceShadows", "urs", "bool", {}, 1},
    {"shadowColor", "sc", "float3", "shadColorR scr shadColorG scg shadColorB scb", 0, kKeyable | kColor},
    {"rayDepthLimit", "rdl", "short", {}, 1},
    {"shadowRays", "shr", "short", {}, 1},
    {"emitDiffuse", "ed", "bool", {}, 1, kKeyable},
    {"emitSpecular", "sn", "bool", {}, 1, kKeyable},
    {"lightRadius", "lr", "float"},
    {"locatorScale", "lls", "double", {}, 1},
    {"objectType", "obt", "long"},
    {"lightData", "ltd", "any"},
};

constexpr AttributeRow kAmbientLight[] = {
    {"ambientShade", "as", "float", {}, 0.45, kKeyable},
    {"shadowRadius", "sr", "float"},
};

constexpr AttributeRow kNonAmbientLight[] = {
    {"decayRate", "de", "enum", {}, 0, kKeyable, "No Decay:Linear:Quadratic:Cubic"},
    {"useDepthMapShadows", "dms", "bool"},
    {"dmapResolution", "dr", "short", {}, 512},
    {"dmapFilterSize", "fs", "short", {}, 1},
    {"dmapBias", "db", "float", {}, 0.001},
    {"dmapName", "mn", "string"},
    {"lightAngle", "la", "angle"},
    {"useMidDistDmap", "md", "bool", {}, 1},
    {"useDmapAutoFocus", "af", "bool", {}, 1},
};

constexpr AttributeRow kNonExtendedLight[] = {
    {"fogIntensity", "fi", "float", {}, 1},
    {"fogRadius", "fr", "float", {}, 1},
};

constexpr AttributeRow kSpotLight[] = {
    {"coneAngle", "ca", "angle", {}, 40, kKeyable},
    {"penumbraAngle", "pa", "angle", {}, 0, kKeyable},
    {"dropoff", "dro", "double", {}, 0, kKeyable},
    {"barnDoors", "bd", "bool"},
    {"leftBarnDoor", "lbd", "angle", {}, 20},
    {"rightBarnDoor", "rbd", "angle", {}, 20},
    {"topBarnDoor", "tbd", "angle", {}, 20},
    {"bottomBarnDoor", "bbd", "angle", {}, 20},
    {"useDecayRegions", "ddr", "bool"},
};

constexpr TypeRow kTypes[] = {
    {"light", "shape", api::kLight, kLight},
    {"renderLight", "light", api::kLight},
    {"ambientLight", "renderLight", api::kAmbientLight, kAmbientLight},
    {"nonAmbientLightShapeNode", "renderLight", api::kNonAmbientLight, kNonAmbientLight},
    {"nonExtendedLightShapeNode", "nonAmbientLightShapeNode", api::kNonExtendedLight, kNonExtendedLight},
    {"directionalLight", "nonExtendedLightShapeNode", api::kDirectionalLight},
    {"pointLight", "nonExtendedLightShapeNode", api::kPointLight},
    {"spotLight", "nonExtendedLightShapeNode", api::kSpotLight, kSpotLight},
    {"areaLight", "nonAmbientLightShapeNode", api::kAreaLight},
    {"volumeLight", "pointLight", api::kVolumeLight},
};

} // namespace

void registerLightTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
