#pragma once

#include "geometry/VertexBinder.h"

#include <maya/MObject.h>
#include <maya/MStatus.h>

namespace tvk {

/// Binds all vertices of a shape by the weights of its skin cluster. Fails, with a message that names the vertex, on
/// weights that cannot be read or do not add up to 1 (which is not asked when each vertex goes wholly to the influence
/// with the greatest weight).
MStatus bindToSkin(const MObject& skinCluster, const ShapeRecord& shape, VertexBinder& binder);

/// The shapes' influences as ranks for equal weights: the order of their nodes.
std::vector<int32_t> influenceRanks(const ShapeRecord& shape);

} // namespace tvk
