#include "host/geometry/meshNormals.h"

#include <cmath>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

V3d pointOf(const MeshData& mesh, std::int32_t corner) {
    return V3d((*mesh.points)[at(mesh.topology->cornerVertices()[at(corner)])]);
}

/// 0 0 0 for what has no direction: no length, or not a number.
V3d unit(const V3d& vector) {
    const double length = vector.length();
    return length > 0.0 && std::isfinite(length) ? vector / length : V3d(0.0);
}

/// Angle between the two edges of a face that meet in a corner of its loop first … last - 1; radians.
double cornerAngle(const MeshData& mesh, std::int32_t corner, std::int32_t first, std::int32_t last) {
    const V3d point = pointOf(mesh, corner);
    const V3d before = unit(pointOf(mesh, corner == first ? last - 1 : corner - 1) - point);
    const V3d after = unit(pointOf(mesh, corner + 1 == last ? first : corner + 1) - point);
    return std::atan2((before % after).length(), before ^ after);
}

/// How much a face counts in the normals of its corners.
class FaceShare {
public:
    FaceShare(const MeshData& mesh, NormalWeighting weighting)
        : mesh_(mesh), byAngle_(weighting == NormalWeighting::kAngle || weighting == NormalWeighting::kAngleAndArea),
          byArea_(weighting == NormalWeighting::kArea || weighting == NormalWeighting::kAngleAndArea) {}

    /// Calls add(corner, share) for each corner of a face.
    template <typename Add>
    void forCorners(std::int32_t face, Add&& add) const {
        const V3d area = faceAreaVector(mesh_, face);
        const V3d normal = byArea_ && std::isfinite(area.length()) ? area : unit(area);
        for (std::int32_t loop = 0; loop < mesh_.topology->loopCount(face); ++loop) {
            const std::int32_t first = mesh_.topology->firstCornerOfLoop(face, loop);
            const std::int32_t last = mesh_.topology->firstCornerOfLoop(face, loop + 1);
            for (std::int32_t corner = first; corner < last; ++corner) {
                add(corner, byAngle_ ? normal * cornerAngle(mesh_, corner, first, last) : normal);
            }
        }
    }

private:
    const MeshData& mesh_;
    bool byAngle_, byArea_;
};

} // namespace

V3d faceAreaVector(const MeshData& mesh, std::int32_t face) {
    const std::int32_t first = mesh.topology->firstCornerOfLoop(face, 0);
    const std::int32_t last = mesh.topology->firstCornerOfLoop(face, 1);
    const V3d origin = pointOf(mesh, first); // relative to it: far from the origin of space nothing is lost
    V3d sum(0.0);
    V3d previous(0.0);
    for (std::int32_t corner = first + 1; corner < last; ++corner) {
        const V3d next = pointOf(mesh, corner) - origin;
        sum += previous % next;
        previous = next;
    }
    return sum;
}

V3f faceNormal(const MeshData& mesh, std::int32_t face) {
    return V3f(unit(faceAreaVector(mesh, face)));
}

V3f vertexNormal(const MeshData& mesh, std::int32_t vertex, NormalWeighting weighting) {
    const IndexLists& corners = mesh.topology->cornersOfVertex();
    const std::vector<std::int32_t>& faces = mesh.topology->cornerFaces();
    const FaceShare share(mesh, weighting);
    V3d sum(0.0);
    for (const std::int32_t* corner = corners.begin(vertex); corner != corners.end(vertex); ++corner) {
        share.forCorners(faces[at(*corner)], [&](std::int32_t each, const V3d& part) {
            if (each == *corner) {
                sum += part;
            }
        });
    }
    return V3f(unit(sum));
}

Points computeNormals(const MeshData& mesh) {
    const NormalFans& fans = mesh.topology->normalFans();
    std::vector<V3d> sums(at(fans.count), V3d(0.0));
    const FaceShare share(mesh, mesh.weighting);
    for (std::int32_t face = 0; face < mesh.topology->faceCount(); ++face) {
        share.forCorners(face,
                         [&](std::int32_t corner, const V3d& part) { sums[at(fans.ofCorner[at(corner)])] += part; });
    }
    Points normals(sums.size());
    for (std::int32_t id = 0; id < fans.count; ++id) {
        normals[at(id)] = V3f(unit(mesh.isUserNormal(id) ? V3d((*mesh.userNormals)[at(id)]) : sums[at(id)]));
    }
    return normals;
}

} // namespace host
