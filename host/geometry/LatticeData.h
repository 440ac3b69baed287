#pragma once

#include "host/graph/Data.h"

#include <Imath/ImathVec.h>

#include <cstddef>
#include <vector>

namespace host {

/// A box of points, in the object space of its shape, centimetres: s * t * u of them, s fastest, then t.
struct LatticeData final : Data {
    LatticeData() : Data(DataKind::kLattice) {}

    std::size_t s = 0, t = 0, u = 0; // points along each side
    std::vector<Imath::V3d> points;

    /// At least two points along each side, and as many in all as these make.
    bool isWhole() const {
        const std::size_t most = points.size();
        return s >= 2 && t >= 2 && u >= 2 && s <= most && t <= most && u <= most && s * t <= most && s * t * u == most;
    }
    const Imath::V3d& at(std::size_t i, std::size_t j, std::size_t k) const { return points[(k * t + j) * s + i]; }
};

} // namespace host
