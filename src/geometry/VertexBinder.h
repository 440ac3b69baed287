#pragma once

#include "geometry/MatrixPalette.h"
#include "geometry/weightShares.h"
#include "scene/SceneData.h"

#include <vector>

namespace tvk {

/// Binds the vertices of one shape, in order, to matrices of the model.
class VertexBinder {
public:
    /// All must outlive this; shape.influences is complete.
    VertexBinder(const ShapeRecord& shapeRecord, MatrixPalette& matrixPalette, std::vector<int32_t>& vertexMatrixList)
        : shape(shapeRecord), palette(matrixPalette), vertexMatrices(vertexMatrixList) {}

    /// The next vertex follows shape.influences as `shares` says; without any, the shape's own node.
    void bind(const std::vector<InfluenceShare>& shares);
    /// All vertices follow one node.
    void bindAll(NodeRecord& node);

private:
    const ShapeRecord& shape;
    MatrixPalette& palette;
    std::vector<int32_t>& vertexMatrices;
    std::vector<EnvelopeEntry> entries; // of the vertex at hand, kept for its memory
};

} // namespace tvk
