#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// Adds the current time's colours to the channels of every animated material: 0 to 31, a diffuse colour times its
/// coefficient may be more.
void sampleMaterialColors(SceneData& scene);

/// Adds the current time's placement to the channels of every texture whose placement is animated.
void samplePlacements(SceneData& scene);

} // namespace tvk
