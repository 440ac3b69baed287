#pragma once

#include "host/graph/Graph.h"

#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace host {

/// Which output of a deformer a path's shape gets; nothing for a shape that it does not deform.
std::optional<std::int32_t> deformedIndex(const MObject& filter, const MDagPath& path);

/// The vertices that a component names, ascending; all of the shape's when it is null or complete. kFailure for
/// components of another kind, and for vertices that the shape does not have.
MStatus verticesOf(Node& shape, const MObject& component, std::vector<std::int32_t>& vertices);

} // namespace host
