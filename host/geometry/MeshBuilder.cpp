#include "host/geometry/MeshBuilder.h"

#include <algorithm>
#include <string>
#include <utility>

namespace host {

namespace {

std::uint64_t keyOf(std::int32_t a, std::int32_t b) {
    constexpr unsigned kBits = 32;
    const auto low = static_cast<std::uint64_t>(std::min(a, b));
    return (low << kBits) | static_cast<std::uint32_t>(std::max(a, b));
}

} // namespace

std::int32_t MeshBuilder::addPoint(const Imath::V3d& point) {
    points_->push_back(Imath::V3f(point));
    return pointCount() - 1;
}

std::int32_t MeshBuilder::addUv(double u, double v) {
    uvs_->emplace_back(static_cast<float>(u), static_cast<float>(v));
    return uvCount() - 1;
}

void MeshBuilder::addEdge(std::int32_t from, std::int32_t to, bool smooth) {
    if (edgeOfVertices_.emplace(keyOf(from, to), static_cast<std::int32_t>(edges_.size())).second) {
        edges_.push_back({from, to, smooth});
    }
}

std::int32_t MeshBuilder::cornerEdge(std::int32_t from, std::int32_t to) {
    addEdge(from, to, true);
    const std::int32_t edge = edgeOfVertices_.at(keyOf(from, to));
    return edges_[static_cast<std::size_t>(edge)].start == from ? edge : -edge - 1;
}

void MeshBuilder::addFace(const std::vector<std::int32_t>& vertices, const std::vector<std::int32_t>& uvs) {
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        faces_->edges.push_back(cornerEdge(vertices[i], vertices[i + 1 == vertices.size() ? 0 : i + 1]));
    }
    faces_->loopStarts.push_back(static_cast<std::int32_t>(faces_->edges.size()));
    faces_->faceStarts.push_back(static_cast<std::int32_t>(faces_->loopStarts.size()) - 1);
    if (!uvs.empty()) {
        uvIds_->faces.push_back(faces_->faceCount() - 1);
        uvIds_->ids.insert(uvIds_->ids.end(), uvs.begin(), uvs.end());
        uvIds_->starts.push_back(static_cast<std::int32_t>(uvIds_->ids.size()));
    }
}

std::shared_ptr<MeshData> MeshBuilder::finish() {
    auto mesh = std::make_shared<MeshData>();
    std::string problem;
    mesh->topology = MeshTopology::make(pointCount(), std::move(edges_), std::move(faces_), problem);
    mesh->points = std::move(points_);
    UvSet set;
    set.name = "map1";
    set.points = std::move(uvs_);
    set.ids = std::move(uvIds_);
    mesh->uvSets.push_back(std::move(set));
    *this = MeshBuilder();
    return mesh;
}

} // namespace host
