#include "host/geometry/triangulation.h"

#include "host/geometry/meshNumbers.h"

#include <algorithm>
#include <map>
#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

/// Makes the faces of a mesh anew, some as triangles.
class FaceCutter {
public:
    FaceCutter(const MeshData& mesh, const std::vector<bool>& chosen)
        : mesh_(mesh), topology_(*mesh.topology), chosen_(chosen), edges_(topology_.edges()) {}

    std::shared_ptr<MeshData> run() {
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            firstNew_.push_back(faces_->faceCount());
            if (chosen_[at(face)] && !topology_.hasHoles(face) && topology_.cornerCount(face) > 3) {
                cut(face);
            } else {
                copy(face);
            }
        }
        firstNew_.push_back(faces_->faceCount());
        auto made = std::make_shared<MeshData>(mesh_);
        std::string problem;
        made->topology = MeshTopology::make(topology_.vertexCount(), std::move(edges_), std::move(faces_), problem);
        carryCorners(mesh_, *made, cornerFrom_);
        for (ComponentGroup& group : made->groups) {
            group.components = withParts(*group.components, ComponentKind::kFace, firstNew_);
        }
        return made;
    }

private:
    void closeFace() {
        faces_->loopStarts.push_back(static_cast<std::int32_t>(faces_->edges.size()));
        faces_->faceStarts.push_back(static_cast<std::int32_t>(faces_->loopStarts.size()) - 1);
    }

    void copy(std::int32_t face) {
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            for (std::int32_t corner = topology_.firstCornerOfLoop(face, loop);
                 corner < topology_.firstCornerOfLoop(face, loop + 1); ++corner) {
                faces_->edges.push_back(topology_.cornerEdges()[at(corner)]);
                cornerFrom_.push_back(corner);
            }
            if (loop + 1 < topology_.loopCount(face)) {
                faces_->loopStarts.push_back(static_cast<std::int32_t>(faces_->edges.size()));
            }
        }
        closeFace();
    }

    void cut(std::int32_t face) {
        const std::int32_t first = topology_.firstCorner(face);
        const std::int32_t count = topology_.cornerCount(face);
        std::vector<Imath::V3d> polygon;
        for (std::int32_t i = 0; i < count; ++i) {
            polygon.emplace_back((*mesh_.points)[at(topology_.verticesOf(face)[i])]);
        }
        std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> diagonals; // by corners, lower first
        for (const Triangle& triangle : triangulate(polygon)) {
            for (std::size_t i = 0; i < triangle.size(); ++i) {
                const std::int32_t from = triangle[i];
                const std::int32_t to = triangle[(i + 1) % triangle.size()];
                const bool isSide = to == (from + 1) % count;
                faces_->edges.push_back(isSide ? topology_.cornerEdges()[at(first + from)]
                                               : diagonal(face, from, to, diagonals));
                cornerFrom_.push_back(first + from);
            }
            closeFace();
        }
    }

    std::int32_t diagonal(std::int32_t face, std::int32_t from, std::int32_t to,
                          std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t>& known) {
        const auto [entry, added] = known.emplace(std::minmax(from, to), static_cast<std::int32_t>(edges_.size()));
        if (added) {
            edges_.push_back({topology_.verticesOf(face)[from], topology_.verticesOf(face)[to], true});
            return entry->second;
        }
        return -entry->second - 1; // the triangle on the other side walks it backward
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    const std::vector<bool>& chosen_;
    std::vector<MeshEdge> edges_;
    std::shared_ptr<PolyFaces> faces_ = std::make_shared<PolyFaces>();
    Ids cornerFrom_, firstNew_; // per new corner, the old one; per old face, its first new one
};

} // namespace

std::shared_ptr<MeshData> triangulateFaces(const MeshData& mesh, const std::vector<bool>& chosen) {
    return FaceCutter(mesh, chosen).run();
}

} // namespace host
