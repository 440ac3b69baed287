#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// Turns every sampled channel of the run into its encoded record and fills the pools of SceneData: the channels of the
/// written nodes, then the colours of animated materials, then the placements of animated textures, in list order.
/// Steps, tolerances and the kind of curve are those of the run's options. The samples are freed.
void encodeChannels(SceneData& scene);

} // namespace tvk
