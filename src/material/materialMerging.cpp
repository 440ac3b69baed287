#include "material/materialMerging.h"

#include <cstring>

namespace tvk {
namespace {

// Floats are compared exactly. The two zeros are one number.
int32_t bitsOf(float value) {
    const float number = value == 0.0F ? 0.0F : value;
    int32_t bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

template <typename List>
void append(MergeKey& key, const List& values) {
    key.insert(key.end(), values.begin(), values.end());
}

} // namespace

MergeKey mergeKeyOf(const MaterialRecord& record) {
    const TexturePlacement& placement = record.placement;
    const bool animatesTexture = record.texPatternAnimated || record.texSrtAnimated;
    MergeKey key{record.face,
                 record.wireMode ? 1 : 0,
                 record.depthTestDecal ? 1 : 0,
                 record.translucentUpdateDepth ? 1 : 0,
                 record.render1Pixel ? 1 : 0,
                 record.farClip ? 1 : 0,
                 record.polygonMode,
                 record.polygonId,
                 record.fog ? 1 : 0,
                 record.lightingEnabled ? 1 : 0,
                 record.isDummy ? 1 : 0,
                 record.noCompress ? 1 : 0,
                 record.alpha,
                 record.hasSpecular ? 1 : 0,
                 record.shininessTable ? 1 : 0,
                 record.textureRef,
                 bitsOf(placement.scale[0]),
                 bitsOf(placement.scale[1]),
                 bitsOf(placement.rotate),
                 bitsOf(placement.translate[0]),
                 bitsOf(placement.translate[1]),
                 record.texGenMode,
                 record.texGenStSrc,
                 animatesTexture ? record.textureSource : -1};
    append(key, record.lights);
    append(key, record.diffuse);
    append(key, record.ambient);
    append(key, record.specular);
    append(key, record.emission);
    append(key, record.texEffectMatrixFx);
    return key;
}

bool mayMerge(const MaterialRecord& record) {
    return !record.noCompress && !record.colorAnimated && !record.isDummy;
}

} // namespace tvk
