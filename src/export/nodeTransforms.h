#pragma once

#include "scene/NodeRecord.h"

#include <maya/MMatrix.h>
#include <maya/MStatus.h>

#include <functional>
#include <optional>

namespace tvk {

/// The world matrix that a driver of a deformer had when it was bound, in the host's units; nothing when it has none.
using BindPoseLookup = std::function<std::optional<MMatrix>(const NodeRecord&)>;

/// Reads the static transform of every node of the run at the current time: own and united set, pivot offset, local and
/// exported world matrix, scale compensation. Nodes that are not exempt from the bind pose get the pose that `bindPose`
/// finds, and a warning when it finds none. Fails when a node is no transform.
MStatus readNodeTransforms(const BindPoseLookup& bindPose);

/// What one node's channels say at the current time, brought to the exported frame: its own set relative to its
/// record's parent, before any bind pose. Used for the static pose and for every sampled frame.
MStatus readOwnSet(const NodeRecord& node, TransformSet& set);

/// The set of a sampled frame at the current time: readOwnSet, or where a united node stands in the world.
MStatus readSampledSet(const NodeRecord& node, TransformSet& set);

} // namespace tvk
