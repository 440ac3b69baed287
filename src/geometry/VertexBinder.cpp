#include "geometry/VertexBinder.h"

namespace tvk {

void VertexBinder::bind(const std::vector<InfluenceShare>& shares) {
    if (shares.empty()) {
        vertexMatrices.push_back(palette.findOrAddMatrix(*shape.node));
        return;
    }
    entries.clear();
    for (const InfluenceShare& share : shares) {
        entries.push_back({share.percent, shape.influences[static_cast<std::size_t>(share.influence)].node, -1});
    }
    vertexMatrices.push_back(palette.findOrAdd(entries));
}

void VertexBinder::bindAll(NodeRecord& node) {
    const int32_t matrix = palette.findOrAddMatrix(node);
    vertexMatrices.insert(vertexMatrices.end(), static_cast<std::size_t>(shape.vertexCount), matrix);
}

} // namespace tvk
