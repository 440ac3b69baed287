#include "host/geometry/MeshTopology.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

std::int32_t startOf(const std::vector<MeshEdge>& edges, std::int32_t cornerEdge) {
    const MeshEdge& edge = edges[at(MeshTopology::edgeNumber(cornerEdge))];
    return cornerEdge >= 0 ? edge.start : edge.end;
}

std::int32_t endOf(const std::vector<MeshEdge>& edges, std::int32_t cornerEdge) {
    const MeshEdge& edge = edges[at(MeshTopology::edgeNumber(cornerEdge))];
    return cornerEdge >= 0 ? edge.end : edge.start;
}

/// What is wrong with the edges; "" when nothing is.
std::string findBadEdge(const std::vector<MeshEdge>& edges, std::int32_t vertexCount) {
    for (std::size_t i = 0; i < edges.size(); ++i) {
        for (const std::int32_t vertex : {edges[i].start, edges[i].end}) {
            if (vertex < 0 || vertex >= vertexCount) {
                return "edge " + std::to_string(i) + " names vertex " + std::to_string(vertex) + " of " +
                       std::to_string(vertexCount);
            }
        }
    }
    return {};
}

/// What is wrong with one loop of edges; "" when nothing is.
std::string findBadLoop(const std::vector<MeshEdge>& edges, const std::int32_t* first, const std::int32_t* last) {
    const auto edgeCount = static_cast<std::int32_t>(edges.size());
    for (const std::int32_t* edge = first; edge != last; ++edge) {
        // The lowest number has no positive counterpart; edgeNumber of it would overflow.
        if (*edge == std::numeric_limits<std::int32_t>::min() || MeshTopology::edgeNumber(*edge) >= edgeCount) {
            return " names edge " + std::to_string(*edge) + " of " + std::to_string(edgeCount);
        }
    }
    for (const std::int32_t* edge = first; edge != last; ++edge) {
        const std::int32_t next = edge + 1 == last ? *first : *(edge + 1);
        if (endOf(edges, *edge) != startOf(edges, next)) {
            return " does not close: edge " + std::to_string(*edge) + " ends at vertex " +
                   std::to_string(endOf(edges, *edge)) + ", edge " + std::to_string(next) + " begins at vertex " +
                   std::to_string(startOf(edges, next));
        }
    }
    return {};
}

/// The number of faces before the first bad one.
std::int32_t countGoodFaces(const PolyFaces& faces, const std::vector<MeshEdge>& edges, std::string& problem) {
    for (std::int32_t face = 0; face < faces.faceCount(); ++face) {
        for (std::int32_t loop = faces.faceStarts[at(face)]; loop < faces.faceStarts[at(face + 1)]; ++loop) {
            const std::int32_t* list = faces.edges.data();
            const std::string bad =
                findBadLoop(edges, list + faces.loopStarts[at(loop)], list + faces.loopStarts[at(loop + 1)]);
            if (!bad.empty()) {
                problem = "face " + std::to_string(face) + bad;
                return face;
            }
        }
    }
    return faces.faceCount();
}

std::shared_ptr<const PolyFaces> firstFaces(const PolyFaces& faces, std::int32_t count) {
    auto cut = std::make_shared<PolyFaces>();
    const std::int32_t loops = faces.faceStarts[at(count)];
    const std::int32_t corners = faces.loopStarts[at(loops)];
    cut->faceStarts.assign(faces.faceStarts.begin(), faces.faceStarts.begin() + count + 1);
    cut->loopStarts.assign(faces.loopStarts.begin(), faces.loopStarts.begin() + loops + 1);
    cut->edges.assign(faces.edges.begin(), faces.edges.begin() + corners);
    return cut;
}

/// Lists by owner, from the owner of each item in item order.
template <typename OwnerOf>
IndexLists gather(std::int32_t ownerCount, std::int32_t itemCount, OwnerOf&& ownersOf) {
    IndexLists lists;
    lists.starts.assign(at(ownerCount) + 1, 0);
    for (std::int32_t item = 0; item < itemCount; ++item) {
        ownersOf(item, [&](std::int32_t owner) { ++lists.starts[at(owner) + 1]; });
    }
    std::partial_sum(lists.starts.begin(), lists.starts.end(), lists.starts.begin());
    lists.items.resize(at(lists.starts.back()));
    std::vector<std::int32_t> next(lists.starts.begin(), lists.starts.end() - 1);
    for (std::int32_t item = 0; item < itemCount; ++item) {
        ownersOf(item, [&](std::int32_t owner) { lists.items[at(next[at(owner)]++)] = item; });
    }
    return lists;
}

std::int32_t rootOf(std::vector<std::int32_t>& parents, std::int32_t corner) {
    while (parents[at(corner)] != corner) {
        parents[at(corner)] = parents[at(parents[at(corner)])];
        corner = parents[at(corner)];
    }
    return corner;
}

/// Joins the corners of all faces that meet in soft edges.
class FanJoiner {
public:
    explicit FanJoiner(const MeshTopology& topology)
        : topology_(topology), parents_(at(topology.cornerCount())), firstAtStart_(at(topology.edgeCount()), -1),
          firstAtEnd_(at(topology.edgeCount()), -1) {
        std::iota(parents_.begin(), parents_.end(), 0);
    }

    NormalFans run() {
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
                joinLoop(topology_.firstCornerOfLoop(face, loop), topology_.firstCornerOfLoop(face, loop + 1));
            }
        }
        return number();
    }

private:
    void joinLoop(std::int32_t first, std::int32_t last) {
        for (std::int32_t corner = first; corner < last; ++corner) {
            const std::int32_t edge = topology_.cornerEdges()[at(corner)];
            if (!topology_.edges()[at(MeshTopology::edgeNumber(edge))].smooth) {
                continue;
            }
            const std::int32_t next = corner + 1 == last ? first : corner + 1;
            join(firstAtStart_, edge, edge >= 0 ? corner : next);
            join(firstAtEnd_, edge, edge >= 0 ? next : corner);
        }
    }

    void join(std::vector<std::int32_t>& firstCorners, std::int32_t cornerEdge, std::int32_t corner) {
        std::int32_t& known = firstCorners[at(MeshTopology::edgeNumber(cornerEdge))];
        if (known < 0) {
            known = corner;
            return;
        }
        const std::int32_t a = rootOf(parents_, known);
        const std::int32_t b = rootOf(parents_, corner);
        parents_[at(std::max(a, b))] = std::min(a, b);
    }

    NormalFans number() {
        NormalFans fans;
        fans.ofCorner.resize(parents_.size());
        for (std::int32_t corner = 0; corner < topology_.cornerCount(); ++corner) {
            const std::int32_t root = rootOf(parents_, corner); // never after its followers
            fans.ofCorner[at(corner)] = root == corner ? fans.count++ : fans.ofCorner[at(root)];
        }
        return fans;
    }

    const MeshTopology& topology_;
    std::vector<std::int32_t> parents_;
    std::vector<std::int32_t> firstAtStart_, firstAtEnd_; // of each soft edge, a corner at either vertex
};

} // namespace

std::shared_ptr<const MeshTopology> MeshTopology::make(std::int32_t vertexCount, std::vector<MeshEdge> edges,
                                                       std::shared_ptr<const PolyFaces> faces, std::string& problem) {
    std::shared_ptr<MeshTopology> made(new MeshTopology());
    if (const std::string bad = findBadEdge(edges, vertexCount); !bad.empty()) {
        problem = bad;
        made->faces_ = std::make_shared<PolyFaces>();
        return made;
    }
    const std::int32_t good = countGoodFaces(*faces, edges, problem);
    made->vertexCount_ = vertexCount;
    made->edges_ = std::move(edges);
    made->faces_ = good == faces->faceCount() ? std::move(faces) : firstFaces(*faces, good);
    made->cornerVertices_.reserve(made->faces_->edges.size());
    for (const std::int32_t edge : made->faces_->edges) {
        made->cornerVertices_.push_back(startOf(made->edges_, edge));
    }
    return made;
}

std::shared_ptr<const MeshTopology> MeshTopology::empty() {
    static const std::shared_ptr<const MeshTopology> kEmpty = [] {
        std::string problem;
        return make(0, {}, std::make_shared<PolyFaces>(), problem);
    }();
    return kEmpty;
}

std::int32_t MeshTopology::loopCount(std::int32_t face) const {
    return faces_->faceStarts[at(face + 1)] - faces_->faceStarts[at(face)];
}

std::int32_t MeshTopology::firstCornerOfLoop(std::int32_t face, std::int32_t loop) const {
    return faces_->loopStarts[at(faces_->faceStarts[at(face)] + loop)];
}

const std::vector<std::int32_t>& MeshTopology::cornerFaces() const {
    return cornerFaces_.get([this] {
        std::vector<std::int32_t> faces(cornerVertices_.size());
        for (std::int32_t face = 0; face < faceCount(); ++face) {
            std::fill(faces.begin() + firstCorner(face), faces.begin() + firstCorner(face + 1), face);
        }
        return faces;
    });
}

const NormalFans& MeshTopology::normalFans() const {
    return normalFans_.get([this] { return FanJoiner(*this).run(); });
}

const IndexLists& MeshTopology::facesOfEdge() const {
    return facesOfEdge_.get([this] {
        return gather(edgeCount(), faceCount(), [this](std::int32_t face, auto&& add) {
            for (std::int32_t corner = firstCorner(face); corner < firstCorner(face + 1); ++corner) {
                add(edgeNumber(cornerEdges()[at(corner)]));
            }
        });
    });
}

const IndexLists& MeshTopology::cornersOfVertex() const {
    return cornersOfVertex_.get([this] {
        return gather(vertexCount_, cornerCount(),
                      [this](std::int32_t corner, auto&& add) { add(cornerVertices_[at(corner)]); });
    });
}

const IndexLists& MeshTopology::edgesOfVertex() const {
    return edgesOfVertex_.get([this] {
        return gather(vertexCount_, edgeCount(), [this](std::int32_t edge, auto&& add) {
            add(edges_[at(edge)].start);
            if (edges_[at(edge)].end != edges_[at(edge)].start) {
                add(edges_[at(edge)].end);
            }
        });
    });
}

} // namespace host
