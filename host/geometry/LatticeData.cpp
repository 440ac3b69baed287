#include "host/geometry/LatticeData.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

using Imath::V3d;

/// The Bernstein polynomials of a degree, at x, by de Casteljau's way of adding up.
std::vector<double> bernstein(std::size_t count, double x) {
    std::vector<double> values(count, 0.0);
    values[0] = 1.0;
    for (std::size_t degree = 1; degree < count; ++degree) {
        for (std::size_t i = degree; i > 0; --i) {
            values[i] = values[i] * (1.0 - x) + values[i - 1] * x;
        }
        values[0] *= 1.0 - x;
    }
    return values;
}

std::size_t sideOf(std::size_t count) {
    return std::clamp<std::size_t>(count, 2, LatticeData::kMostPoints);
}

double partOf(std::size_t at, std::size_t count) {
    return static_cast<double>(at) / static_cast<double>(count - 1);
}

bool isIn(IndexRange range, std::size_t at) {
    const auto index = static_cast<std::int64_t>(at);
    return index >= range.first && index <= range.last;
}

} // namespace

LatticeData LatticeData::regular(std::size_t s, std::size_t t, std::size_t u) {
    LatticeData lattice;
    lattice.s = sideOf(s);
    lattice.t = sideOf(t);
    lattice.u = sideOf(u);
    lattice.points.reserve(lattice.s * lattice.t * lattice.u);
    for (std::size_t k = 0; k < lattice.u; ++k) {
        for (std::size_t j = 0; j < lattice.t; ++j) {
            for (std::size_t i = 0; i < lattice.s; ++i) {
                lattice.points.push_back(V3d(partOf(i, lattice.s), partOf(j, lattice.t), partOf(k, lattice.u)) -
                                         V3d(0.5));
            }
        }
    }
    return lattice;
}

bool LatticeData::isWhole() const {
    const auto isSide = [](std::size_t count) { return count == sideOf(count); };
    return isSide(s) && isSide(t) && isSide(u) && s * t * u == points.size();
}

std::vector<bool> LatticeData::named(const ComponentList& list) const {
    std::vector<bool> result(points.size(), false);
    for (const ComponentRange& range : list.ranges) {
        if (range.kind != ComponentKind::kLatticePoint || range.dimensions != 3) {
            continue;
        }
        for (std::size_t point = 0; point < points.size(); ++point) {
            if (isIn(range.index[0], point % s) && isIn(range.index[1], point / s % t) &&
                isIn(range.index[2], point / (s * t))) {
                result[point] = true;
            }
        }
    }
    return result;
}

V3d LatticeData::placeAt(const V3d& part) const {
    const std::array<std::vector<double>, 3> weights{bernstein(s, part.x), bernstein(t, part.y), bernstein(u, part.z)};
    V3d place(0.0);
    for (std::size_t k = 0; k < u; ++k) {
        for (std::size_t j = 0; j < t; ++j) {
            V3d row(0.0);
            for (std::size_t i = 0; i < s; ++i) {
                row += at(i, j, k) * weights[0][i];
            }
            place += row * (weights[1][j] * weights[2][k]);
        }
    }
    return place;
}

bool LatticeData::isAffine() const {
    constexpr double kTolerance = 1e-6; // of the lattice's size
    const V3d& origin = at(0, 0, 0);
    const V3d sides[3] = {at(s - 1, 0, 0) - origin, at(0, t - 1, 0) - origin, at(0, 0, u - 1) - origin};
    const double size = sides[0].length() + sides[1].length() + sides[2].length();
    for (std::size_t point = 0; point < points.size(); ++point) {
        const V3d expected = origin + sides[0] * partOf(point % s, s) + sides[1] * partOf(point / s % t, t) +
                             sides[2] * partOf(point / (s * t), u);
        if (!((points[point] - expected).length() <= kTolerance * size)) {
            return false;
        }
    }
    return true;
}

LatticePtr latticeOf(const DataPtr& data) {
    if (data == nullptr || data->kind != DataKind::kLattice) {
        return nullptr;
    }
    auto lattice = std::static_pointer_cast<const LatticeData>(data);
    return lattice->isWhole() ? lattice : nullptr;
}

} // namespace host
