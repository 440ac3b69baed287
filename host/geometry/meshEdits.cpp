#include "host/geometry/meshEdits.h"

#include "host/geometry/meshComponents.h"
#include "host/geometry/userNormals.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;
using Ids = std::vector<std::int32_t>;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

constexpr std::int32_t kGone = -1;

/// Numbers what is used, in order: per old index the new one, or kGone.
Ids numberUsed(const std::vector<bool>& used) {
    Ids numbers(used.size(), kGone);
    std::int32_t next = 0;
    for (std::size_t i = 0; i < used.size(); ++i) {
        numbers[i] = used[i] ? next++ : kGone;
    }
    return numbers;
}

template <typename Item>
std::vector<Item> pick(const std::vector<Item>& items, const Ids& numbers) {
    std::vector<Item> picked;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (numbers[i] != kGone) {
            picked.push_back(items[i]);
        }
    }
    return picked;
}

Ids identity(std::int32_t count) {
    Ids numbers(at(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

/// The ids of the faces that stay, renumbered.
std::shared_ptr<const FaceIds> pickIds(const FaceIds& ids, const Ids& faceNumbers) {
    auto picked = std::make_shared<FaceIds>();
    for (std::size_t i = 0; i < ids.faces.size(); ++i) {
        const std::int32_t face = faceNumbers[at(ids.faces[i])];
        if (face != kGone) {
            picked->faces.push_back(face);
            picked->ids.insert(picked->ids.end(), ids.ids.begin() + ids.starts[i], ids.ids.begin() + ids.starts[i + 1]);
            picked->starts.push_back(static_cast<std::int32_t>(picked->ids.size()));
        }
    }
    return picked;
}

/// Leaves out the coordinates that no face uses.
void dropUnusedUvs(UvSet& set) {
    std::vector<bool> used(set.points->size(), false);
    for (const std::int32_t id : set.ids->ids) {
        used[at(id)] = true;
    }
    const Ids numbers = numberUsed(used);
    auto ids = std::make_shared<FaceIds>(*set.ids);
    for (std::int32_t& id : ids->ids) {
        id = numbers[at(id)];
    }
    set.points = std::make_shared<const std::vector<Imath::V2f>>(pick(*set.points, numbers));
    set.ids = std::move(ids);
}

/// The new numbers of what components name, for one kind.
void addRenumbered(std::vector<ComponentRange>& ranges, ComponentKind kind, const ComponentList& list,
                   const Ids& numbers) {
    for (const IndexRange range : mergedRanges(list, kind)) {
        if (range.isAll()) {
            ComponentRange all;
            all.kind = kind;
            all.index[0] = range;
            ranges.push_back(all);
            continue;
        }
        const std::int32_t last = std::min(range.last, static_cast<std::int32_t>(numbers.size()) - 1);
        for (std::int32_t index = range.first; index <= last; ++index) {
            const std::int32_t number = numbers[at(index)];
            if (number == kGone) {
                continue;
            }
            if (!ranges.empty() && ranges.back().kind == kind && ranges.back().index[0].last + 1 == number) {
                ranges.back().index[0].last = number;
            } else {
                ComponentRange next;
                next.kind = kind;
                next.index[0] = {number, number};
                ranges.push_back(next);
            }
        }
    }
}

/// Takes the kept faces out of a mesh.
class FaceKeeper {
public:
    FaceKeeper(const MeshData& mesh, const std::vector<bool>& keeps)
        : mesh_(mesh), topology_(*mesh.topology), faceNumbers_(numberUsed(keeps)) {}

    std::shared_ptr<MeshData> run() {
        findUsed();
        auto kept = std::make_shared<MeshData>(mesh_);
        kept->topology = keptTopology();
        kept->points = std::make_shared<const Points>(pick(*mesh_.points, vertexNumbers_));
        for (UvSet& set : kept->uvSets) {
            set.ids = pickIds(*set.ids, faceNumbers_);
            dropUnusedUvs(set);
        }
        for (ColorSet& set : kept->colorSets) {
            set.ids = pickIds(*set.ids, faceNumbers_);
        }
        for (ComponentGroup& group : kept->groups) {
            group.components = renumbered(*group.components);
        }
        carryUserNormals(mesh_, *kept, cornerFrom_);
        return kept;
    }

private:
    void findUsed() {
        std::vector<bool> vertices(at(topology_.vertexCount()), false);
        std::vector<bool> edges(at(topology_.edgeCount()), false);
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (faceNumbers_[at(face)] == kGone) {
                continue;
            }
            for (std::int32_t corner = topology_.firstCorner(face); corner < topology_.firstCorner(face + 1);
                 ++corner) {
                vertices[at(topology_.cornerVertices()[at(corner)])] = true;
                edges[at(MeshTopology::edgeNumber(topology_.cornerEdges()[at(corner)]))] = true;
                cornerFrom_.push_back(corner);
            }
        }
        vertexNumbers_ = numberUsed(vertices);
        edgeNumbers_ = numberUsed(edges);
    }

    std::shared_ptr<const MeshTopology> keptTopology() const {
        std::vector<MeshEdge> edges = pick(topology_.edges(), edgeNumbers_);
        for (MeshEdge& edge : edges) {
            edge.start = vertexNumbers_[at(edge.start)];
            edge.end = vertexNumbers_[at(edge.end)];
        }
        auto faces = std::make_shared<PolyFaces>();
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (faceNumbers_[at(face)] != kGone) {
                addFace(face, *faces);
            }
        }
        const auto vertexCount = static_cast<std::int32_t>(
            vertexNumbers_.size() -
            static_cast<std::size_t>(std::count(vertexNumbers_.begin(), vertexNumbers_.end(), kGone)));
        std::string problem;
        return MeshTopology::make(vertexCount, std::move(edges), std::move(faces), problem);
    }

    void addFace(std::int32_t face, PolyFaces& faces) const {
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            for (std::int32_t corner = topology_.firstCornerOfLoop(face, loop);
                 corner < topology_.firstCornerOfLoop(face, loop + 1); ++corner) {
                const std::int32_t edge = topology_.cornerEdges()[at(corner)];
                const std::int32_t number = edgeNumbers_[at(MeshTopology::edgeNumber(edge))];
                faces.edges.push_back(edge >= 0 ? number : -number - 1);
            }
            faces.loopStarts.push_back(static_cast<std::int32_t>(faces.edges.size()));
        }
        faces.faceStarts.push_back(static_cast<std::int32_t>(faces.loopStarts.size()) - 1);
    }

    std::shared_ptr<const ComponentList> renumbered(const ComponentList& list) const {
        std::vector<ComponentRange> ranges;
        addRenumbered(ranges, ComponentKind::kVertex, list, vertexNumbers_);
        addRenumbered(ranges, ComponentKind::kEdge, list, edgeNumbers_);
        addRenumbered(ranges, ComponentKind::kFace, list, faceNumbers_);
        return std::make_shared<const ComponentList>(std::move(ranges));
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    Ids faceNumbers_, vertexNumbers_, edgeNumbers_, cornerFrom_;
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

std::shared_ptr<const FaceIds> reorderedIds(const FaceIds& ids, const MeshTopology& topology, const Ids& cornerFrom) {
    auto reordered = std::make_shared<FaceIds>(ids);
    for (std::size_t i = 0; i < ids.faces.size(); ++i) {
        const std::int32_t first = topology.firstCorner(ids.faces[i]);
        for (std::int32_t k = 0; k < topology.cornerCount(ids.faces[i]); ++k) {
            reordered->ids[at(ids.starts[i] + k)] = ids.ids[at(ids.starts[i] + cornerFrom[at(first + k)] - first)];
        }
    }
    return reordered;
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
    for (UvSet& set : reversed->uvSets) {
        set.ids = reorderedIds(*set.ids, topology, cornerFrom);
    }
    for (ColorSet& set : reversed->colorSets) {
        set.ids = reorderedIds(*set.ids, topology, cornerFrom);
    }
    carryUserNormals(mesh, *reversed, cornerFrom);
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
    Ids numbers = identity(static_cast<std::int32_t>(chosen.size()));
    for (std::size_t face = 0; face < chosen.size(); ++face) {
        numbers[face] = chosen[face] ? kGone : numbers[face];
    }
    left.ids = pickIds(*set.ids, numbers);
    dropUnusedUvs(left);
    return left;
}

} // namespace host
