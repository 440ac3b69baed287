#include "host/nodes/apiTypes.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kTexture2d[] = {
    {"uvCoord", "uv", "float2", "uCoord u vCoord v"},
    {"uvFilterSize", "fs", "float2", "uvFilterSizeX fsx uvFilterSizeY fsy"},
    {"filter", "f", "float", {}, 1, kKeyable},
    {"filterOffset", "fo", "float", {}, 0, kKeyable},
    {"invert", "i", "bool"},
    {"alphaIsLuminance", "ail", "bool"},
    {"colorGain", "cg", "float3", "RGB", 1, kKeyable | kColor},
    {"colorOffset", "co", "float3", "RGB", 0, kKeyable | kColor},
    {"alphaGain", "ag", "float", {}, 1, kKeyable},
    {"alphaOffset", "ao", "float", {}, 0, kKeyable},
    {"defaultColor", "dc", "float3", "RGB", 0.5, kKeyable | kColor},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outAlpha", "oa", "float"},
};

constexpr AttributeRow kFile[] = {
    {"fileTextureName", "ftn", "string", {}, 0, kFileName},
    {"fileTextureNamePattern", "ftnp", "string"},
    {"computedFileTextureNamePattern", "cftnp", "string"},
    {"useFrameExtension", "ufe", "bool"},
    {"frameExtension", "fe", "long", {}, 1, kKeyable},
    {"frameOffset", "fof", "long"},
    {"useHardwareTextureCycling", "uhc", "bool"},
    {"startCycleExtension", "sce", "long"},
    {"endCycleExtension", "ece", "long"},
    {"byCycleIncrement", "bci", "long", {}, 1},
    {"forceSwatchGen", "fsg", "bool"},
    {"filterType", "ft", "enum", {}, 3, 0, "Off:Mipmap:Box:Quadratic:Quartic:Gaussian"},
    {"filterWidth", "fw", "float", {}, 1},
    {"preFilter", "pf", "bool"},
    {"preFilterRadius", "pfr", "float", {}, 2},
    {"useCache", "uca", "bool"},
    {"useMaximumRes", "umr", "bool"},
    {"doTransform", "dt", "bool", {}, 1},
    {"coverage", "c", "float2", "coverageU cu coverageV cv", 1, kKeyable},
    {"translateFrame", "tf", "float2", "translateFrameU tfu translateFrameV tfv", 0, kKeyable},
    {"rotateFrame", "rf", "angle", {}, 0, kKeyable},
    {"mirrorU", "mu", "bool"},
    {"mirrorV", "mv", "bool"},
    {"stagger", "s", "bool"},
    {"wrapU", "wu", "bool", {}, 1},
    {"wrapV", "wv", "bool", {}, 1},
    {"repeatUV", "re", "float2", "repeatU reu repeatV rev", 1, kKeyable},
    {"offset", "of", "float2", "offsetU ofu offsetV ofv", 0, kKeyable},
    {"rotateUV", "ro", "angle", {}, 0, kKeyable},
    {"noiseUV", "n", "float2", "noiseU nu noiseV nv"},
    {"blurPixelation", "bp", "bool"},
    {"vertexUvOne", "vt1", "float2", "vertexUvOneU t1u vertexUvOneV t1v"},
    {"vertexUvTwo", "vt2", "float2", "vertexUvTwoU t2u vertexUvTwoV t2v"},
    {"vertexUvThree", "vt3", "float2", "vertexUvThreeU t3u vertexUvThreeV t3v"},
    {"vertexCameraOne", "vc1", "float3", "vertexCameraOneX c1x vertexCameraOneY c1y vertexCameraOneZ c1z"},
    {"fileHasAlpha", "fha", "bool"},
    {"outSize", "os", "float2", "outSizeX osx outSizeY osy"},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
    {"disableFileLoad", "dfl", "bool"},
    {"uvTilingMode", "uvt", "enum", {}, 0, 0, "Off:0-based (ZBrush):1-based (Mudbox):UDIM (Mari):Explicit Tiles"},
    {"baseExplicitUvTilePosition", "beuvp", "short2",
     "baseExplicitUvTilePositionU beuvpu baseExplicitUvTilePositionV beuvpv"},
    {"explicitUvTiles", "euvt", "any", {}, 0, kArray},
    {"uvTileProxyQuality", "uvtpq", "enum"},
    {"colorSpace", "cs", "string"},
    {"ignoreColorSpaceFileRules", "ifr", "bool"},
    {"workingSpace", "ws", "string"},
    {"colorManagementEnabled", "cme", "bool"},
    {"colorManagementConfigFileEnabled", "cmcf", "bool"},
    {"colorManagementConfigFilePath", "cmcp", "string"},
    {"colorProfile", "cp", "any"},
    {"exposure", "exp", "float", {}, 0, kKeyable},
    {"hdrMapping", "hm", "enum"},
    {"hdrExposure", "he", "float"},
};

constexpr AttributeRow kPsdFile[] = {
    {"layerSetName", "lsn", "string"},
    {"layerSets", "lys", "string", {}, 0, kArray},
    {"alpha", "alp", "string"},
    {"alphaList", "als", "string", {}, 0, kArray},
};

constexpr AttributeRow kBulge[] = {
    {"uWidth", "uw", "float", {}, 0.1, kKeyable},
    {"vWidth", "vw", "float", {}, 0.1, kKeyable},
};

constexpr AttributeRow kChecker[] = {
    {"color1", "c1", "float3", "color1R c1r color1G c1g color1B c1b", 1, kKeyable | kColor},
    {"color2", "c2", "float3", "color2R c2r color2G c2g color2B c2b", 0, kKeyable | kColor},
    {"contrast", "ct", "float", {}, 1, kKeyable},
};

constexpr AttributeRow kCloth[] = {
    {"gapColor", "gc", "float3", "RGB=g", 0.3, kKeyable | kColor},
    {"uColor", "uc", "float3", "RGB", 0.7, kKeyable | kColor},
    {"vColor", "vc", "float3", "RGB", 0.5, kKeyable | kColor},
    {"uWidth", "uw", "float", {}, 0.75, kKeyable},
    {"vWidth", "vw", "float", {}, 0.75, kKeyable},
    {"uWave", "uwv", "float"},
    {"vWave", "vwv", "float"},
    {"randomness", "ra", "float"},
    {"widthSpread", "ws", "float"},
    {"brightSpread", "bs", "float"},
};

constexpr AttributeRow kFractal[] = {
    {"amplitude", "a", "float", {}, 1, kKeyable},
    {"threshold", "th", "float", {}, 0, kKeyable},
    {"ratio", "ra", "float", {}, 0.707, kKeyable},
    {"frequencyRatio", "fr", "float", {}, 2, kKeyable},
    {"levelMin", "lmn", "float"},
    {"levelMax", "lmx", "float", {}, 9},
    {"bias", "b", "float"},
    {"inflection", "in", "bool"},
    {"animated", "an", "bool"},
    {"time", "ti", "float"},
    {"timeRatio", "tr", "float", {}, 2},
};

constexpr AttributeRow kGrid[] = {
    {"lineColor", "lc", "float3", "RGB", 1, kKeyable | kColor},
    {"fillerColor", "fc", "float3", "RGB", 0, kKeyable | kColor},
    {"uWidth", "uw", "float", {}, 0.1, kKeyable},
    {"vWidth", "vw", "float", {}, 0.1, kKeyable},
    {"contrast", "ct", "float", {}, 1, kKeyable},
};

constexpr AttributeRow kMountain[] = {
    {"snowColor", "sc", "float3", "RGB", 1, kKeyable | kColor},
    {"rockColor", "rc", "float3", "RGB", 0, kKeyable | kColor},
    {"amplitude", "a", "float", {}, 1, kKeyable},
    {"snowRoughness", "sr", "float", {}, 0.4},
    {"rockRoughness", "rr", "float", {}, 0.707},
    {"boundary", "bo", "float", {}, 1},
    {"snowAltitude", "sa", "float", {}, 0.5},
    {"snowDropoff", "sd", "float", {}, 2},
    {"snowSlope", "ss", "float", {}, 0.8},
    {"depthMax", "dm", "float", {}, 20},
};

constexpr AttributeRow kNoise[] = {
    {"threshold", "th", "float", {}, 0, kKeyable},
    {"amplitude", "a", "float", {}, 1, kKeyable},
    {"ratio", "ra", "float", {}, 0.77, kKeyable},
    {"frequencyRatio", "fr", "float", {}, 2, kKeyable},
    {"depthMax", "dm", "short", {}, 3},
    {"inflection", "in", "bool"},
    {"time", "ti", "float", {}, 0, kKeyable},
    {"frequency", "fq", "float", {}, 8, kKeyable},
    {"implode", "im", "float"},
    {"implodeCenter", "imc", "float2", "implodeCenterU imu implodeCenterV imv", 0.5},
    {"noiseType", "nty", "enum", {}, 2},
    {"density", "d", "float", {}, 1},
    {"spottyness", "sp", "float", {}, 0.1},
    {"sizeRand", "srnd", "float"},
    {"randomness", "rnd", "float", {}, 1},
    {"falloff", "fof", "enum"},
    {"numWaves", "nw", "short", {}, 5},
};

constexpr AttributeRow kRamp[] = {
    {"type",
     "t",
     "enum",
     {},
     0,
     0,
     "V Ramp:U Ramp:Diagonal Ramp:Radial Ramp:Circular Ramp:Box Ramp:UV Ramp:Four Corner Ramp:Tartan Ramp"},
    {"interpolation", "in", "enum", {}, 1, 0, "None:Linear:Exponential Up:Exponential Down:Smooth:Bump:Spike"},
    {"colorEntryList", "cel", "compound", {}, 0, kArray},
    {".position", "ep", "float"},
    {".color", "ec", "float3", "RGB", 0, kColor},
    {"uWave", "uw", "float"},
    {"vWave", "vw", "float"},
    {"noise", "n", "float"},
    {"noiseFreq", "nf", "float", {}, 0.5},
    {"hueNoise", "hn", "float"},
    {"hueNoiseFreq", "hnf", "float", {}, 0.5},
    {"satNoise", "sn", "float"},
    {"satNoiseFreq", "snf", "float", {}, 0.5},
    {"valNoise", "vn", "float"},
    {"valNoiseFreq", "vnf", "float", {}, 0.5},
};

constexpr AttributeRow kStencil[] = {
    {"image", "im", "float3", "RGB", 1, kColor},
    {"mask", "ma", "float", {}, 1},
    {"edgeBlend", "eb", "float"},
    {"keyMasking", "km", "bool"},
    {"positiveKey", "pk", "bool"},
    {"colorKey", "ck", "float3", "RGB", 0.5, kColor},
    {"hueRange", "hr", "float"},
    {"satRange", "sr", "float"},
    {"valueRange", "vr", "float"},
};

constexpr AttributeRow kWater[] = {
    {"numberOfWaves", "nw", "short", {}, 8},
    {"waveTime", "wti", "float"},
    {"waveVelocity", "wv", "float", {}, 1},
    {"waveAmplitude", "wa", "float", {}, 0.05},
    {"waveFrequency", "wf", "float", {}, 4},
    {"subWaveFrequency", "swf", "float", {}, 0.125},
    {"smoothness", "s", "float", {}, 2},
    {"windUV", "wi", "float2", "windU wiu windV wiv", 1},
    {"rippleTime", "rti", "float"},
    {"rippleFrequency", "rf", "float", {}, 25},
    {"rippleAmplitude", "ra", "float", {}, 0.05},
    {"dropSize", "ds", "float", {}, 0.3},
    {"spreadStart", "ss", "float", {}, 0.005},
    {"spreadRate", "sr", "float", {}, 0.3},
    {"reflectionBox", "rb", "bool"},
};

constexpr AttributeRow kProjection[] = {
    {"image", "im", "float3", "RGB", 1, kColor},
    {"transparency", "it", "float3", "RGB", 0, kColor},
    {"placementMatrix", "pm", "matrix"},
    {"projType", "t", "enum", {}, 1, 0, "Off:Planar:Spherical:Cylindrical:Ball:Cubic:TriPlanar:Concentric:Perspective"},
    {"uAngle", "ua", "angle", {}, 180},
    {"vAngle", "va", "angle", {}, 90},
    {"local", "lo", "bool"},
    {"wrap", "w", "bool", {}, 1},
    {"linkedCamera", "lc", "any"},
};

constexpr AttributeRow kLayeredTexture[] = {
    {"inputs", "cs", "compound", {}, 0, kArray},
    {".color", "c", "float3", "RGB", 0, kColor},
    {".alpha", "a", "float", {}, 1},
    {".blendMode",
     "bm",
     "enum",
     {},
     1,
     0,
     "None:Over:In:Out:Add:Subtract:Multiply:Difference:Lighten:Darken:Saturate:Desaturate:Illuminate"},
    {".isVisible", "iv", "bool", {}, 1},
    {"alphaIsLuminance", "ail", "bool"},
    {"hardwareColor", "hc", "float3", "RGB", 0.5, kColor},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outAlpha", "oa", "float"},
    {"outTransparency", "ot", "float3", "RGB", 0, kColor},
};

constexpr AttributeRow kTexture3d[] = {
    {"placementMatrix", "pm", "matrix"},
    {"blend", "b", "float"},
    {"local", "lo", "bool"},
    {"wrap", "w", "bool", {}, 1},
    {"invert", "i", "bool"},
    {"alphaIsLuminance", "ail", "bool"},
    {"colorGain", "cg", "float3", "RGB", 1, kKeyable | kColor},
    {"colorOffset", "co", "float3", "RGB", 0, kKeyable | kColor},
    {"alphaGain", "ag", "float", {}, 1, kKeyable},
    {"alphaOffset", "ao", "float", {}, 0, kKeyable},
    {"defaultColor", "dc", "float3", "RGB", 0.5, kKeyable | kColor},
    {"filter", "f", "float", {}, 1},
    {"filterOffset", "fo", "float"},
    {"outColor", "oc", "float3", "RGB", 0, kColor},
    {"outAlpha", "oa", "float"},
};

constexpr TypeRow kTypes[] = {
    {"texture2d", "shadingDependNode", api::kTexture2d, kTexture2d},
    {"file", "texture2d", api::kFileTexture, kFile},
    {"movie", "file", api::kFileTexture},
    {"psdFileTex", "file", api::kPsdFileTexture, kPsdFile},
    {"bulge", "texture2d", api::kBulge, kBulge},
    {"checker", "texture2d", api::kChecker, kChecker},
    {"cloth", "texture2d", api::kCloth, kCloth},
    {"fractal", "texture2d", api::kFractal, kFractal},
    {"grid", "texture2d", api::kGrid, kGrid},
    {"mountain", "texture2d", api::kMountain, kMountain},
    {"noise", "texture2d", api::kNoise, kNoise},
    {"ocean", "texture2d", api::kOcean},
    {"ramp", "texture2d", api::kRamp, kRamp},
    {"stencil", "texture2d", api::kStencil, kStencil},
    {"water", "texture2d", api::kWater, kWater},
    {"fluidTexture2D", "texture2d", api::kFluidTexture2D},
    {"mandelbrot", "texture2d", api::kMandelbrot},
    {"substance", "texture2d", api::kSubstance},
    {"projection", "shadingDependNode", api::kProjection, kProjection},
    {"layeredTexture", "shadingDependNode", api::kLayeredTexture, kLayeredTexture},
    {"texture3d", "shadingDependNode", api::kTexture3d, kTexture3d},
    {"brownian", "texture3d", api::kBrownian},
    {"cloud", "texture3d", api::kCloud},
    {"crater", "texture3d", api::kCrater},
    {"granite", "texture3d", api::kGranite},
    {"leather", "texture3d", api::kLeather},
    {"marble", "texture3d", api::kMarble},
    {"rock", "texture3d", api::kRock},
    {"snow", "texture3d", api::kSnow},
    {"solidFractal", "texture3d", api::kSolidFractal},
    {"stucco", "texture3d", api::kStucco},
    {"volumeNoise", "texture3d", api::kVolumeNoise},
    {"wood", "texture3d", api::kWood},
    {"fluidTexture3D", "texture3d", api::kFluidTexture3D},
    {"mandelbrot3D", "texture3d", api::kMandelbrot3D},
    {"textureEnv", "shadingDependNode", api::kTextureEnv},
    {"envBall", "textureEnv", api::kEnvBall},
    {"envChrome", "textureEnv", api::kEnvChrome},
    {"envCube", "textureEnv", api::kEnvCube},
    {"envSky", "textureEnv", api::kEnvSky},
    {"envSphere", "textureEnv", api::kEnvSphere},
};

} // namespace

void registerTextureTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
