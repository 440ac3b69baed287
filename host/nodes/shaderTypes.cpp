#include "host/nodes/apiTypes.h"
#include "host/nodes/shadingCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kLambert[] = {
    {"color", "c", "float3", "RGB", 0.5, kKeyable | kColor},
    {"transparency", "it", "float3", "RGB", 0, kKeyable | kColor},
    {"ambientColor", "ambc", "float3", "RGB=ac", 0, kKeyable | kColor},
    {"incandescence", "ic", "float3", "RGB=i", 0, kKeyable | kColor},
    {"diffuse", "dc", "float", {}, 0.8, kKeyable},
    {"translucence", "tc", "float", {}, 0, kKeyable},
    {"translucenceFocus", "tcf", "float", {}, 0.5, kKeyable},
    {"translucenceDepth", "trsd", "float", {}, 0.5, kKeyable},
    {"normalCamera", "n", "float3", "XYZ", 1},
    {"glowIntensity", "gi", "float", {}, 0, kKeyable},
    {"hideSource", "hs", "bool"},
    {"matteOpacity", "mog", "float", {}, 1, kKeyable},
    {"matteOpacityMode", "mom", "enum", {}, 2, 0, "Black Hole:Solid Matte:Opacity Gain"},
    {"surfaceThickness", "thk", "float"},
    {"shadowAttenuation", "fsa", "float", {}, 0.5},
    {"transparencyDepth", "trd", "float"},
    {"lightAbsorbance", "absb", "float"},
    {"chromaticAberration", "crab", "bool"},
    {"refractions", "rfc", "bool"},
    {"refractiveIndex", "rfi", "float", {}, 1, kKeyable},
    {"refractionLimit", "rdl", "short", {}, 6},
    {"objectId", "oi", "long"},
    {"primitiveId", "pi", "long"},
    {"pointCamera", "p", "float3", "XYZ"},
    {"rayDirection", "rd", "float3", "XYZ=r"},
    {"raySampler", "rms", "any"},
    {"rayDepth", "rdep", "short"},
    {"lightDataArray", "ltd", "any", {}, 0, kArray},
    {"materialAlphaGain", "mag", "float", {}, 1},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
    {"outMatteOpacity", "omo", "float3", "RGB", 1},
    {"outGlowColor", "ogc", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kReflect[] = {
    {"specularColor", "sc", "float3", "RGB=s", 0.5, kKeyable | kColor},
    {"reflectivity", "rfl", "float", {}, 0.5, kKeyable},
    {"reflectedColor", "rc", "float3", "RGB=r", 0, kKeyable | kColor},
    {"reflectionLimit", "fll", "short", {}, 1},
    {"reflectionSpecularity", "rsp", "float", {}, 1},
    {"triangleNormalCamera", "tnc", "float3", "XYZ=tn", {0, 1, 0}},
};

constexpr AttributeRow kBlinn[] = {
    {"eccentricity", "ec", "float", {}, 0.3, kKeyable},
    {"specularRollOff", "sro", "float", {}, 0.7, kKeyable},
    {"reflectionRolloff", "rro", "float", {}, 1},
};

constexpr AttributeRow kPhong[] = {
    {"cosinePower", "cp", "float", {}, 20, kKeyable},
};

constexpr AttributeRow kPhongE[] = {
    {"roughness", "rn", "float", {}, 0.7, kKeyable},
    {"highlightSize", "hls", "float", {}, 0.5, kKeyable},
    {"whiteness", "wn", "float3", "RGB", 0.5, kKeyable | kColor},
};

constexpr AttributeRow kAnisotropic[] = {
    {"angle", "ag", "float", {}, 0, kKeyable},
    {"spreadX", "sx", "float", {}, 13, kKeyable},
    {"spreadY", "sy", "float", {}, 3, kKeyable},
    {"roughness", "r", "float", {}, 0.7, kKeyable},
    {"fresnelRefractiveIndex", "fri", "float", {}, 9.5, kKeyable},
    {"anisotropicReflectivity", "arf", "bool", {}, 1},
    {"uvSetTangents", "tngt", "any"},
};

constexpr AttributeRow kSurfaceShader[] = {
    {"outColor", "oc", "float3", "RGB", 0, kKeyable | kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kKeyable | kColor},
    {"outGlowColor", "ogc", "float3", "RGB", 0, kKeyable | kColor},
    {"outMatteOpacity", "omo", "float3", "RGB", 1},
    {"materialAlphaGain", "mag", "float", {}, 1},
};

constexpr AttributeRow kShadingMap[] = {
    {"color", "c", "float3", "RGB", 0.5, kColor},
    {"shadingMapColor", "smc", "float3", "RGB", 0.5, kColor},
    {"uvCoord", "uv", "float2", "uCoord u vCoord v"},
    {"uvFilterSize", "fs", "float2", "uvFilterSizeX fsx uvFilterSizeY fsy"},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kLayeredShader[] = {
    {"inputs", "cs", "compound", {}, 0, kArray},
    {".color", "c", "float3", "RGB", 0, kColor},
    {".transparency", "t", "float3", "RGB", 0, kColor},
    {".glowColor", "g", "float3", "RGB", 0, kColor},
    {"compositingFlag", "cf", "enum", {}, 0, 0, "Layer Shader:Layer Texture"},
    {"hardwareColor", "hc", "float3", "RGB", 0.5, kColor},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
    {"outGlowColor", "ogc", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kUseBackground[] = {
    {"specularColor", "sc", "float3", "RGB", 0, kKeyable | kColor},
    {"reflectivity", "rfl", "float", {}, 0.5, kKeyable},
    {"reflectionLimit", "fll", "short", {}, 1},
    {"shadowMask", "sm", "float", {}, 1, kKeyable},
    {"matteOpacity", "mog", "float", {}, 1},
    {"matteOpacityMode", "mom", "enum", {}, 2, 0, "Black Hole:Solid Matte:Opacity Gain"},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
};

// A ramp's entries are named "transparency[0].transparency_Color" and so on.
constexpr AttributeRow kRampShader[] = {
    {"color", "clr", "compound", {}, 0, kArray},
    {".color_Position", "clrp", "float"},
    {".color_Color", "clrc", "float3", "RGB", 0.5, kColor},
    {".color_Interp", "clri", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"transparency", "it", "compound", {}, 0, kArray},
    {".transparency_Position", "itp", "float"},
    {".transparency_Color", "itc", "float3", "RGB", 0, kColor},
    {".transparency_Interp", "iti", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"incandescence", "ic", "compound", {}, 0, kArray},
    {".incandescence_Position", "icp", "float"},
    {".incandescence_Color", "icc", "float3", "RGB", 0, kColor},
    {".incandescence_Interp", "ici", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"specularColor", "sc", "compound", {}, 0, kArray},
    {".specularColor_Position", "scp", "float"},
    {".specularColor_Color", "scc", "float3", "RGB", 0.5, kColor},
    {".specularColor_Interp", "sci", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"ambientColor", "ambc", "float3", "RGB=ac", 0, kKeyable | kColor},
    {"colorInput", "cin", "enum", {}, 0, 0, "Light Angle:Facing Angle:Brightness:Normalized Brightness"},
    {"diffuse", "dc", "float", {}, 0.8, kKeyable},
    {"specularity", "spc", "float", {}, 0.5, kKeyable},
    {"eccentricity", "ec", "float", {}, 0.3, kKeyable},
    {"forwardScatter", "fsc", "float"},
    {"translucence", "tc", "float", {}, 0, kKeyable},
    {"translucenceFocus", "tcf", "float", {}, 0.5, kKeyable},
    {"translucenceDepth", "trsd", "float", {}, 0.5, kKeyable},
    {"glowIntensity", "gi", "float", {}, 0, kKeyable},
    {"reflectedColor", "rc", "compound", {}, 0, kArray},
    {".reflectedColor_Position", "rcp", "float"},
    {".reflectedColor_Color", "rcc", "float3", "RGB", 0, kColor},
    {".reflectedColor_Interp", "rci", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"reflectivity", "rfl", "compound", {}, 0, kArray},
    {".reflectivity_Position", "rflp", "float"},
    {".reflectivity_FloatValue", "rflfv", "float"},
    {".reflectivity_Interp", "rfli", "enum", {}, 1, 0, "None:Linear:Smooth:Spline"},
    {"normalCamera", "n", "float3", "XYZ", 1},
    {"matteOpacity", "mog", "float", {}, 1},
    {"matteOpacityMode", "mom", "enum", {}, 2, 0, "Black Hole:Solid Matte:Opacity Gain"},
    {"refractions", "rfc", "bool"},
    {"refractiveIndex", "rfi", "float", {}, 1},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
    {"outGlowColor", "ogc", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kOceanShader[] = {
    {"scale", "scl", "float", {}, 1},
    {"waterColor", "wc", "float3", "RGB", 0.5, kColor},
    {"foamColor", "fmc", "float3", "RGB", 1, kColor},
    {"transparency", "it", "float3", "RGB", 0, kKeyable | kColor},
    {"refractiveIndex", "rfi", "float", {}, 1.3},
    {"specularColor", "sc", "float3", "RGB=s", 0.5, kKeyable | kColor},
    {"specularity", "spc", "float", {}, 1},
    {"eccentricity", "ec", "float", {}, 0.05},
    {"diffuse", "dc", "float", {}, 0.8, kKeyable},
    {"glowIntensity", "gi", "float", {}, 0, kKeyable},
    {"time", "ti", "float"},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
    {"outGlowColor", "ogc", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kStandardSurface[] = {
    {"base", "b", "float", {}, 1, kKeyable},
    {"baseColor", "bc", "float3", "RGB", 0.8, kKeyable | kColor},
    {"diffuseRoughness", "dr", "float", {}, 0, kKeyable},
    {"metalness", "m", "float", {}, 0, kKeyable},
    {"specular", "s", "float", {}, 1, kKeyable},
    {"specularColor", "sc", "float3", "RGB", 1, kKeyable | kColor},
    {"specularRoughness", "sr", "float", {}, 0.2, kKeyable},
    {"specularIOR", "sio", "float", {}, 1.5, kKeyable},
    {"specularAnisotropy", "sa", "float", {}, 0, kKeyable},
    {"specularRotation", "sro", "float", {}, 0, kKeyable},
    {"transmission", "t", "float", {}, 0, kKeyable},
    {"transmissionColor", "tc", "float3", "RGB", 1, kKeyable | kColor},
    {"transmissionDepth", "td", "float", {}, 0, kKeyable},
    {"transmissionScatter", "ts", "float3", "RGB", 0, kColor},
    {"transmissionDispersion", "tdi", "float"},
    {"transmissionExtraRoughness", "ter", "float"},
    {"subsurface", "ss", "float", {}, 0, kKeyable},
    {"subsurfaceColor", "ssc", "float3", "RGB", 1, kKeyable | kColor},
    {"subsurfaceRadius", "ssr", "float3", "RGB", 1, kColor},
    {"subsurfaceScale", "sss", "float", {}, 1},
    {"subsurfaceAnisotropy", "ssa", "float"},
    {"coat", "ct", "float", {}, 0, kKeyable},
    {"coatColor", "coc", "float3", "RGB", 1, kKeyable | kColor},
    {"coatRoughness", "cor", "float", {}, 0.1, kKeyable},
    {"coatIOR", "cio", "float", {}, 1.5},
    {"sheen", "sh", "float", {}, 0, kKeyable},
    {"sheenColor", "shc", "float3", "RGB", 1, kKeyable | kColor},
    {"sheenRoughness", "shr", "float", {}, 0.3},
    {"emission", "e", "float", {}, 0, kKeyable},
    {"emissionColor", "ec", "float3", "RGB", 1, kKeyable | kColor},
    {"opacity", "o", "float3", "RGB", 1, kKeyable | kColor},
    {"thinWalled", "tw", "bool"},
    {"normalCamera", "n", "float3", "XYZ", 1},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kBump[] = {
    {"bumpValue", "bv", "float"},
    {"bumpDepth", "bd", "float", {}, 1, kKeyable},
    {"bumpInterp", "bi", "enum", {}, 0, 0, "Bump:Tangent Space Normals:Object Space Normals"},
    {"bumpFilter", "bf", "float", {}, 1},
    {"bumpFilterOffset", "bfo", "float"},
    {"bumpNormal", "bn", "float3", "XYZ"},
    {"provide3dInfo", "p3d", "bool"},
    {"normalCamera", "n", "float3", "XYZ", 1},
    {"tangentUCamera", "tu", "float3", "XYZ"},
    {"tangentVCamera", "tv", "float3", "XYZ"},
    {"pointCamera", "pc", "float3", "XYZ"},
    {"rayOrigin", "ro", "float3", "XYZ"},
    {"vertexCameraOne", "vc1", "float3", "vertexCameraOneX c1x vertexCameraOneY c1y vertexCameraOneZ c1z"},
    {"vertexCameraTwo", "vc2", "float3", "vertexCameraTwoX c2x vertexCameraTwoY c2y vertexCameraTwoZ c2z"},
    {"vertexCameraThree", "vc3", "float3", "vertexCameraThreeX c3x vertexCameraThreeY c3y vertexCameraThreeZ c3z"},
    {"outNormal", "o", "float3", "XYZ", 0, kComputed},
};

constexpr AttributeRow kDisplacement[] = {
    {"displacement", "d", "float"},
    {"scale", "sc", "float", {}, 1},
    {"displacementMode", "dm", "enum"},
    {"vectorDisplacement", "vd", "float3", "XYZ"},
};

constexpr AttributeRow kParticleCloud[] = {
    {"color", "c", "float3", "RGB", 0.5, kKeyable | kColor},
    {"transparency", "t", "float3", "RGB", 0, kKeyable | kColor},
    {"incandescence", "i", "float3", "RGB", 0, kKeyable | kColor},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
};

constexpr TypeRow kTypes[] = {
    {"shadingDependNode", "dependNode", api::kDependencyNode},
    {"lambert", "shadingDependNode", api::kLambert, kLambert},
    {"reflect", "lambert", api::kReflect, kReflect},
    {"blinn", "reflect", api::kBlinn, kBlinn},
    {"phong", "reflect", api::kPhong, kPhong},
    {"phongE", "reflect", api::kPhongExplorer, kPhongE},
    {"anisotropic", "reflect", api::kAnisotropy, kAnisotropic},
    {"surfaceShader", "shadingDependNode", api::kSurfaceShader, kSurfaceShader},
    {"shadingMap", "shadingDependNode", api::kShadingMap, kShadingMap},
    {"layeredShader", "shadingDependNode", api::kLayeredShader, kLayeredShader},
    {"useBackground", "shadingDependNode", api::kUseBackground, kUseBackground},
    // Of the Lambert family by function set, though its colours are ramps.
    {"rampShader",
     "shadingDependNode",
     api::kRampShader,
     kRampShader,
     {DagRole::kNone, nullptr, {}, false, api::kLambert}},
    {"oceanShader",
     "shadingDependNode",
     api::kOceanShader,
     kOceanShader,
     {DagRole::kNone, nullptr, {}, false, api::kLambert}},
    {"standardSurface", "shadingDependNode", api::kStandardSurface, kStandardSurface},
    {"bump2d", "shadingDependNode", api::kBump, kBump, {DagRole::kNone, computeBump}},
    {"bump3d", "shadingDependNode", api::kBump3d, kBump, {DagRole::kNone, computeBump}},
    {"displacementShader", "shadingDependNode", api::kDisplacementShader, kDisplacement},
    {"particleCloud", "shadingDependNode", api::kParticleCloud, kParticleCloud},
    {"volumeShader", "shadingDependNode", api::kVolumeShader},
    {"volumeFog", "shadingDependNode", api::kVolumeFog},
    {"envFog", "shadingDependNode", api::kEnvFogMaterial},
    {"hairTubeShader", "reflect", api::kHairTubeShader},
    {"shaderGlow", "shadingDependNode", api::kShaderGlow},
};

} // namespace

void registerShaderTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
