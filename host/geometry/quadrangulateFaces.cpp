#include "host/geometry/quadrangulation.h"

#include "host/geometry/faceClasses.h"
#include "host/geometry/meshNumbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

namespace host {

namespace {

using Imath::V3d;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

constexpr int kTriangle = 3;
constexpr int kQuad = 4;

/// Two triangles that may become a quad: `edge` is that of `first` after its corner `position`, and after the corner
/// `otherPosition` of `second`.
struct Pair {
    std::int32_t edge = 0, first = 0, second = 0;
    int position = 0, otherPosition = 0;
    std::int64_t badness = 0;

    /// The corners of the quad, as they are numbered in the mesh.
    std::array<std::int32_t, kQuad> corners(const MeshTopology& topology) const {
        std::array<std::int32_t, kQuad> quad{};
        std::size_t next = 0;
        for (int i = 0; i < kTriangle; ++i) {
            quad[next++] = topology.firstCorner(first) + i;
            if (i == position) {
                quad[next++] = topology.firstCorner(second) + (otherPosition + 2) % kTriangle;
            }
        }
        return quad;
    }
};

double angleBetween(const V3d& a, const V3d& b) {
    return std::atan2((a % b).length(), a ^ b);
}

/// Finds the pairs and chooses among them.
class PairFinder {
public:
    PairFinder(const MeshData& mesh, const std::vector<bool>& chosen, const QuadRules& rules)
        : mesh_(mesh), topology_(*mesh.topology), chosen_(chosen), rules_(rules) {
        if (rules.keepsGroupBorders) {
            classes_ = faceClasses(mesh.groups, topology_.faceCount());
        }
        for (const UvSet& set : mesh.uvSets) {
            if (rules.keepsUvBorders) {
                uvs_.push_back(idsOfCorners(*set.ids, topology_));
            }
        }
    }

    std::vector<Pair> run() {
        std::vector<Pair> pairs;
        for (std::int32_t edge = 0; edge < topology_.edgeCount(); ++edge) {
            Pair pair;
            if (isPair(edge, pair)) {
                pairs.push_back(pair);
            }
        }
        const auto rank = [](const Pair& pair) {
            return std::make_tuple(pair.badness, pair.first, pair.second, pair.edge);
        };
        std::sort(pairs.begin(), pairs.end(), [&](const Pair& a, const Pair& b) { return rank(a) < rank(b); });
        std::vector<bool> taken(at(topology_.faceCount()), false);
        std::vector<Pair> kept;
        for (const Pair& pair : pairs) {
            if (!taken[at(pair.first)] && !taken[at(pair.second)]) {
                taken[at(pair.first)] = taken[at(pair.second)] = true;
                kept.push_back(pair);
            }
        }
        return kept;
    }

private:
    bool isTriangle(std::int32_t face) const {
        return chosen_[at(face)] && topology_.cornerCount(face) == kTriangle && !topology_.hasHoles(face);
    }

    /// Which corner of a face the edge follows.
    int positionOf(std::int32_t face, std::int32_t edge) const {
        int position = 0;
        while (MeshTopology::edgeNumber(topology_.cornerEdges()[at(topology_.firstCorner(face) + position)]) != edge) {
            ++position;
        }
        return position;
    }

    bool isPair(std::int32_t edge, Pair& pair) const {
        const IndexLists& faces = topology_.facesOfEdge();
        if (faces.count(edge) != 2 || (rules_.keepsHardEdges && !topology_.edges()[at(edge)].smooth)) {
            return false;
        }
        pair.edge = edge;
        pair.first = faces.begin(edge)[0];
        pair.second = faces.begin(edge)[1];
        if (pair.first == pair.second || !isTriangle(pair.first) || !isTriangle(pair.second)) {
            return false;
        }
        pair.position = positionOf(pair.first, edge);
        pair.otherPosition = positionOf(pair.second, edge);
        return isPassable(pair) && isGoodQuad(pair);
    }

    /// Whether nothing ends at the edge, and the triangles are wound alike.
    bool isPassable(const Pair& pair) const {
        if (!classes_.empty() && classes_[at(pair.first)] != classes_[at(pair.second)]) {
            return false;
        }
        const std::int32_t from = topology_.firstCorner(pair.first) + pair.position;
        const std::int32_t to = topology_.firstCorner(pair.first) + (pair.position + 1) % kTriangle;
        const std::int32_t otherFrom = topology_.firstCorner(pair.second) + pair.otherPosition;
        const std::int32_t otherTo = topology_.firstCorner(pair.second) + (pair.otherPosition + 1) % kTriangle;
        const std::vector<std::int32_t>& vertices = topology_.cornerVertices();
        if (vertices[at(from)] != vertices[at(otherTo)] || vertices[at(to)] != vertices[at(otherFrom)] ||
            vertices[at(from)] == vertices[at(to)]) {
            return false;
        }
        return std::all_of(uvs_.begin(), uvs_.end(), [&](const Ids& ids) {
            return ids[at(from)] == ids[at(otherTo)] && ids[at(to)] == ids[at(otherFrom)];
        });
    }

    V3d pointOf(std::int32_t corner) const {
        return V3d((*mesh_.points)[at(topology_.cornerVertices()[at(corner)])]) * rules_.matrix;
    }

    V3d normalOf(std::int32_t face) const {
        const std::int32_t first = topology_.firstCorner(face);
        return (pointOf(first + 1) - pointOf(first)) % (pointOf(first + 2) - pointOf(first));
    }

    /// Whether the quad is near enough to a plane and convex; then also how bad it is.
    bool isGoodQuad(Pair& pair) const {
        constexpr double kRounding = 1e-6; // of points that are floats
        constexpr double kSteps = 1e5;     // badness is compared in steps, so that rounding does not decide
        const V3d normal = normalOf(pair.first);
        const V3d otherNormal = normalOf(pair.second);
        const double bend = angleBetween(normal, otherNormal);
        if (!(normal.length() > 0.0) || !(otherNormal.length() > 0.0) || !(bend <= rules_.angle + kRounding)) {
            return false;
        }
        const V3d middle = normal + otherNormal;
        const auto corners = pair.corners(topology_);
        double skew = 0.0;
        for (std::size_t i = 0; i < kQuad; ++i) {
            const V3d here = pointOf(corners[i]);
            const V3d before = here - pointOf(corners[(i + kQuad - 1) % kQuad]);
            const V3d after = pointOf(corners[(i + 1) % kQuad]) - here;
            if (!(((before % after) ^ middle) > kRounding * before.length() * after.length() * middle.length())) {
                return false;
            }
            skew = std::max(skew, std::abs(angleBetween(before, after) - M_PI_2));
        }
        pair.badness = std::llround((bend + skew) * kSteps);
        return std::isfinite(bend + skew);
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    const std::vector<bool>& chosen_;
    const QuadRules& rules_;
    Ids classes_;          // per face; empty: all are of one
    std::vector<Ids> uvs_; // per set, the ids of all corners
};

/// Makes the mesh with the pairs joined.
class Joiner {
public:
    Joiner(const MeshData& mesh, const std::vector<Pair>& pairs) : mesh_(mesh), topology_(*mesh.topology) {
        pairOf_.assign(at(topology_.faceCount()), nullptr);
        std::vector<bool> keepsFace(at(topology_.faceCount()), true);
        std::vector<bool> keepsEdge(at(topology_.edgeCount()), true);
        for (const Pair& pair : pairs) {
            pairOf_[at(pair.first)] = &pair;
            keepsFace[at(pair.second)] = false;
            keepsEdge[at(pair.edge)] = false;
        }
        numbers_.vertices = identity(topology_.vertexCount());
        numbers_.edges = numberUsed(keepsEdge);
        numbers_.faces = numberUsed(keepsFace);
    }

    std::shared_ptr<MeshData> run() {
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (numbers_.faces[at(face)] != kGone) {
                addFace(face);
            }
        }
        auto made = std::make_shared<MeshData>(mesh_);
        std::string problem;
        made->topology = MeshTopology::make(topology_.vertexCount(), pick(topology_.edges(), numbers_.edges),
                                            std::move(faces_), problem);
        carryCorners(mesh_, *made, cornerFrom_);
        for (ComponentGroup& group : made->groups) {
            group.components = renumbered(*group.components, numbers_);
        }
        return made;
    }

private:
    void addFace(std::int32_t face) {
        if (const Pair* pair = pairOf_[at(face)]) {
            addQuad(*pair);
        } else {
            addLoops(face);
        }
        faces_->faceStarts.push_back(static_cast<std::int32_t>(faces_->loopStarts.size()) - 1);
    }

    void addCorner(std::int32_t from, std::int32_t edgeOf) {
        const std::int32_t edge = topology_.cornerEdges()[at(edgeOf)];
        const std::int32_t number = numbers_.edges[at(MeshTopology::edgeNumber(edge))];
        faces_->edges.push_back(edge >= 0 ? number : -number - 1);
        cornerFrom_.push_back(from);
    }

    void closeLoop() { faces_->loopStarts.push_back(static_cast<std::int32_t>(faces_->edges.size())); }

    /// The corner before the other triangle's vertex goes on along that triangle.
    void addQuad(const Pair& pair) {
        const std::int32_t other = topology_.firstCorner(pair.second);
        for (const std::int32_t corner : pair.corners(topology_)) {
            const bool isTurn = corner == topology_.firstCorner(pair.first) + pair.position;
            addCorner(corner, isTurn ? other + (pair.otherPosition + 1) % kTriangle : corner);
        }
        closeLoop();
    }

    void addLoops(std::int32_t face) {
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            for (std::int32_t corner = topology_.firstCornerOfLoop(face, loop);
                 corner < topology_.firstCornerOfLoop(face, loop + 1); ++corner) {
                addCorner(corner, corner);
            }
            closeLoop();
        }
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    std::vector<const Pair*> pairOf_; // per face, the pair that it is the first of
    NewNumbers numbers_;
    std::shared_ptr<PolyFaces> faces_ = std::make_shared<PolyFaces>();
    Ids cornerFrom_;
};

} // namespace

std::shared_ptr<MeshData> quadrangulateFaces(const MeshData& mesh, const std::vector<bool>& chosen,
                                             const QuadRules& rules) {
    return Joiner(mesh, PairFinder(mesh, chosen, rules).run()).run();
}

} // namespace host
