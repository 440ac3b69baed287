#include "material/textureReferences.h"

#include "scene/Run.h"

namespace tvk {

int32_t referTo(int32_t imageIndex, TextureTiling tilingS, TextureTiling tilingT) {
    constexpr int64_t kTilings = kTilingFlip + 1;
    SceneData& scene = run().scene;
    const int64_t key = (imageIndex * kTilings + tilingS) * kTilings + tilingT;
    const auto position = static_cast<int32_t>(scene.textureRefs.size());
    const auto [place, isNew] = scene.textureLookup.refOfImageAndTiling.emplace(key, position);
    if (isNew) {
        MaterialTextureRef ref;
        ref.position = position;
        ref.index = position;
        ref.imageIndex = imageIndex;
        ref.tilingS = tilingS;
        ref.tilingT = tilingT;
        scene.textureRefs.push_back(ref);
    }
    return place->second;
}

} // namespace tvk
