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

/// Finds which vertices are near each other, by cells of half the distance.
class NearFinder {
public:
    NearFinder(std::vector<V3d> points, const std::vector<bool>& chosen, double distance)
        : points_(std::move(points)), distance_(distance),
          parents_(identity(static_cast<std::int32_t>(points_.size()))) {
        constexpr double kFinest = 1e-9; // of the largest coordinate, so that cell numbers stay small
        constexpr double kCellShare = 0.5;
        double largest = 0.0;
        for (std::int32_t vertex = 0; vertex < static_cast<std::int32_t>(points_.size()); ++vertex) {
            const V3d& point = points_[at(vertex)];
            const double size = std::abs(point.x) + std::abs(point.y) + std::abs(point.z);
            if (chosen[at(vertex)] && std::isfinite(size)) {
                largest = std::max(largest, size);
                chosen_.push_back(vertex);
            }
        }
        cell_ = std::max({distance * kCellShare, largest * kFinest, kFinest});
    }

    /// Per vertex, the lowest of those that it becomes one with.
    Ids run() {
        joinEqual();
        std::unordered_map<std::int64_t, Ids> cells;
        for (const std::int32_t vertex : chosen_) {
            cells[keyOf(cellOf(vertex))].push_back(vertex);
        }
        constexpr std::int64_t kReach = 2;
        for (const std::int32_t vertex : chosen_) {
            const auto [x, y, z] = cellOf(vertex);
            for (std::int64_t i = 0; i < (2 * kReach + 1) * (2 * kReach + 1) * (2 * kReach + 1); ++i) {
                constexpr std::int64_t kWidth = 2 * kReach + 1;
                const auto found = cells.find(keyOf(
                    {x + i % kWidth - kReach, y + i / kWidth % kWidth - kReach, z + i / kWidth / kWidth - kReach}));
                if (found != cells.end()) {
                    joinNear(vertex, found->second);
                }
            }
        }
        for (std::int32_t vertex = 0; vertex < static_cast<std::int32_t>(parents_.size()); ++vertex) {
            parents_[at(vertex)] = rootOf(vertex);
        }
        return std::move(parents_);
    }

private:
    using Cell = std::array<std::int64_t, 3>;

    Cell cellOf(std::int32_t vertex) const {
        const V3d& point = points_[at(vertex)];
        return {std::llround(point.x / cell_), std::llround(point.y / cell_), std::llround(point.z / cell_)};
    }

    /// Cells that share a key are only looked at in vain.
    static std::int64_t keyOf(const Cell& cell) {
        constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
        std::uint64_t key = 0;
        for (const std::int64_t part : cell) {
            key = (key ^ static_cast<std::uint64_t>(part)) * kFactor;
            key ^= key >> 29U;
        }
        return static_cast<std::int64_t>(key);
    }

    std::int32_t rootOf(std::int32_t vertex) {
        while (parents_[at(vertex)] != vertex) {
            vertex = parents_[at(vertex)] = parents_[at(parents_[at(vertex)])];
        }
        return vertex;
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

    void joinNear(std::int32_t vertex, const Ids& others) {
        for (const std::int32_t other : others) {
            if (other < vertex && rootOf(other) != rootOf(vertex) &&
                (points_[at(other)] - points_[at(vertex)]).length() <= distance_) {
                const std::int32_t a = rootOf(other);
                const std::int32_t b = rootOf(vertex);
                parents_[at(std::max(a, b))] = std::min(a, b);
            }
        }
    }

    std::vector<V3d> points_;
    double distance_, cell_ = 1.0;
    Ids chosen_, parents_;
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
