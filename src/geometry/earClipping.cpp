#include "geometry/earClipping.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <queue>
#include <utility>

namespace tvk {

namespace {

// Cells over the outline's box, about one per corner, with the corners that are still there. Made anew as corners go,
// so that the larger triangles of later ears do not span ever more cells.
class CornerGrid {
public:
    CornerGrid(const std::vector<PlanePoint>& outline, const std::vector<int32_t>& corners) : points(&outline) {
        low = high = point(corners[0]);
        for (const int32_t corner : corners) {
            for (std::size_t axis = 0; axis < 2; ++axis) {
                low[axis] = std::min(low[axis], point(corner)[axis]);
                high[axis] = std::max(high[axis], point(corner)[axis]);
            }
        }
        side = std::max<std::size_t>(1, static_cast<std::size_t>(std::sqrt(static_cast<double>(corners.size()))));
        cells.resize(side * side);
        for (const int32_t corner : corners)
            cells[cellOf(point(corner))].push_back(corner);
    }

    void remove(int32_t corner) {
        std::vector<int32_t>& cell = cells[cellOf(point(corner))];
        cell.erase(std::find(cell.begin(), cell.end(), corner));
    }

    // The first corner within a box for which test(corner) holds, -1 when there is none.
    template <typename Test>
    int32_t findWithin(const PlanePoint& from, const PlanePoint& to, Test test) const {
        for (std::size_t y = indexOf(from, 1); y <= indexOf(to, 1); ++y) {
            for (std::size_t x = indexOf(from, 0); x <= indexOf(to, 0); ++x) {
                for (const int32_t corner : cells[y * side + x]) {
                    if (test(corner))
                        return corner;
                }
            }
        }
        return -1;
    }

private:
    std::size_t indexOf(const PlanePoint& point, std::size_t axis) const {
        const double extent = high[axis] - low[axis];
        if (!(extent > 0))
            return 0;
        const double at = (point[axis] - low[axis]) / extent * static_cast<double>(side);
        return std::min(side - 1, static_cast<std::size_t>(std::max(0.0, at)));
    }
    std::size_t cellOf(const PlanePoint& point) const { return indexOf(point, 1) * side + indexOf(point, 0); }

    const PlanePoint& point(int32_t corner) const { return (*points)[static_cast<std::size_t>(corner)]; }

    const std::vector<PlanePoint>* points;
    PlanePoint low{};
    PlanePoint high{};
    std::size_t side = 1;
    std::vector<std::vector<int32_t>> cells;
};

double cross(const PlanePoint& origin, const PlanePoint& a, const PlanePoint& b) {
    return (a[0] - origin[0]) * (b[1] - origin[1]) - (a[1] - origin[1]) * (b[0] - origin[0]);
}

double lengthBetween(const PlanePoint& a, const PlanePoint& b) {
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]));
}

// The cosine of the angle at a corner; 1 where there is no angle.
double cosineAt(const PlanePoint& corner, const PlanePoint& a, const PlanePoint& b) {
    const double lengths = lengthBetween(corner, a) * lengthBetween(corner, b);
    if (!(lengths > 0))
        return 1;
    return ((a[0] - corner[0]) * (b[0] - corner[0]) + (a[1] - corner[1]) * (b[1] - corner[1])) / lengths;
}

class EarClipper {
public:
    EarClipper(const std::vector<PlanePoint>& outline, std::vector<std::array<int32_t, 3>>& output)
        : points(outline), triangles(output), next(outline.size()), previous(outline.size()), versions(outline.size()),
          blocked(outline.size()), isGone(outline.size(), 0), left(outline.size()), grid(outline, allCorners()),
          gridSize(left) {
        const auto count = static_cast<int32_t>(left);
        for (int32_t corner = 0; corner < count; ++corner) {
            next[at(corner)] = corner + 1 == count ? 0 : corner + 1;
            previous[at(corner)] = corner == 0 ? count - 1 : corner - 1;
        }
    }

    void run() {
        for (int32_t corner = 0; corner < static_cast<int32_t>(points.size()); ++corner)
            examine(corner);
        while (left > 3 && !ears.empty()) {
            const Ear ear = ears.top();
            ears.pop();
            if (isGone[at(ear.corner)] == 0 && versions[at(ear.corner)] == ear.version)
                cut(ear.corner);
        }
        fanRest();
    }

private:
    struct Ear {
        double cosine; // of its least angle
        int32_t corner;
        uint32_t version;
    };
    struct Later {
        bool operator()(const Ear& a, const Ear& b) const {
            return a.cosine != b.cosine ? a.cosine > b.cosine : a.corner > b.corner;
        }
    };

    static std::size_t at(int32_t corner) { return static_cast<std::size_t>(corner); }
    const PlanePoint& point(int32_t corner) const { return points[at(corner)]; }

    std::vector<int32_t> allCorners() const {
        std::vector<int32_t> corners;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (isGone[i] == 0)
                corners.push_back(static_cast<int32_t>(i));
        }
        return corners;
    }

    // Notes a corner as an ear, or with the corner that keeps it from being one.
    void examine(int32_t corner) {
        ++versions[at(corner)];
        const PlanePoint& a = point(previous[at(corner)]);
        const PlanePoint& b = point(corner);
        const PlanePoint& c = point(next[at(corner)]);
        if (!(cross(a, b, c) > kFlat * lengthBetween(a, b) * lengthBetween(b, c)))
            return;
        const int32_t inside = findInside(a, b, c);
        if (inside >= 0)
            blocked[at(inside)].push_back(corner);
        else
            ears.push(
                {std::max({cosineAt(a, c, b), cosineAt(b, a, c), cosineAt(c, b, a)}), corner, versions[at(corner)]});
    }

    int32_t findInside(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) const {
        const PlanePoint from{std::min({a[0], b[0], c[0]}), std::min({a[1], b[1], c[1]})};
        const PlanePoint to{std::max({a[0], b[0], c[0]}), std::max({a[1], b[1], c[1]})};
        return grid.findWithin(from, to, [&](int32_t other) {
            const PlanePoint& p = point(other);
            return p != a && p != b && p != c && cross(a, b, p) >= 0 && cross(b, c, p) >= 0 && cross(c, a, p) >= 0;
        });
    }

    void cut(int32_t corner) {
        const int32_t before = previous[at(corner)];
        const int32_t after = next[at(corner)];
        triangles.push_back({before, corner, after});
        next[at(before)] = after;
        previous[at(after)] = before;
        isGone[at(corner)] = 1;
        --left;
        grid.remove(corner);
        if (left * 4 < gridSize) {
            grid = CornerGrid(points, allCorners());
            gridSize = left;
        }
        examine(before);
        examine(after);
        for (const int32_t other : std::exchange(blocked[at(corner)], {})) {
            if (isGone[at(other)] == 0 && other != before && other != after)
                examine(other);
        }
    }

    void fanRest() {
        const auto first = static_cast<int32_t>(std::find(isGone.begin(), isGone.end(), uint8_t{0}) - isGone.begin());
        for (int32_t corner = next[at(first)]; next[at(corner)] != first; corner = next[at(corner)])
            triangles.push_back({first, corner, next[at(corner)]});
    }

    // The sine below which a corner counts as straight: what rounding makes of points on a line.
    static constexpr double kFlat = 1e-12;

    const std::vector<PlanePoint>& points;
    std::vector<std::array<int32_t, 3>>& triangles;
    std::vector<int32_t> next;
    std::vector<int32_t> previous;
    std::vector<uint32_t> versions;
    std::vector<std::vector<int32_t>> blocked; // per corner those whose triangle it lies in
    std::vector<uint8_t> isGone;
    std::size_t left;
    CornerGrid grid;
    std::size_t gridSize;
    std::priority_queue<Ear, std::vector<Ear>, Later> ears;
};

} // namespace

void clipEars(const std::vector<PlanePoint>& outline, std::vector<std::array<int32_t, 3>>& triangles) {
    EarClipper(outline, triangles).run();
}

} // namespace tvk
