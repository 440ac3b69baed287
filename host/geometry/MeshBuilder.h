#pragma once

#include "host/geometry/MeshData.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <unordered_map>
#include <vector>

namespace host {

/// Makes a mesh from points, edges and faces in the order in which they are added. Faces are given by their vertices;
/// an edge between two of them that was not added before is added then, soft.
class MeshBuilder {
public:
    std::int32_t addPoint(const Imath::V3d& point);
    std::int32_t addUv(double u, double v);
    void addEdge(std::int32_t from, std::int32_t to, bool smooth);
    /// `uvs` has as many ids as there are vertices, or none: the face is not mapped.
    void addFace(const std::vector<std::int32_t>& vertices, const std::vector<std::int32_t>& uvs);

    std::int32_t pointCount() const { return static_cast<std::int32_t>(points_->size()); }
    std::int32_t uvCount() const { return static_cast<std::int32_t>(uvs_->size()); }

    /// The mesh, with one UV set "map1". The builder is empty afterwards.
    std::shared_ptr<MeshData> finish();

private:
    std::int32_t cornerEdge(std::int32_t from, std::int32_t to);

    std::shared_ptr<Points> points_ = std::make_shared<Points>();
    std::shared_ptr<std::vector<Imath::V2f>> uvs_ = std::make_shared<std::vector<Imath::V2f>>();
    std::shared_ptr<PolyFaces> faces_ = std::make_shared<PolyFaces>();
    std::shared_ptr<FaceIds> uvIds_ = std::make_shared<FaceIds>();
    std::vector<MeshEdge> edges_;
    std::unordered_map<std::uint64_t, std::int32_t> edgeOfVertices_; // lower vertex above the higher one
};

} // namespace host
