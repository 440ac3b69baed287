#include "host/api/faceShape.h"

#include "host/geometry/meshNormals.h"
#include "host/geometry/triangulation.h"

#include <algorithm>
#include <cmath>
#include <utility>

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
    std::vector<V3d> polygon;
    for (std::int32_t corner = 0; corner < count; ++corner) {
        polygon.push_back(pointOf(mesh, face, corner));
    }
    std::vector<std::int32_t> corners;
    for (const Triangle& triangle : triangulate(polygon)) {
        corners.insert(corners.end(), triangle.begin(), triangle.end());
    }
    return corners;
}

} // namespace host
