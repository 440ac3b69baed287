#pragma once

#include "scene/NodeRecord.h"

#include <maya/MStatus.h>

#include <functional>

namespace tvk {

/// What a node's channels say at the current time, brought to the exported frame: relative to its record's parent, or,
/// of a united node, to the model.
using NodeSetReader = std::function<MStatus(const NodeRecord&, TransformSet&)>;

/// Steps the host through the run's frame range once, first frame first, and records per frame: every node's effective
/// visibility (its own and that of all ancestors); the transforms of the written nodes, folded ancestors taken in;
/// colours of animated materials when the ima file is asked for, placements of animated textures when the ita file is.
/// Rotations are conditioned afterwards. The host's time is the same at the end. What cannot be read counts as 0, as 1
/// for a scale. Fails, with a message, on a range of more than 524,287 frames.
MStatus sampleAnimation(const NodeSetReader& readSet);

} // namespace tvk
