#pragma once

#include "scene/NodeRecord.h"

namespace tvk {

/// The host's world matrix of what lies above a node's topmost exported ancestor, translation times `magnify`: the
/// space in which a selection is exported. The identity when that is the world.
MMatrix outerWorldOf(const NodeRecord& node, double magnify);

} // namespace tvk
