#include "host/geometry/mergeVertices.h"

#include "host/geometry/cornerMesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace host {

namespace {

using Imath::V3d;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

/// Finds which vertices are near each other, by cells so small that all in one cell are.
class NearFinder {
public:
    NearFinder(std::vector<V3d> points, const std::vector<bool>& chosen, double distance)
        : points_(std::move(points)), distance_(distance),
          parents_(identity(static_cast<std::int32_t>(points_.size()))) {
        constexpr double kFinest = 1e-9; // of the largest coordinate, so that cell numbers stay small
        double largest = 0.0;
        for (std::int32_t vertex = 0; vertex < static_cast<std::int32_t>(points_.size()); ++vertex) {
            const V3d& point = points_[at(vertex)];
            const double size = std::abs(point.x) + std::abs(point.y) + std::abs(point.z);
            if (chosen[at(vertex)] && std::isfinite(size)) {
                largest = std::max(largest, size);
                chosen_.push_back(vertex);
            }
        }
        cell_ = std::max({distance / 2.0, largest * kFinest, kFinest});
    }

    /// Per vertex, the lowest of those that it becomes one with.
    Ids run() {
        joinEqual();
        fillCells();
        // Near cells first: those farther off are one by then where there are many points, and need no comparing.
        for (std::int64_t reach = 1; reach <= kReach; ++reach) {
            for (const Cell& cell : order_) {
                joinAround(cell, reach);
            }
        }
        for (std::int32_t vertex = 0; vertex < static_cast<std::int32_t>(parents_.size()); ++vertex) {
            parents_[at(vertex)] = rootOf(vertex);
        }
        return std::move(parents_);
    }

private:
    using Cell = std::array<std::int64_t, 3>;
    static constexpr std::int64_t kReach = 2;

    struct CellHash {
        std::size_t operator()(const Cell& cell) const {
            constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
            constexpr unsigned kShift = 29;
            std::uint64_t key = 0;
            for (const std::int64_t part : cell) {
                key = (key ^ static_cast<std::uint64_t>(part)) * kFactor;
                key ^= key >> kShift;
            }
            return static_cast<std::size_t>(key);
        }
    };

    Cell cellOf(std::int32_t vertex) const {
        const V3d& point = points_[at(vertex)];
        return {std::llround(point.x / cell_), std::llround(point.y / cell_), std::llround(point.z / cell_)};
    }

    std::int32_t rootOf(std::int32_t vertex) {
        while (parents_[at(vertex)] != vertex) {
            vertex = parents_[at(vertex)] = parents_[at(parents_[at(vertex)])];
        }
        return vertex;
    }

    void join(std::int32_t one, std::int32_t other) {
        const std::int32_t a = rootOf(one);
        const std::int32_t b = rootOf(other);
        parents_[at(std::max(a, b))] = std::min(a, b);
    }

    bool isNear(std::int32_t one, std::int32_t other) const {
        return (points_[at(one)] - points_[at(other)]).length() <= distance_;
    }

    /// Many vertices may lie in one place; only the first of each place goes on being compared.
    void joinEqual() {
        const auto placeOf = [&](std::int32_t vertex) {
            const V3d& point = points_[at(vertex)];
            return std::make_tuple(point.x, point.y, point.z);
        };
        std::stable_sort(chosen_.begin(), chosen_.end(),
                         [&](std::int32_t a, std::int32_t b) { return placeOf(a) < placeOf(b); });
        Ids firsts;
        for (const std::int32_t vertex : chosen_) {
            if (!firsts.empty() && placeOf(firsts.back()) == placeOf(vertex)) {
                parents_[at(vertex)] = firsts.back();
            } else {
                firsts.push_back(vertex);
            }
        }
        chosen_ = std::move(firsts);
    }

    /// Cells may be larger than the distance where coordinates are large; then their points are compared too.
    void fillCells() {
        const bool isSmall = cell_ * 2.0 <= distance_;
        for (const std::int32_t vertex : chosen_) {
            const Cell cell = cellOf(vertex);
            Ids& members = cells_[cell];
            for (const std::int32_t member : members) {
                if (isSmall || isNear(member, vertex)) {
                    join(member, vertex);
                }
                if (isSmall) {
                    break;
                }
            }
            if (members.empty()) {
                order_.push_back(cell);
            }
            members.push_back(vertex);
        }
    }

    /// Compares a cell with those so far off on at least one axis that come after it.
    void joinAround(const Cell& cell, std::int64_t reach) {
        const Ids& members = cells_.at(cell);
        for (std::int64_t x = 0; x <= reach; ++x) {
            for (std::int64_t y = -reach; y <= reach; ++y) {
                for (std::int64_t z = -reach; z <= reach; ++z) {
                    const bool isAfter = x > 0 || y > 0 || (y == 0 && z > 0);
                    if (!isAfter || std::max({x, std::abs(y), std::abs(z)}) != reach) {
                        continue;
                    }
                    const auto found = cells_.find({cell[0] + x, cell[1] + y, cell[2] + z});
                    if (found != cells_.end()) {
                        joinCells(members, found->second);
                    }
                }
            }
        }
    }

    /// In small cells all points are one already, so that one pair is enough.
    void joinCells(const Ids& members, const Ids& others) {
        const bool isSmall = cell_ * 2.0 <= distance_;
        for (const std::int32_t member : members) {
            for (const std::int32_t other : others) {
                if (isSmall && rootOf(member) == rootOf(other)) {
                    return;
                }
                if (isNear(member, other)) {
                    join(member, other);
                }
            }
        }
    }

    std::vector<V3d> points_;
    double distance_, cell_ = 1.0;
    Ids chosen_, parents_;
    std::unordered_map<Cell, Ids, CellHash> cells_;
    std::vector<Cell> order_;
};

/// Makes the mesh with vertices as one.
class Merger {
public:
    Merger(const MeshData& mesh, const Ids& lowest)
        : mesh_(mesh), topology_(*mesh.topology), made_(std::make_shared<Points>()) {
        std::vector<V3d> sums;
        Ids counts;
        numbers_.vertices.resize(lowest.size());
        for (std::size_t vertex = 0; vertex < lowest.size(); ++vertex) {
            const bool isFirst = at(lowest[vertex]) == vertex;
            const std::int32_t number =
                isFirst ? static_cast<std::int32_t>(sums.size()) : numbers_.vertices[at(lowest[vertex])];
            numbers_.vertices[vertex] = number;
            if (isFirst) {
                sums.emplace_back(0.0);
                counts.push_back(0);
            }
            sums[at(number)] += V3d((*mesh.points)[vertex]);
            ++counts[at(number)];
        }
        for (std::size_t i = 0; i < sums.size(); ++i) {
            made_.addPoint(Imath::V3f(sums[i] / counts[i]));
        }
    }

    std::shared_ptr<MeshData> run() {
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            addFace(face);
        }
        RebuiltMesh made = rebuiltWithOneEdge(mesh_, made_);
        numbers_.edges = newEdgeNumbers(made.edgeFrom, topology_.edgeCount());
        for (ComponentGroup& group : made.mesh->groups) {
            group.components = renumbered(*group.components, numbers_);
        }
        for (UvSet& set : made.mesh->uvSets) {
            dropUnusedUvs(set);
        }
        return made.mesh;
    }

private:
    /// The corners of a loop without those that end where they begin.
    Ids cornersOf(std::int32_t face, std::int32_t loop) const {
        const std::int32_t first = topology_.firstCornerOfLoop(face, loop);
        const std::int32_t last = topology_.firstCornerOfLoop(face, loop + 1);
        Ids corners;
        for (std::int32_t corner = first; corner < last; ++corner) {
            const std::int32_t before = corner == first ? last - 1 : corner - 1;
            if (vertexOf(corner) != vertexOf(before)) {
                corners.push_back(corner);
            }
        }
        return corners;
    }

    std::int32_t vertexOf(std::int32_t corner) const {
        return numbers_.vertices[at(topology_.cornerVertices()[at(corner)])];
    }

    void addFace(std::int32_t face) {
        constexpr std::size_t kFewest = 3;
        if (cornersOf(face, 0).size() < kFewest) {
            numbers_.faces.push_back(kGone);
            return;
        }
        numbers_.faces.push_back(made_.faceCount());
        for (std::int32_t loop = 0; loop < topology_.loopCount(face); ++loop) {
            const Ids corners = cornersOf(face, loop);
            if (corners.size() < kFewest) {
                continue;
            }
            for (std::size_t i = 0; i < corners.size(); ++i) {
                const std::int32_t next = corners[(i + 1) % corners.size()];
                const std::int32_t before = next == topology_.firstCornerOfLoop(face, loop)
                                                ? topology_.firstCornerOfLoop(face, loop + 1) - 1
                                                : next - 1; // the last corner of those that stand here now
                made_.addCorner(corners[i], vertexOf(corners[i]), topology_.cornerEdges()[at(before)]);
            }
            made_.closeLoop();
        }
        made_.closeFace();
    }

    const MeshData& mesh_;
    const MeshTopology& topology_;
    CornerMesh made_;
    NewNumbers numbers_;
};

} // namespace

std::shared_ptr<MeshData> mergeVertices(const MeshData& mesh, const std::vector<bool>& chosen, double distance,
                                        const Matrix44& matrix) {
    std::vector<V3d> placed;
    for (const Imath::V3f& point : *mesh.points) {
        placed.push_back(V3d(point) * matrix);
    }
    return Merger(mesh, NearFinder(std::move(placed), chosen, distance).run()).run();
}

} // namespace host
