#include "host/geometry/MeshBuilder.h"
#include "host/geometry/polyPrimitives.h"

#include <algorithm>

namespace host {

namespace {

/// Border edges are hard, the others soft; every vertex has its edge to the right before its edge to the next row.
void addEdges(MeshBuilder& builder, std::int32_t across, std::int32_t deep) {
    for (std::int32_t row = 0; row <= deep; ++row) {
        for (std::int32_t i = 0; i <= across; ++i) {
            const std::int32_t vertex = row * (across + 1) + i;
            if (i < across) {
                builder.addEdge(vertex, vertex + 1, row != 0 && row != deep);
            }
            if (row < deep) {
                builder.addEdge(vertex, vertex + across + 1, i != 0 && i != across);
            }
        }
    }
}

} // namespace

std::shared_ptr<MeshData> makePlane(const PlaneShape& shape) {
    const std::int32_t across = std::max(shape.divisionsWidth, 1);
    const std::int32_t deep = std::max(shape.divisionsHeight, 1);
    if (static_cast<double>(across) * deep > kMostFaces) {
        return std::make_shared<MeshData>();
    }
    MeshBuilder builder;
    for (std::int32_t row = 0; row <= deep; ++row) {
        const double v = static_cast<double>(row) / deep;
        for (std::int32_t i = 0; i <= across; ++i) {
            const double u = static_cast<double>(i) / across;
            builder.addPoint({(u - 0.5) * shape.width, 0.0, (0.5 - v) * shape.height});
            if (shape.uvs) {
                builder.addUv(u, v);
            }
        }
    }
    addEdges(builder, across, deep);
    for (std::int32_t row = 0; row < deep; ++row) {
        for (std::int32_t i = 0; i < across; ++i) {
            const std::int32_t corner = row * (across + 1) + i;
            const std::vector<std::int32_t> ids{corner, corner + 1, corner + across + 2, corner + across + 1};
            builder.addFace(ids, shape.uvs ? ids : std::vector<std::int32_t>());
        }
    }
    return builder.finish();
}

} // namespace host
