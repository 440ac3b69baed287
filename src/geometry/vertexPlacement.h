#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// Computes where the file has every vertex, once the nodes' exported worlds are final: output and bounding points of
/// all shapes, the position scale that each shape alone needs and that of the model, and the box of all output points.
///   united   nodes are united: all points are in the model's space
/// Points must be finite. Takes time linear in the vertices.
void placeVertices(SceneData& scene, bool united);

} // namespace tvk
