#include "host/geometry/meshEdits.h"

#include "host/geometry/skinning.h"

#include <algorithm>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;

/// Puts meshes behind each other.
class Uniter {
public:
    void add(const MeshData& mesh, const Matrix44& matrix) {
        const auto firstVertex = static_cast<std::int32_t>(points_.size());
        const auto firstEdge = static_cast<std::int32_t>(edges_.size());
        for (const V3f& point : *mesh.points) {
            points_.push_back(V3f(V3d(point) * matrix));
        }
        for (const MeshEdge& edge : mesh.topology->edges()) {
            edges_.push_back({edge.start + firstVertex, edge.end + firstVertex, edge.smooth});
        }
        const std::int32_t firstFace = faces_->faceCount();
        addFaces(*mesh.topology->faces(), firstEdge);
        addSets(uvSets_, mesh.uvSets, firstFace);
        addSets(colorSets_, mesh.colorSets, firstFace);
        addNormals(mesh, matrix);
    }

    std::shared_ptr<MeshData> finish() {
        std::string problem;
        const auto vertexCount = static_cast<std::int32_t>(points_.size());
        united_->topology = MeshTopology::make(vertexCount, std::move(edges_), std::move(faces_), problem);
        united_->points = std::make_shared<const Points>(std::move(points_));
        if (hasNormals_) {
            united_->userNormals = std::make_shared<const Points>(std::move(normals_));
        }
        for (GrowingUvs& growing : uvSets_) {
            growing.set.points = std::move(growing.values);
            growing.set.ids = std::move(growing.ids);
            united_->uvSets.push_back(std::move(growing.set));
        }
        for (GrowingColors& growing : colorSets_) {
            growing.set.colors = std::move(growing.values);
            growing.set.ids = std::move(growing.ids);
            united_->colorSets.push_back(std::move(growing.set));
        }
        return std::move(united_);
    }

private:
    void addFaces(const PolyFaces& more, std::int32_t firstEdge) {
        const auto firstLoop = static_cast<std::int32_t>(faces_->loopStarts.size()) - 1;
        const auto firstCorner = static_cast<std::int32_t>(faces_->edges.size());
        for (const std::int32_t edge : more.edges) {
            faces_->edges.push_back(edge >= 0 ? edge + firstEdge : edge - firstEdge);
        }
        for (std::size_t i = 1; i < more.loopStarts.size(); ++i) {
            faces_->loopStarts.push_back(more.loopStarts[i] + firstCorner);
        }
        for (std::size_t i = 1; i < more.faceStarts.size(); ++i) {
            faces_->faceStarts.push_back(more.faceStarts[i] + firstLoop);
        }
    }

    /// A set that grows: its values and ids as long as they can be changed.
    template <typename Set, typename Value>
    struct GrowingSet {
        Set set;
        std::shared_ptr<std::vector<Value>> values = std::make_shared<std::vector<Value>>();
        std::shared_ptr<FaceIds> ids = std::make_shared<FaceIds>();
    };
    using GrowingUvs = GrowingSet<UvSet, Imath::V2f>;
    using GrowingColors = GrowingSet<ColorSet, Imath::V4f>;

    static const std::vector<Imath::V2f>& valuesOf(const UvSet& set) { return *set.points; }
    static const std::vector<Imath::V4f>& valuesOf(const ColorSet& set) { return *set.colors; }

    template <typename Growing, typename Set>
    static void addSets(std::vector<Growing>& sets, const std::vector<Set>& more, std::int32_t firstFace) {
        for (const Set& set : more) {
            auto found =
                std::find_if(sets.begin(), sets.end(), [&](const Growing& each) { return each.set.name == set.name; });
            if (found == sets.end()) {
                sets.emplace_back();
                found = sets.end() - 1;
                found->set = set;
            }
            const auto firstValue = static_cast<std::int32_t>(found->values->size());
            found->values->insert(found->values->end(), valuesOf(set).begin(), valuesOf(set).end());
            addIds(*found->ids, *set.ids, firstFace, firstValue);
        }
    }

    static void addIds(FaceIds& ids, const FaceIds& more, std::int32_t firstFace, std::int32_t firstValue) {
        const std::int32_t firstId = ids.starts.back();
        for (std::size_t i = 0; i < more.faces.size(); ++i) {
            ids.faces.push_back(more.faces[i] + firstFace);
            ids.starts.push_back(more.starts[i + 1] + firstId);
        }
        for (const std::int32_t id : more.ids) {
            ids.ids.push_back(id >= 0 ? id + firstValue : id);
        }
    }

    void addNormals(const MeshData& mesh, const Matrix44& matrix) {
        const auto count = static_cast<std::size_t>(mesh.topology->normalFans().count);
        if (mesh.userNormals == nullptr) {
            normals_.insert(normals_.end(), count, V3f(2 * MeshData::kNotSet));
            return;
        }
        const Points turned = turnNormals(mesh, matrix);
        normals_.insert(normals_.end(), turned.begin(), turned.end());
        hasNormals_ = true;
    }

    std::shared_ptr<MeshData> united_ = std::make_shared<MeshData>();
    Points points_, normals_;
    std::vector<MeshEdge> edges_;
    std::shared_ptr<PolyFaces> faces_ = std::make_shared<PolyFaces>();
    std::vector<GrowingUvs> uvSets_;
    std::vector<GrowingColors> colorSets_;
    bool hasNormals_ = false;
};

} // namespace

std::shared_ptr<MeshData> uniteMeshes(const std::vector<std::pair<MeshPtr, Matrix44>>& meshes) {
    Uniter uniter;
    for (const auto& [mesh, matrix] : meshes) {
        uniter.add(*mesh, matrix);
    }
    return uniter.finish();
}

} // namespace host
