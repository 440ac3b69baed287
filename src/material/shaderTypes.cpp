#include "material/shaderTypes.h"

#include <maya/MFnLambertShader.h>
#include <maya/MStatus.h>

#include <algorithm>
#include <array>

namespace tvk {
namespace {

constexpr ShaderType kPlainShader{MFn::kLambert, true, false, "color", "transparencyR"};

// A shading map and a surface shader have their rows for hosts that count them among the Lambert family.
constexpr std::array<ShaderType, 10> kShaderTypes{{
    {MFn::kBlinn, true, true, "color", "transparencyR"},
    {MFn::kPhong, true, true, "color", "transparencyR"},
    {MFn::kPhongExplorer, true, true, "color", "transparencyR"},
    {MFn::kAnisotropy, true, true, "color", "transparencyR"},
    {MFn::kShadingMap, true, false, "shadingMapColor", "transparencyR"},
    {MFn::kSurfaceShader, true, false, "outColor", "outTransparencyR"},
    {MFn::kLayeredShader, false, false, "color", "transparencyR"},
    {MFn::kUseBackground, false, false, "color", "transparencyR"},
    {MFn::kRampShader, false, false, "color", "transparencyR"},
    {MFn::kOceanShader, false, false, "color", "transparencyR"},
}};

} // namespace

const ShaderType& shaderTypeOf(const MObject& shader) {
    const MFn::Type type = shader.apiType();
    const auto* const row = std::find_if(kShaderTypes.begin(), kShaderTypes.end(),
                                         [&](const ShaderType& candidate) { return candidate.type == type; });
    return row != kShaderTypes.end() ? *row : kPlainShader;
}

bool isExportedShader(MObject shader) {
    MStatus status;
    const MFnLambertShader function(shader, &status);
    return status && shaderTypeOf(shader).exported;
}

} // namespace tvk
