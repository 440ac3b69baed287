#include "geometry/nodeReferences.h"

namespace tvk {

void markMatrixNodes(SceneData& scene) {
    for (const auto& node : scene.nodes) {
        node->drawMtx = false;
    }
    for (const MatrixRecord& matrix : scene.matrices) {
        if (!matrix.isBlend()) {
            matrix.node->drawMtx = true;
        }
    }
    for (const EnvelopeEntry& entry : scene.envelope) {
        entry.node->drawMtx = true;
    }
}

void resolveNodeReferences(SceneData& scene) {
    for (MatrixRecord& matrix : scene.matrices) {
        matrix.nodeIndex = matrix.isBlend() ? -1 : matrix.node->index;
    }
    for (EnvelopeEntry& entry : scene.envelope) {
        entry.nodeIndex = entry.node->index;
    }
    for (PolygonRecord& polygon : scene.polygons) {
        polygon.nodeIndex = polygon.node->index;
    }
}

} // namespace tvk
