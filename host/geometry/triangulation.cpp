#include "host/geometry/triangulation.h"

#include <cstddef>

namespace host {

namespace {

using Imath::V3d;

V3d normalOf(const std::vector<V3d>& polygon) {
    V3d sum(0.0);
    for (std::size_t i = 2; i < polygon.size(); ++i) {
        sum += (polygon[i - 1] - polygon[0]) % (polygon[i] - polygon[0]);
    }
    return sum;
}

/// Twice the area of a triangle as seen from where the normal points to; negative when it is turned away.
double areaOf(const V3d& a, const V3d& b, const V3d& c, const V3d& normal) {
    return ((b - a) % (c - a)) ^ normal;
}

std::vector<Triangle> cutQuad(const std::vector<V3d>& quad) {
    const V3d normal = normalOf(quad);
    const bool firstFits =
        areaOf(quad[0], quad[1], quad[2], normal) > 0 && areaOf(quad[0], quad[2], quad[3], normal) > 0;
    const bool secondFits =
        areaOf(quad[0], quad[1], quad[3], normal) > 0 && areaOf(quad[3], quad[1], quad[2], normal) > 0;
    const bool firstIsShorter = (quad[2] - quad[0]).length2() < (quad[3] - quad[1]).length2();
    if (firstFits && (firstIsShorter || !secondFits)) {
        return {{0, 1, 2}, {0, 2, 3}};
    }
    return {{0, 1, 3}, {3, 1, 2}};
}

/// Cuts ears off until a triangle is left. Corners are a ring; those that are cut leave it.
class EarCutter {
public:
    explicit EarCutter(const std::vector<V3d>& polygon)
        : polygon_(polygon), normal_(normalOf(polygon)), next_(polygon.size()), previous_(polygon.size()) {
        const std::size_t count = polygon.size();
        for (std::size_t i = 0; i < count; ++i) {
            next_[i] = (i + 1) % count;
            previous_[i] = (i + count - 1) % count;
        }
    }

    std::vector<Triangle> run() {
        std::vector<Triangle> triangles;
        std::size_t left = polygon_.size();
        std::size_t corner = 1 % left;
        for (std::size_t looked = 0; left > 3;) {
            if (looked < left && !isEar(corner)) {
                corner = next_[corner];
                ++looked;
                continue;
            }
            triangles.push_back(cut(corner)); // also when no corner is an ear: then any will do
            corner = next_[corner];
            --left;
            looked = 0;
        }
        triangles.push_back(cut(corner));
        return triangles;
    }

private:
    double turnAt(std::size_t corner) const {
        return areaOf(polygon_[previous_[corner]], polygon_[corner], polygon_[next_[corner]], normal_);
    }

    bool isEar(std::size_t corner) const {
        if (!(turnAt(corner) > 0.0)) {
            return false;
        }
        const V3d& a = polygon_[previous_[corner]];
        const V3d& b = polygon_[corner];
        const V3d& c = polygon_[next_[corner]];
        for (std::size_t other = next_[next_[corner]]; other != previous_[corner]; other = next_[other]) {
            const V3d& point = polygon_[other];
            if (turnAt(other) <= 0.0 && areaOf(a, b, point, normal_) >= 0.0 && areaOf(b, c, point, normal_) >= 0.0 &&
                areaOf(c, a, point, normal_) >= 0.0) {
                return false;
            }
        }
        return true;
    }

    Triangle cut(std::size_t corner) {
        const std::size_t before = previous_[corner];
        const std::size_t after = next_[corner];
        next_[before] = after;
        previous_[after] = before;
        return {static_cast<std::int32_t>(before), static_cast<std::int32_t>(corner), static_cast<std::int32_t>(after)};
    }

    const std::vector<V3d>& polygon_;
    V3d normal_;
    std::vector<std::size_t> next_, previous_;
};

} // namespace

std::vector<Triangle> triangulate(const std::vector<V3d>& polygon) {
    if (polygon.size() < 3) {
        return {};
    }
    return polygon.size() == 4 ? cutQuad(polygon) : EarCutter(polygon).run();
}

} // namespace host
