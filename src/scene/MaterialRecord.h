#pragma once

#include "scene/AnimTrack.h"
#include "scene/plugDriver.h"

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tvk {

/// Red, green, blue and alpha in the console's 5 bits: 0 to 31.
using Color5 = std::array<int32_t, 4>;

/// The channels of a material that can be keyed, in the order that the files have them.
enum class ColorChannel : uint8_t {
    kDiffuseR,
    kDiffuseG,
    kDiffuseB,
    kAmbientR,
    kAmbientG,
    kAmbientB,
    kSpecularR,
    kSpecularG,
    kSpecularB,
    kEmissionR,
    kEmissionG,
    kEmissionB,
    kAlpha
};
inline constexpr std::size_t kColorChannelCount = 13;

/// Where texture coordinates come from. The numbers index the words that the files use.
enum TexGenMode : int32_t { kTexGenNone, kTexGenTex, kTexGenNrm, kTexGenPos };

struct ColorChannelRecord {
    MPlug plug; // null for a channel that the shader does not have
    PlugDriver driver;
    AnimTrack track; // 0 to 31
};

/// Repeat, rotate and translate of a texture as the artist placed it.
struct TexturePlacement {
    std::array<float, 2> scale{1.0F, 1.0F};
    float rotate = 0.0F; // degrees, -180 to below 180
    std::array<float, 2> translate{};
    bool isIdentity = true;
};

/// One material of the model.
struct MaterialRecord {
    MObject shadingGroup; // null of the dummy material
    MObject shader;
    MFn::Type type = MFn::kInvalid; // of the shader
    int32_t outputIndex = 0;        // position in the written list, once it is sorted
    std::string sourceName;         // the shader's; of merged materials the smallest
    std::string name;               // the written one: unique in the end
    std::array<bool, 4> lights{true, false, false, false};
    bool lightingEnabled = true; // any of the lights
    int32_t face = 0;            // 0 front, 1 back, 2 both
    bool wireMode = false;
    bool depthTestDecal = false;
    bool translucentUpdateDepth = false;
    bool render1Pixel = false;
    bool farClip = false;
    int32_t polygonMode = 0; // 0 modulate, 1 decal, 2 toon_highlight, 3 shadow; kept as the artist set it
    int32_t polygonId = 0;
    bool fog = false;
    bool isDummy = false;
    bool noCompress = false;
    int32_t renderPriority = 0; // 1 to 255; 0 when none is asked for
    int32_t alpha = 31;         // 0 to 31
    Color5 diffuse{31, 31, 31, 31};
    Color5 ambient{0, 0, 0, 31};
    Color5 specular{0, 0, 0, 31};
    Color5 emission{0, 0, 0, 31};
    float diffuseCoeff = 1.0F;
    bool alphaFromTransparency = true; // else from a file texture's gain
    bool hasSpecular = false;
    bool shininessTable = false;
    int32_t textureSource = -1; // index in SceneData::textureSources; -1 when untextured
    int32_t textureRef = -1;    // index in SceneData::textureRefs; -1 when untextured
    bool texPatternAnimated = false;
    bool texSrtAnimated = false;
    TexturePlacement placement;
    int32_t texGenMode = kTexGenNone;
    int32_t texGenStSrc = 1; // 0 polygon, 1 material
    /// The texture effect matrix row by row, with 12 fractional bits, and as it was read.
    std::array<int32_t, 16> texEffectMatrixFx{4096, 0, 0, 0, 0, 4096, 0, 0, 0, 0, 4096, 0, 0, 0, 0, 4096};
    std::array<float, 16> texEffectMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    bool colorAnimated = false; // some channel below is
    std::array<ColorChannelRecord, kColorChannelCount> channels;
};

} // namespace tvk
