#pragma once

#include "scene/TextureSourceRecord.h"

namespace tvk {

/// Fills placementNode, uvChooser, placement, the placement's plugs with what drives them, and texSrtAnimated.
///   source   with its fileNode; stays at the defaults when that has no placement node
void readPlacement(TextureSourceRecord& source);

/// An angle in degrees, brought into -180 to below 180; not-a-number for infinite angles.
float placementDegrees(double radians);

} // namespace tvk
