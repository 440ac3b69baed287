#pragma once

#include "scene/NodeRecord.h"

#include <maya/MStatus.h>

#include <memory>
#include <vector>

namespace tvk {

/// Walks the scene by the run's access mode and makes one record per DAG path that enters the model: transforms and
/// joints, parents before their children, children in DAG order, with kind, flags, paths and scene.parent filled. What
/// is left out: cameras, lights, constraints, IK and the like, unless something exportable hangs below them, and nodes
/// that are switched off, with all below them.
/// Fails, with messages, on an unknown access mode, an unreadable node, and a node whose shown meshes are all
/// originals.
MStatus walkScene(std::vector<std::unique_ptr<NodeRecord>>& records);

} // namespace tvk
