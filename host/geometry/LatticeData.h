#pragma once

#include "host/geometry/MeshData.h"

#include <Imath/ImathVec.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace host {

/// A box of points, in the object space of its shape, centimetres: s * t * u of them, s fastest, then t. Immutable once
/// in a plug.
struct LatticeData final : Data {
    LatticeData() : Data(DataKind::kLattice) {}
    /// Points at even distances in the cube of side 1 about the origin, as a new lattice has them. Fewer than 2 points
    /// along a side count as 2, more than kMostPoints as that.
    static LatticeData regular(std::size_t s, std::size_t t, std::size_t u);

    std::size_t s = 0, t = 0, u = 0; // points along each side
    std::vector<Imath::V3d> points;
    std::vector<ComponentGroup> groups;

    /// Two points at least along each side, kMostPoints at most, and as many in all as these make.
    bool isWhole() const;
    /// No artist makes so many; with more, places would take for ever.
    static constexpr std::size_t kMostPoints = 100;
    const Imath::V3d& at(std::size_t i, std::size_t j, std::size_t k) const { return points[(k * t + j) * s + i]; }

    /// Per point, whether the list names it: pt[s][t][u].
    std::vector<bool> named(const ComponentList& list) const;

    /// Where the lattice takes a place of the undeformed one, whose corners are 0 and 1 along each side: the sum of all
    /// points, weighted by the Bernstein polynomials of each side's degree. Needs a whole lattice.
    Imath::V3d placeAt(const Imath::V3d& part) const;
    /// Whether the points are those of the regular lattice, moved, turned, scaled or sheared as one. Needs a whole
    /// lattice.
    bool isAffine() const;
};

using LatticePtr = std::shared_ptr<const LatticeData>;

/// The data as a whole lattice; null when there is none, it is of another kind, or points are missing.
LatticePtr latticeOf(const DataPtr& data);

} // namespace host
