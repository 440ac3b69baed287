#include "host/geometry/MeshBuilder.h"
#include "host/geometry/cutValues.h"
#include "host/geometry/subdivision.h"

#include <utility>

namespace host {

namespace {

using Imath::V3d;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

/// Rounds points as they are cut. An edge is inner when two faces meet there that are cut, a vertex when all of its
/// edges are; all else stays, middles of edges halfway.
class Rounder {
public:
    Rounder(const MeshTopology& topology, const Points& points, const CutMesh& cut)
        : topology_(topology), points_(points), cut_(cut), rounded_(at(cut.topology->vertexCount())) {}

    Points run() {
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (cut_.faceMiddles[at(face)] != kGone) {
                rounded_[at(cut_.faceMiddles[at(face)])] = middleOf(face);
            }
        }
        for (std::int32_t edge = 0; edge < topology_.edgeCount(); ++edge) {
            if (cut_.edgeMiddles[at(edge)] != kGone) {
                rounded_[at(cut_.edgeMiddles[at(edge)])] = edgePoint(edge);
            }
        }
        for (std::int32_t vertex = 0; vertex < topology_.vertexCount(); ++vertex) {
            rounded_[at(vertex)] = vertexPoint(vertex);
        }
        return Points(rounded_.begin(), rounded_.end());
    }

private:
    V3d pointOf(std::int32_t vertex) const { return V3d(points_[at(vertex)]); }

    V3d middleOf(std::int32_t face) const {
        V3d sum(0.0);
        for (std::int32_t k = 0; k < topology_.cornerCount(face); ++k) {
            sum += pointOf(topology_.verticesOf(face)[k]);
        }
        return sum / topology_.cornerCount(face);
    }

    V3d halfway(std::int32_t edge) const {
        const MeshEdge& ends = topology_.edges()[at(edge)];
        return (pointOf(ends.start) + pointOf(ends.end)) / 2.0;
    }

    bool isInner(std::int32_t edge) const {
        const IndexLists& faces = topology_.facesOfEdge();
        return faces.count(edge) == 2 && cut_.faceMiddles[at(faces.begin(edge)[0])] != kGone &&
               cut_.faceMiddles[at(faces.begin(edge)[1])] != kGone;
    }

    V3d facePoint(std::int32_t face) const { return rounded_[at(cut_.faceMiddles[at(face)])]; }

    V3d edgePoint(std::int32_t edge) const {
        if (!isInner(edge)) {
            return halfway(edge);
        }
        const std::int32_t* faces = topology_.facesOfEdge().begin(edge);
        return (2.0 * halfway(edge) + facePoint(faces[0]) + facePoint(faces[1])) / 4.0;
    }

    V3d vertexPoint(std::int32_t vertex) const {
        const IndexLists& edges = topology_.edgesOfVertex();
        const IndexLists& corners = topology_.cornersOfVertex();
        const double count = edges.count(vertex);
        if (count < 3 || corners.count(vertex) != edges.count(vertex) ||
            !std::all_of(edges.begin(vertex), edges.end(vertex), [&](std::int32_t edge) { return isInner(edge); })) {
            return pointOf(vertex);
        }
        V3d ofFaces(0.0);
        V3d ofEdges(0.0);
        for (const std::int32_t* corner = corners.begin(vertex); corner != corners.end(vertex); ++corner) {
            ofFaces += facePoint(topology_.cornerFaces()[at(*corner)]);
        }
        for (const std::int32_t* edge = edges.begin(vertex); edge != edges.end(vertex); ++edge) {
            ofEdges += halfway(*edge);
        }
        return (ofFaces / count + 2.0 * ofEdges / count + (count - 3.0) * pointOf(vertex)) / count;
    }

    const MeshTopology& topology_;
    const Points& points_;
    const CutMesh& cut_;
    std::vector<V3d> rounded_;
};

/// A UV set is rounded as the flat mesh that its faces are there: its borders are those of the set. All faces are cut.
void smoothUvs(const CutMesh& cut, UvSet& set) {
    MeshBuilder builder;
    for (const Imath::V2f& point : *set.points) {
        builder.addPoint({point.x, point.y, 0.0});
    }
    Ids corners;
    for (std::size_t i = 0; i < set.ids->faces.size(); ++i) {
        corners.assign(set.ids->ids.begin() + set.ids->starts[i], set.ids->ids.begin() + set.ids->starts[i + 1]);
        builder.addFace(corners, {});
    }
    const auto flat = builder.finish();
    const CutMesh cutFlat = cutIntoQuads(*flat->topology, std::vector<bool>(at(flat->topology->faceCount()), true));
    auto ids = std::make_shared<FaceIds>();
    auto points = std::make_shared<std::vector<Imath::V2f>>();
    for (const Imath::V3f& point : Rounder(*flat->topology, *flat->points, cutFlat).run()) {
        points->emplace_back(point.x, point.y);
    }
    for (std::size_t i = 0; i < set.ids->faces.size(); ++i) {
        const std::int32_t face = set.ids->faces[i];
        for (std::int32_t part = cut.firstFace[at(face)]; part < cut.firstFace[at(face + 1)]; ++part) {
            ids->faces.push_back(part);
        }
    }
    ids->ids = cutFlat.topology->cornerVertices();
    for (std::int32_t part = 1; part <= cutFlat.topology->faceCount(); ++part) {
        ids->starts.push_back(cutFlat.topology->firstCorner(part));
    }
    set.points = std::move(points);
    set.ids = std::move(ids);
}

std::shared_ptr<MeshData> smoothedOnce(const MeshData& mesh, const SmoothRules& rules) {
    const CutMesh cut = cutIntoQuads(*mesh.topology, std::vector<bool>(at(mesh.topology->faceCount()), true));
    auto made = std::make_shared<MeshData>(mesh);
    std::vector<MeshEdge> edges = cut.topology->edges();
    for (MeshEdge& edge : edges) {
        edge.smooth = edge.smooth || !rules.keepsHardness;
    }
    std::string problem;
    made->topology = MeshTopology::make(cut.topology->vertexCount(), std::move(edges), cut.topology->faces(), problem);
    made->points = std::make_shared<const Points>(Rounder(*mesh.topology, *mesh.points, cut).run());
    made->userNormals = nullptr;
    const bool hasWholeFaces =
        std::find(cut.faceMiddles.begin(), cut.faceMiddles.end(), kGone) != cut.faceMiddles.end();
    for (UvSet& set : made->uvSets) {
        if (rules.smoothsUvs && !hasWholeFaces) {
            smoothUvs(cut, set);
        } else {
            cutValues(*mesh.topology, cut, set.points, set.ids);
        }
    }
    for (ColorSet& set : made->colorSets) {
        cutValues(*mesh.topology, cut, set.colors, set.ids);
    }
    carryGroups(cut, made->groups);
    return made;
}

} // namespace

std::shared_ptr<MeshData> smoothFaces(const MeshData& mesh, std::int32_t levels, const SmoothRules& rules) {
    auto made = std::make_shared<MeshData>(mesh);
    for (std::int32_t level = 0; level < levels; ++level) {
        made = smoothedOnce(*made, rules);
    }
    return made;
}

} // namespace host
