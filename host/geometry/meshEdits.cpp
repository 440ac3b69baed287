#include "host/geometry/meshEdits.h"

#include "host/geometry/meshNumbers.h"
#include "host/geometry/userNormals.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

/// Takes the kept faces out of a mesh.
class FaceKeeper {
public:
    FaceKeeper(const MeshData& mesh, const std::vector<bool>& keeps)
        : mesh_(mesh), topology_(*mesh.topology), numbers_{{}, {}, numberUsed(keeps)} {}

    std::shared_ptr<MeshData> run() {
        findUsed();
        auto kept = std::make_shared<MeshData>(mesh_);
        kept->topology = keptTopology();
        kept->points = std::make_shared<const Points>(pick(*mesh_.points, numbers_.vertices));
        carryCorners(mesh_, *kept, cornerFrom_);
        for (UvSet& set : kept->uvSets) {
            dropUnusedUvs(set);
        }
        for (ComponentGroup& group : kept->groups) {
            group.components = renumbered(*group.components, numbers_);
        }
        return kept;
    }

private:
    void findUsed() {
        std::vector<bool> vertices(at(topology_.vertexCount()), false);
        std::vector<bool> edges(at(topology_.edgeCount()), false);
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (numbers_.faces[at(face)] == kGone) {
                continue;
            }
            for (std::int32_t corner = topology_.firstCorner(face); corner < topology_.firstCorner(face + 1);
                 ++corner) {
                vertices[at(topology_.cornerVertices()[at(corner)])] = true;
                edges[at(MeshTopology::edgeNumber(topology_.cornerEdges()[at(corner)]))] = true;
                cornerFrom_.push_back(corner);
            }
        }
        numbers_.vertices = numberUsed(vertices);
        numbers_.edges = numberUsed(edges);
    }

    std::shared_ptr<const MeshTopology> keptTopology() const {
        std::vector<MeshEdge> edges = pick(topology_.edges(), numbers_.edges);
        for (MeshEdge& edge : edges) {
            edge.start = numbers_.vertices[at(edge.start)];
            edge.end = numbers_.vertices[at(edge.end)];
        }
        auto faces = std::make_shared<PolyFaces>();
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (numbers_.faces[at(face)] != kGone) {
                addFace(face, *faces);
            }
        }
        const auto vertexCount = static_cast<std::int32_t>(
            numbers_.vertices.size() -
            static_cast<std::size_t>(std::count(numbers_.vertices.begin(), numbers_.vertices.end(), kGone)));
        std::string problem;
        return MeshTopology::make(vertexCount, std::move(edges), std::move(faces), problem);
    }

    void addFace(std::int32_t face, PolyFaces& faces) const {
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            for (std::int32_t corner = topology_.firstCornerOfLoop(face, loop);
                 corner < topology_.firstCornerOfLoop(face, loop + 1); ++corner) {
                const std::int32_t edge = topology_.cornerEdges()[at(corner)];
                const std::int32_t number = numbers_.edges[at(MeshTopology::edgeNumber(edge))];
                faces.edges.push_back(edge >= 0 ? number : -number - 1);
            }
            faces.loopStarts.push_back(static_cast<std::int32_t>(faces.edges.size()));
        }
        faces.faceStarts.push_back(static_cast<std::int32_t>(faces.loopStarts.size()) - 1);
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    NewNumbers numbers_;
    Ids cornerFrom_;
};

/// Per corner of the mesh with some faces reversed, the corner that it was.
Ids reversedCorners(const MeshTopology& topology, const std::vector<bool>& reverses) {
    Ids from = identity(topology.cornerCount());
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        for (std::int32_t loop = 0; reverses[at(face)] && loop < topology.loopCount(face); ++loop) {
            std::reverse(from.begin() + topology.firstCornerOfLoop(face, loop) + 1,
                         from.begin() + topology.firstCornerOfLoop(face, loop + 1));
        }
    }
    return from;
}

/// The user normals with those at corners of the chosen faces turned round.
std::shared_ptr<const Points> reversedNormals(const MeshData& mesh, const std::vector<bool>& reverses) {
    auto normals = std::make_shared<Points>(*mesh.userNormals);
    std::vector<bool> done(normals->size(), false);
    for (std::int32_t corner = 0; corner < mesh.topology->cornerCount(); ++corner) {
        const std::int32_t id = mesh.topology->normalFans().ofCorner[at(corner)];
        if (reverses[at(mesh.topology->cornerFaces()[at(corner)])] && !done[at(id)] && mesh.isUserNormal(id)) {
            done[at(id)] = true;
            (*normals)[at(id)] = -(*normals)[at(id)];
        }
    }
    return normals;
}

/// The same loops, those of the chosen faces walked the other way round.
std::shared_ptr<const PolyFaces> reversedLoops(const MeshTopology& topology, const std::vector<bool>& reverses) {
    auto faces = std::make_shared<PolyFaces>();
    faces->faceStarts = topology.faces()->faceStarts;
    faces->loopStarts = topology.faces()->loopStarts;
    faces->edges = topology.cornerEdges();
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        for (std::int32_t loop = 0; reverses[at(face)] && loop < topology.loopCount(face); ++loop) {
            const auto first = faces->edges.begin() + topology.firstCornerOfLoop(face, loop);
            const auto last = faces->edges.begin() + topology.firstCornerOfLoop(face, loop + 1);
            std::reverse(first, last);
            std::transform(first, last, first, [](std::int32_t edge) { return -edge - 1; });
        }
    }
    return faces;
}

double angleBetween(const V3d& a, const V3d& b) {
    return std::atan2((a % b).length(), a ^ b);
}

/// Normal of a face placed by a matrix; not of unit length.
V3d placedNormal(const MeshData& mesh, std::int32_t face, const Matrix44& matrix) {
    const MeshTopology& topology = *mesh.topology;
    const auto pointOf = [&](std::int32_t corner) {
        return V3d((*mesh.points)[at(topology.cornerVertices()[at(corner)])]) * matrix;
    };
    const std::int32_t first = topology.firstCornerOfLoop(face, 0);
    const V3d origin = pointOf(first);
    V3d sum(0.0);
    V3d previous(0.0);
    for (std::int32_t corner = first + 1; corner < topology.firstCornerOfLoop(face, 1); ++corner) {
        const V3d next = pointOf(corner) - origin;
        sum += previous % next;
        previous = next;
    }
    return sum;
}

} // namespace

std::shared_ptr<MeshData> keepFaces(const MeshData& mesh, const std::vector<bool>& keeps) {
    return FaceKeeper(mesh, keeps).run();
}

std::shared_ptr<MeshData> reverseFaces(const MeshData& mesh, const std::vector<bool>& reverses, bool turnsNormals) {
    const MeshTopology& topology = *mesh.topology;
    const Ids cornerFrom = reversedCorners(topology, reverses);
    auto reversed = std::make_shared<MeshData>(mesh);
    std::string problem;
    reversed->topology =
        MeshTopology::make(topology.vertexCount(), topology.edges(), reversedLoops(topology, reverses), problem);
    carryCorners(mesh, *reversed, cornerFrom);
    if (turnsNormals && reversed->userNormals != nullptr) {
        reversed->userNormals = reversedNormals(*reversed, reverses);
    }
    return reversed;
}

std::shared_ptr<MeshData> softenEdges(const MeshData& mesh, const std::vector<bool>& chosen, double angle,
                                      const Matrix44& matrix) {
    constexpr double kRounding = 1e-6; // of points that are floats
    const MeshTopology& topology = *mesh.topology;
    std::vector<MeshEdge> edges = topology.edges();
    for (std::int32_t edge = 0; edge < topology.edgeCount(); ++edge) {
        const std::int32_t* faces = topology.facesOfEdge().begin(edge);
        if (chosen[at(edge)] && topology.facesOfEdge().count(edge) > 1) {
            const double bend =
                angleBetween(placedNormal(mesh, faces[0], matrix), placedNormal(mesh, faces[1], matrix));
            edges[at(edge)].smooth = bend <= angle + kRounding;
        }
    }
    auto softened = std::make_shared<MeshData>(mesh);
    std::string problem;
    softened->topology = MeshTopology::make(topology.vertexCount(), std::move(edges), topology.faces(), problem);
    carryUserNormals(mesh, *softened, identity(topology.cornerCount()));
    return softened;
}

UvSet withoutFaces(const UvSet& set, const std::vector<bool>& chosen) {
    UvSet left = set;
    auto ids = std::make_shared<FaceIds>();
    for (std::size_t i = 0; i < set.ids->faces.size(); ++i) {
        if (!chosen[at(set.ids->faces[i])]) {
            ids->faces.push_back(set.ids->faces[i]);
            ids->ids.insert(ids->ids.end(), set.ids->ids.begin() + set.ids->starts[i],
                            set.ids->ids.begin() + set.ids->starts[i + 1]);
            ids->starts.push_back(static_cast<std::int32_t>(ids->ids.size()));
        }
    }
    left.ids = std::move(ids);
    dropUnusedUvs(left);
    return left;
}

} // namespace host
