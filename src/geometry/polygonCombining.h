#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// Makes one polygon of all that have the same material and the same flags, before the tables are filled: the first of
/// them keeps its name and place and gets the faces of the others, in their order; those are dropped. Materials must be
/// settled.
void combinePolygons(SceneData& scene);

} // namespace tvk
