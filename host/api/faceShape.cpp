#include "host/api/faceShape.h"

#include "host/geometry/meshNormals.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::V2d;
using Imath::V3d;

constexpr double kPlanarTolerance = 1e-4; // of the size of the face

V3d pointOf(const MeshData& mesh, std::int32_t face, std::int32_t corner) {
    return V3d((*mesh.points)[static_cast<std::size_t>(mesh.topology->verticesOf(face)[corner])]);
}

/// The corners of a face without holes as points of the plane across its normal, counter-clockwise.
std::vector<V2d> flatten(const MeshData& mesh, std::int32_t face) {
    const V3d normal = faceAreaVector(mesh, face);
    int along = std::abs(normal.y) > std::abs(normal.x) ? 1 : 0;
    along = std::abs(normal.z) > std::abs(normal[along]) ? 2 : along;
    int right = (along + 1) % 3;
    int up = (along + 2) % 3;
    if (normal[along] < 0.0) {
        std::swap(right, up);
    }
    std::vector<V2d> points;
    for (std::int32_t corner = 0; corner < mesh.topology->cornerCount(face); ++corner) {
        const V3d point = pointOf(mesh, face, corner);
        points.emplace_back(point[right], point[up]);
    }
    return points;
}

/// Twice the area of a triangle; positive when it turns left.
double turn(const V2d& a, const V2d& b, const V2d& c) {
    return (b - a).cross(c - b);
}

bool isInside(const V2d& point, const V2d& a, const V2d& b, const V2d& c) {
    return turn(a, b, point) >= 0.0 && turn(b, c, point) >= 0.0 && turn(c, a, point) >= 0.0;
}

/// Cuts ears off a polygon until a triangle is left.
class EarClipper {
public:
    explicit EarClipper(std::vector<V2d> points) : points_(std::move(points)), left_(points_.size()) {
        for (std::size_t i = 0; i < points_.size(); ++i) {
            next_.push_back((i + 1) % points_.size());
            previous_.push_back((i + points_.size() - 1) % points_.size());
        }
        for (std::size_t i = 0; i < points_.size(); ++i) {
            if (turnAt(i) < 0.0) {
                inward_.push_back(i);
            }
        }
    }

    std::vector<std::int32_t> run() {
        std::size_t tip = 1;
        std::size_t refused = 0;
        while (left_ > 3) {
            // Where nothing is an ear the polygon crosses itself; any corner is as good as another.
            if (isEar(tip) || refused == left_) {
                tip = cut(tip);
                refused = 0;
            } else {
                tip = next_[tip];
                ++refused;
            }
        }
        emit(tip);
        return std::move(triangles_);
    }

private:
    double turnAt(std::size_t i) const { return turn(points_[previous_[i]], points_[i], points_[next_[i]]); }

    bool isEar(std::size_t tip) const {
        const std::size_t before = previous_[tip];
        const std::size_t after = next_[tip];
        if (turnAt(tip) <= 0.0) {
            return false;
        }
        return std::none_of(inward_.begin(), inward_.end(), [&](std::size_t other) {
            return other != before && other != tip && other != after &&
                   isInside(points_[other], points_[before], points_[tip], points_[after]);
        });
    }

    void emit(std::size_t tip) {
        for (const std::size_t corner : {previous_[tip], tip, next_[tip]}) {
            triangles_.push_back(static_cast<std::int32_t>(corner));
        }
    }

    /// Returns where to look on.
    std::size_t cut(std::size_t tip) {
        emit(tip);
        const std::size_t before = previous_[tip];
        const std::size_t after = next_[tip];
        next_[before] = after;
        previous_[after] = before;
        --left_;
        // Corners only ever turn further outward when an ear beside them goes.
        inward_.erase(std::remove_if(
                          inward_.begin(), inward_.end(),
                          [&](std::size_t i) { return i == tip || ((i == before || i == after) && turnAt(i) >= 0.0); }),
                      inward_.end());
        return after;
    }

    std::vector<V2d> points_;
    std::vector<std::size_t> next_, previous_;
    std::vector<std::size_t> inward_; // corners that turn right
    std::size_t left_;
    std::vector<std::int32_t> triangles_;
};

} // namespace

bool isConvexFace(const MeshData& mesh, std::int32_t face) {
    const std::int32_t count = mesh.topology->cornerCount(face);
    if (mesh.topology->hasHoles(face) || count <= 3) {
        return !mesh.topology->hasHoles(face);
    }
    const std::vector<V2d> points = flatten(mesh, face);
    double turned = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const V2d in = points[(i + 1) % points.size()] - points[i];
        const V2d out = points[(i + 2) % points.size()] - points[(i + 1) % points.size()];
        const double angle = std::atan2(in.cross(out), in.dot(out));
        if (angle < -1e-6) { // three points on a line, up to rounding, do not turn
            return false;
        }
        turned += angle;
    }
    return turned < 7.0; // once around is 2 pi, twice is 4 pi
}

bool isPlanarFace(const MeshData& mesh, std::int32_t face) {
    const V3d normal = V3d(faceNormal(mesh, face));
    const V3d origin = pointOf(mesh, face, 0);
    double size = 0.0;
    double distance = 0.0;
    for (std::int32_t corner = 1; corner < mesh.topology->cornerCount(face); ++corner) {
        const V3d arm = pointOf(mesh, face, corner) - origin;
        size = std::max(size, arm.length());
        distance = std::max(distance, std::abs(arm.dot(normal)));
    }
    return distance <= kPlanarTolerance * size;
}

std::vector<std::int32_t> triangulateFace(const MeshData& mesh, std::int32_t face) {
    const std::int32_t count = mesh.topology->cornerCount(face);
    if (mesh.topology->hasHoles(face) || count < 3) {
        return {};
    }
    return EarClipper(flatten(mesh, face)).run();
}

} // namespace host
