#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// Marks exactly the nodes that a matrix or an envelope entry names (NodeRecord::drawMtx). Node compression leaves
/// those nodes, so that no two matrices become the same through it.
void markMatrixNodes(SceneData& scene);

/// Gives matrices, envelope entries and polygons the output indices of their nodes, once the output list stands. The
/// lists stay in the order of their first use.
void resolveNodeReferences(SceneData& scene);

} // namespace tvk
