#include "geometry/faceSplitting.h"

#include "geometry/earClipping.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tvk {

namespace {

using Vector = std::array<double, 3>;
using Triangle = std::array<int32_t, 3>;

constexpr double kCosineOfFold = 0.98480775301220805937; // of kQuadFoldDegrees
static_assert(kQuadFoldDegrees == 10.0);

Vector minus(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
double lengthOf(const Vector& a) {
    return std::sqrt(dot(a, a));
}
bool isFinite(const Vector& a) {
    return std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[2]);
}

// The face without what comes twice, and what of it is drawn.
class FaceSplitter {
public:
    FaceSplitter(const std::vector<FacePoint>& facePoints, SplitFaces& splitParts)
        : face(facePoints), parts(splitParts) {}

    void run() {
        parts.corners.clear();
        parts.sizes.clear();
        reduce();
        if (kept.size() < 3)
            return;
        if (kept.size() == 3)
            addTriangle({0, 1, 2});
        else if (kept.size() == 4)
            splitQuad();
        else
            splitLarge();
    }

private:
    static bool isSame(const FacePoint& a, const FacePoint& b) {
        return a.quantised == b.quantised && a.matrix == b.matrix;
    }

    void reduce() {
        for (std::size_t i = 0; i < face.size(); ++i) {
            if (kept.empty() || !isSame(face[static_cast<std::size_t>(kept.back())], face[i]))
                kept.push_back(static_cast<int32_t>(i));
        }
        while (kept.size() > 1 && isSame(at(0), at(static_cast<int32_t>(kept.size()) - 1)))
            kept.pop_back();
    }

    // Numbers of corners count those that are kept.
    const FacePoint& at(int32_t corner) const {
        return face[static_cast<std::size_t>(kept[static_cast<std::size_t>(corner)])];
    }
    Vector normalOf(int32_t a, int32_t b, int32_t c) const {
        return cross(minus(at(b).point, at(a).point), minus(at(c).point, at(a).point));
    }

    // As the file shows it, in whole units.
    bool hasArea(const Triangle& t) const {
        const auto edge = [&](int32_t from, int32_t to, std::size_t axis) {
            return int64_t{at(to).quantised[axis]} - at(from).quantised[axis];
        };
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const std::size_t other = (axis + 1) % 3;
            if (edge(t[0], t[1], axis) * edge(t[0], t[2], other) != edge(t[0], t[1], other) * edge(t[0], t[2], axis))
                return true;
        }
        return false;
    }

    // Motion may open a triangle between matrices, unless two of its corners are the same.
    bool isDrawn(const Triangle& t) const {
        if (isSame(at(t[0]), at(t[1])) || isSame(at(t[1]), at(t[2])) || isSame(at(t[2]), at(t[0])))
            return false;
        return hasArea(t) || at(t[0]).matrix != at(t[1]).matrix || at(t[1]).matrix != at(t[2]).matrix;
    }

    void addTriangle(const Triangle& t) {
        if (!isDrawn(t))
            return;
        for (const int32_t corner : t)
            parts.corners.push_back(kept[static_cast<std::size_t>(corner)]);
        parts.sizes.push_back(3);
    }

    void addQuad() {
        parts.corners = kept;
        parts.sizes.push_back(4);
    }

    // Cuts the quad from a corner to the opposite one.
    void cutFrom(int32_t corner) {
        const auto turned = [&](int32_t step) { return (corner + step) & 3; };
        addTriangle({corner, turned(1), turned(2)});
        addTriangle({corner, turned(2), turned(3)});
    }

    bool isFolded(int32_t diagonal) const {
        const Vector a = normalOf(diagonal, diagonal + 1, (diagonal + 2) & 3);
        const Vector b = normalOf(diagonal, (diagonal + 2) & 3, (diagonal + 3) & 3);
        const double lengths = lengthOf(a) * lengthOf(b);
        // A half without area has no direction; the quad is the other half then.
        return lengths > 0 && dot(a, b) < kCosineOfFold * lengths;
    }

    bool isQuadDrawn() const { return isDrawn({0, 1, 2}) || isDrawn({0, 2, 3}); }

    double lengthOfDiagonal(int32_t corner) const { return lengthOf(minus(at(corner + 2).point, at(corner).point)); }

    // The area of the smaller half, twice.
    double smallerHalf(int32_t diagonal) const {
        return std::min(lengthOf(normalOf(diagonal, diagonal + 1, (diagonal + 2) & 3)),
                        lengthOf(normalOf(diagonal, (diagonal + 2) & 3, (diagonal + 3) & 3)));
    }

    void splitQuad() {
        const Vector normal = cross(minus(at(2).point, at(0).point), minus(at(3).point, at(1).point));
        const double area = lengthOf(normal);
        if (!isFinite(normal)) {
            cutFrom(0);
            return;
        }
        int negative = 0;
        int zero = 0;
        int32_t reflex = -1;
        int32_t straight = -1;
        for (int32_t k = 0; k < 4; ++k) {
            const int32_t next = (k + 1) & 3;
            const int32_t before = (k + 3) & 3;
            const double turn = dot(normalOf(k, next, before), normal);
            const double whole =
                area * lengthOf(minus(at(next).point, at(k).point)) * lengthOf(minus(at(before).point, at(k).point));
            if (std::abs(turn) <= kStraight * whole) {
                ++zero;
                straight = k;
            } else if (turn < 0) {
                ++negative;
                reflex = k;
            }
        }
        const bool isPinched = isSame(at(0), at(2)) || isSame(at(1), at(3));
        if (negative == 0 && zero <= 1 && area > 0 && !isPinched && !isFolded(0) && !isFolded(1)) {
            if (isQuadDrawn())
                addQuad();
        } else if (negative >= 2 || !(area > 0) || isPinched) {
            cutFrom(smallerHalf(1) > smallerHalf(0) ? 1 : 0);
        } else if (negative == 1) {
            cutFrom(reflex);
        } else if (zero > 0) {
            cutFrom(straight);
        } else {
            cutFrom(lengthOfDiagonal(1) < lengthOfDiagonal(0) ? 1 : 0);
        }
    }

    void splitLarge() {
        const auto count = static_cast<int32_t>(kept.size());
        const Vector origin = at(0).point;
        Vector normal{};
        for (int32_t i = 0; i < count; ++i) {
            const Vector part = cross(minus(at(i).point, origin), minus(at(i + 1 == count ? 0 : i + 1).point, origin));
            for (std::size_t axis = 0; axis < 3; ++axis)
                normal[axis] += part[axis];
        }
        const double length = lengthOf(normal);
        std::vector<Triangle> triangles;
        if (std::isfinite(length) && length > 0) {
            clipEars(projected(normal, length), triangles);
        } else {
            for (int32_t i = 1; i + 1 < count; ++i)
                triangles.push_back({0, i, i + 1});
        }
        for (const Triangle& triangle : triangles)
            addTriangle(triangle);
    }

    // The outline in the plane of the normal, counter-clockwise.
    std::vector<PlanePoint> projected(const Vector& normal, double length) const {
        const Vector up{normal[0] / length, normal[1] / length, normal[2] / length};
        // Any direction in the plane; crossing with the axis along which the normal is shortest is the most exact.
        std::size_t shortest = 0;
        for (std::size_t axis = 1; axis < 3; ++axis) {
            if (std::abs(up[axis]) < std::abs(up[shortest]))
                shortest = axis;
        }
        Vector axis{};
        axis[shortest] = 1;
        Vector first = cross(axis, up);
        const double firstLength = lengthOf(first);
        for (double& component : first)
            component /= firstLength;
        const Vector second = cross(up, first);
        std::vector<PlanePoint> outline;
        outline.reserve(kept.size());
        for (int32_t i = 0; i < static_cast<int32_t>(kept.size()); ++i) {
            const Vector offset = minus(at(i).point, at(0).point);
            outline.push_back({dot(offset, first), dot(offset, second)});
        }
        return outline;
    }

    // The sine below which a corner counts as straight: what rounding makes of points on a line.
    static constexpr double kStraight = 1e-12;

    const std::vector<FacePoint>& face;
    SplitFaces& parts;
    std::vector<int32_t> kept;
};

} // namespace

void splitFace(const std::vector<FacePoint>& face, SplitFaces& parts) {
    FaceSplitter(face, parts).run();
}

} // namespace tvk
