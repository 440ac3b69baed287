#pragma once

#include <maya/MStatus.h>

namespace tvk {

/// Reads all mesh shapes of the run's nodes into SceneData::shapes, in node order: points and normals at the exported
/// pose, checks against the original mesh, and what drives the vertices (SceneData::matrices, envelope,
/// vertexMatrices). Afterwards the matrices are counted and the nodes that they name marked. Deformers have their node
/// states back in the end, whatever happened. Fails, with a message, on the first shape that cannot be exported.
/// United models leave out meshes that are hidden, with a warning each.
MStatus readShapes();

} // namespace tvk
