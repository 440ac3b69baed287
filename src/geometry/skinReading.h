#pragma once

#include "geometry/MatrixPalette.h"
#include "geometry/NodeLookup.h"
#include "geometry/shapeHistory.h"
#include "scene/SceneData.h"

#include <maya/MStatus.h>

namespace tvk {

/// Reads which nodes drive the vertices of a shape and appends a matrix per vertex to the run's list. Fills the
/// shape's influences, its world at binding and whether it is skinned. Needs the shape's vertex count and world.
/// Fails, with a message, on weights that cannot be read or do not add up, and on influences that are not exported.
/// Under unite all vertices are on the root, whatever drives them.
MStatus readSkin(const ShapeHistory& history, const NodeLookup& nodes, MatrixPalette& palette, ShapeRecord& shape);

/// Warns of more matrices than the console holds at a time. Called once, when all shapes are read.
void checkMatrixCount(const SceneData& scene);

} // namespace tvk
