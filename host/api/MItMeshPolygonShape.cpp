// What the shape of a face is, and which faces are beside it.

#include <maya/MItMeshPolygon.h>

#include "host/api/faceShape.h"
#include "host/api/meshWalks.h"
#include "host/api/statusResult.h"
#include "host/geometry/meshNormals.h"

#include <algorithm>
#include <vector>

using host::askWalk;
using host::fail;
using host::MeshFrame;
using host::MeshTopology;
using host::succeed;
using host::api::MeshWalk;

namespace {

/// Answers a question about the current face.
template <class Answer>
bool ask(const MeshWalk& walk, MStatus* status, Answer answer) {
    return walk.isDone() ? fail<bool>(status, MStatus::kFailure) : succeed<bool>(status, answer(walk.current()));
}

std::vector<std::int32_t> edgesOf(const MeshTopology& topology, std::int32_t face) {
    const auto first = topology.cornerEdges().begin() + topology.firstCorner(face);
    std::vector<std::int32_t> edges(first, first + topology.cornerCount(face));
    std::transform(edges.begin(), edges.end(), edges.begin(), MeshTopology::edgeNumber);
    return host::uniqueNumbers(std::move(edges));
}

/// The faces that have one of the edges, the face itself left out.
std::vector<std::int32_t> neighbours(const MeshTopology& topology, std::int32_t face) {
    std::vector<std::int32_t> faces;
    for (const std::int32_t edge : edgesOf(topology, face)) {
        faces.insert(faces.end(), topology.facesOfEdge().begin(edge), topology.facesOfEdge().end(edge));
    }
    faces.erase(std::remove(faces.begin(), faces.end(), face), faces.end());
    return host::uniqueNumbers(std::move(faces));
}

/// Length of the area vector of a loop, halved.
double loopArea(const MeshWalk& walk, const MeshFrame& frame, std::int32_t loop) {
    const MeshTopology& topology = *walk.mesh->topology;
    const auto pointAt = [&](std::int32_t corner) {
        const std::int32_t vertex = topology.cornerVertices()[static_cast<std::size_t>(corner)];
        return frame.point((*walk.mesh->points)[static_cast<std::size_t>(vertex)]);
    };
    const std::int32_t first = topology.firstCornerOfLoop(walk.current(), loop);
    const std::int32_t end = topology.firstCornerOfLoop(walk.current(), loop + 1);
    MVector sum(0, 0, 0);
    for (std::int32_t corner = first + 1; corner + 1 < end; ++corner) {
        sum += (pointAt(corner) - pointAt(first)) ^ (pointAt(corner + 1) - pointAt(first));
    }
    return sum.length() / 2;
}

} // namespace

bool MItMeshPolygon::isHoled(MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus, [&](std::int32_t face) { return walk_.mesh->topology->hasHoles(face); });
}

bool MItMeshPolygon::isConvex(MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus, [&](std::int32_t face) { return host::isConvexFace(*walk_.mesh, face); });
}

bool MItMeshPolygon::isPlanar(MSpace::Space, MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus, [&](std::int32_t face) { return host::isPlanarFace(*walk_.mesh, face); });
}

bool MItMeshPolygon::isLamina(MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus, [&](std::int32_t face) {
        const MeshTopology& topology = *walk_.mesh->topology;
        const std::vector<std::int32_t> own = edgesOf(topology, face);
        const std::vector<std::int32_t> others = neighbours(topology, face);
        return std::any_of(others.begin(), others.end(),
                           [&](std::int32_t other) { return edgesOf(topology, other) == own; });
    });
}

bool MItMeshPolygon::zeroArea(MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus,
               [&](std::int32_t face) { return host::faceNormal(*walk_.mesh, face) == Imath::V3f(0, 0, 0); });
}

MStatus MItMeshPolygon::getArea(double& area, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status == MStatus::kSuccess) {
        area = loopArea(walk_, frame, 0);
        for (std::int32_t loop = 1; loop < walk_.mesh->topology->loopCount(walk_.current()); ++loop) {
            area -= loopArea(walk_, frame, loop);
        }
    }
    return status;
}

bool MItMeshPolygon::onBoundary(MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus, [&](std::int32_t face) {
        const MeshTopology& topology = *walk_.mesh->topology;
        const std::vector<std::int32_t> edges = edgesOf(topology, face);
        return std::any_of(edges.begin(), edges.end(),
                           [&](std::int32_t edge) { return topology.facesOfEdge().count(edge) < 2; });
    });
}

MStatus MItMeshPolygon::getConnectedFaces(MIntArray& faces) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        storeValues(faces, neighbours(*walk_.mesh->topology, walk_.current()));
    }
    return status;
}

bool MItMeshPolygon::hasValidTriangulation(MStatus* ReturnStatus) const {
    return ask(walk_, ReturnStatus,
               [&](std::int32_t face) { return !host::triangulateFace(*walk_.mesh, face).empty(); });
}

MStatus MItMeshPolygon::numTriangles(int& count) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        count = static_cast<int>(host::triangulateFace(*walk_.mesh, walk_.current()).size() / 3);
    }
    return status;
}

MStatus MItMeshPolygon::getTriangle(int index, MPointArray& points, MIntArray& vertices, MSpace::Space space) const {
    MPointArray allPoints;
    MIntArray allVertices;
    const MStatus status = getTriangles(allPoints, allVertices, space);
    if (status != MStatus::kSuccess) {
        return status;
    }
    if (!host::isIndex(index, static_cast<std::int32_t>(allVertices.length() / 3))) {
        return MStatus::kInvalidParameter;
    }
    points.clear();
    vertices.clear();
    for (unsigned int i = 0; i < 3; ++i) {
        const unsigned int place = 3 * static_cast<unsigned int>(index) + i;
        points.append(allPoints[place]);
        vertices.append(allVertices[place]);
    }
    return MStatus::kSuccess;
}

MStatus MItMeshPolygon::getTriangles(MPointArray& points, MIntArray& vertices, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status != MStatus::kSuccess) {
        return status;
    }
    points.clear();
    vertices.clear();
    for (const std::int32_t corner : host::triangulateFace(*walk_.mesh, walk_.current())) {
        const std::int32_t vertex = walk_.mesh->topology->verticesOf(walk_.current())[corner];
        vertices.append(vertex);
        points.append(frame.point((*walk_.mesh->points)[static_cast<std::size_t>(vertex)]));
    }
    return MStatus::kSuccess;
}
