#include "host/nodes/apiTypes.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kPlace2d[] = {
    {"uvCoord", "uv", "float2", "uCoord u vCoord v"},
    {"uvFilterSize", "fs", "float2", "uvFilterSizeX fsx uvFilterSizeY fsy"},
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
    {"rotateUV", "r", "angle", {}, 0, kKeyable},
    {"noiseUV", "n", "float2", "noiseU nu noiseV nv", 0, kKeyable},
    {"fast", "fa", "bool"},
    {"vertexUvOne", "vt1", "float2", "vertexUvOneU t1u vertexUvOneV t1v"},
    {"vertexUvTwo", "vt2", "float2", "vertexUvTwoU t2u vertexUvTwoV t2v"},
    {"vertexUvThree", "vt3", "float2", "vertexUvThreeU t3u vertexUvThreeV t3v"},
    {"vertexCameraOne", "vc1", "float3", "vertexCameraOneX c1x vertexCameraOneY c1y vertexCameraOneZ c1z"},
    {"doTransform", "dt", "bool", {}, 1},
    {"outUV", "o", "float2", "outU ou outV ov"},
    {"outUvFilterSize", "ofs", "float2", "outUvFilterSizeX ofsx outUvFilterSizeY ofsy"},
};

constexpr AttributeRow kUvChooser[] = {
    {"uvSets", "uvs", "string", {}, 0, kArray},
    {"uvCoord", "uv", "float2", "uCoord u vCoord v"},
    {"vertexUvOne", "vt1", "float2", "vertexUvOneU t1u vertexUvOneV t1v"},
    {"vertexUvTwo", "vt2", "float2", "vertexUvTwoU t2u vertexUvTwoV t2v"},
    {"vertexUvThree", "vt3", "float2", "vertexUvThreeU t3u vertexUvThreeV t3v"},
    {"vertexCameraOne", "vc1", "float3", "vertexCameraOneX c1x vertexCameraOneY c1y vertexCameraOneZ c1z"},
    {"outUv", "ouv", "float2", "outU ou outV ov"},
    {"outVertexUvOne", "ov1", "float2", "outVertexUvOneU o1u outVertexUvOneV o1v"},
    {"outVertexUvTwo", "ov2", "float2", "outVertexUvTwoU o2u outVertexUvTwoV o2v"},
    {"outVertexUvThree", "ov3", "float2", "outVertexUvThreeU o3u outVertexUvThreeV o3v"},
    {"outVertexCameraOne", "oc1", "float3",
     "outVertexCameraOneX oc1x outVertexCameraOneY oc1y outVertexCameraOneZ oc1z"},
};

constexpr TypeRow kTypes[] = {
    {"place2dTexture", "shadingDependNode", api::kPlace2dTexture, kPlace2d},
    {"place3dTexture", "transform", api::kPlace3dTexture},
    {"uvChooser", "shadingDependNode", api::kUvChooser, kUvChooser},
};

} // namespace

void registerPlacementTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
