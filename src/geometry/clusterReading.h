#pragma once

#include "geometry/VertexBinder.h"
#include "geometry/skinSource.h"

#include <maya/MStatus.h>

namespace tvk {

/// Binds all vertices of a shape to the drivers of its joint clusters: each vertex wholly to the nearest cluster in
/// whose set it is, to the shape's own node when it is in none. Cluster i is influence i of the shape. A cluster
/// without a set is warned of and skipped.
MStatus bindToJointClusters(const SkinSource& source, const ShapeRecord& shape, VertexBinder& binder);

/// The same for clusters with weights, which may share a vertex; what they leave of it belongs to the shape's own node,
/// which is the shape's last influence. Fails, with a message that names the vertex, on weights above 1 and on such
/// that cannot be read.
MStatus bindToClusters(const SkinSource& source, const ShapeRecord& shape, VertexBinder& binder);

} // namespace tvk
