#pragma once

#include "host/geometry/MeshBuilder.h"
#include "host/geometry/polyPrimitives.h"

#include <cmath>
#include <cstdint>
#include <vector>

// For the primitives of this room only.

namespace host {

constexpr double kFullTurn = 6.283185307179586;

/// What the round primitives have in common: rings of vertices around the y axis, quads between them, and poles or caps
/// at the ends.
class RingMaker {
public:
    RingMaker(std::int32_t around, bool uvs) : around_(around), uvs_(uvs) {}

    /// Whether so many rings make too many faces.
    bool isTooMuch(std::int32_t rings) const {
        return static_cast<double>(around_) * static_cast<double>(rings) > kMostFaces;
    }

    MeshBuilder& builder() { return builder_; }
    std::int32_t around() const { return around_; }

    /// A ring's first vertex is one step from the x axis towards -z, its last one lies on the x axis.
    void addRing(double radius, double y) {
        for (std::int32_t j = 0; j < around_; ++j) {
            const double angle = kFullTurn * (j + 1) / around_;
            builder_.addPoint({radius * std::cos(angle), y, -radius * std::sin(angle)});
        }
    }

    std::int32_t vertex(std::int32_t ring, std::int32_t j) const { return ring * around_ + j % around_; }

    void addRingEdges(std::int32_t ring, bool smooth) {
        for (std::int32_t j = 0; j < around_; ++j) {
            builder_.addEdge(vertex(ring, j), vertex(ring, j + 1), smooth);
        }
    }

    void addEdgesBetween(std::int32_t lower, std::int32_t upper, bool smooth = true) {
        for (std::int32_t j = 0; j < around_; ++j) {
            builder_.addEdge(vertex(lower, j), vertex(upper, j), smooth);
        }
    }

    /// A row of texture coordinates with one more than a ring has vertices; returns the first.
    std::int32_t addUvRow(double left, double right, double v) {
        const std::int32_t first = builder_.uvCount();
        for (std::int32_t j = 0; uvs_ && j <= around_; ++j) {
            builder_.addUv(left + (right - left) * j / around_, v);
        }
        return first;
    }

    void addFace(const std::vector<std::int32_t>& vertices, const std::vector<std::int32_t>& uvs) {
        builder_.addFace(vertices, uvs_ ? uvs : std::vector<std::int32_t>());
    }

    /// Quads between two rings; the rows begin with these texture coordinates.
    void addQuads(std::int32_t lower, std::int32_t upper, std::int32_t lowerUv, std::int32_t upperUv) {
        for (std::int32_t j = 0; j < around_; ++j) {
            addFace({vertex(lower, j), vertex(lower, j + 1), vertex(upper, j + 1), vertex(upper, j)},
                    {lowerUv + j, lowerUv + j + 1, upperUv + j + 1, upperUv + j});
        }
    }

    bool hasUvs() const { return uvs_; }

    /// Edges between a vertex and a whole ring.
    void addSpokes(std::int32_t ring, std::int32_t middle, bool fromMiddle, bool smooth = true) {
        for (std::int32_t j = 0; j < around_; ++j) {
            const std::int32_t rim = vertex(ring, j);
            builder_.addEdge(fromMiddle ? middle : rim, fromMiddle ? rim : middle, smooth);
        }
    }

private:
    std::int32_t around_;
    bool uvs_;
    MeshBuilder builder_;
};

} // namespace host
