#pragma once

#include "scene/TextureRecord.h"

#include <cstdint>

namespace tvk {

/// Finds or adds the combination of an image and its tiling in SceneData::textureRefs; gives its place there.
///   imageIndex   in SceneData::textures
int32_t referTo(int32_t imageIndex, TextureTiling tilingS, TextureTiling tilingT);

} // namespace tvk
