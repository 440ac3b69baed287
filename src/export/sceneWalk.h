#pragma once

#include "scene/NodeRecord.h"

#include <maya/MDagPath.h>
#include <maya/MStatus.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tvk {

/// The node's own name, namespace included. Fails, with two messages, when there is no DAG node to read at the path.
MStatus readNodeName(const MDagPath& path, std::string& name);

/// Instances of instances multiply: a few dozen nodes can stand for more paths than any memory holds. The console's own
/// limit lies far below.
inline constexpr std::size_t kNodeLimit = 1000000;

/// Walks the scene by the run's access mode and makes one record per DAG path that enters the model: transforms and
/// joints, parents before their children, children in DAG order, with kind, flags, paths and scene.parent filled. What
/// is left out: cameras, lights, constraints, IK and the like, unless something exportable hangs below them, and nodes
/// that are switched off, with all below them.
/// Fails, with messages, on an unknown access mode, an unreadable node, a node whose shown meshes are all originals,
/// and more than `limit` nodes.
MStatus walkScene(std::vector<std::unique_ptr<NodeRecord>>& records, std::size_t limit = kNodeLimit);

} // namespace tvk
