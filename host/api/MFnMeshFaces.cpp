#include <maya/MFnMesh.h>

#include "host/api/faceShape.h"
#include "host/api/meshAccess.h"
#include "host/api/statusResult.h"

#include <vector>

using host::attachedMesh;
using host::fail;
using host::isIndex;
using host::MeshPtr;
using host::MeshTopology;
using host::succeed;

namespace {

/// The topology, when it has this face; else null and the status to end with.
const MeshTopology* topologyWithFace(const MeshPtr& mesh, int polygonId, MStatus::MStatusCode& code) {
    code = !mesh                                              ? MStatus::kFailure
           : !isIndex(polygonId, mesh->topology->faceCount()) ? MStatus::kInvalidParameter
                                                              : MStatus::kSuccess;
    return code == MStatus::kSuccess ? mesh->topology.get() : nullptr;
}

/// Corners per face.
std::vector<int> cornerCounts(const MeshTopology& topology) {
    std::vector<int> counts;
    counts.reserve(static_cast<std::size_t>(topology.faceCount()));
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        counts.push_back(topology.cornerCount(face));
    }
    return counts;
}

} // namespace

int MFnMesh::polygonVertexCount(int polygonId, MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    MStatus::MStatusCode code;
    const MeshTopology* topology = topologyWithFace(mesh, polygonId, code);
    return topology != nullptr ? succeed<int>(ReturnStatus, topology->cornerCount(polygonId))
                               : fail<int>(ReturnStatus, code);
}

MStatus MFnMesh::getPolygonVertices(int polygonId, MIntArray& vertices) const {
    const MeshPtr mesh = attachedMesh(object_);
    MStatus::MStatusCode code;
    if (const MeshTopology* topology = topologyWithFace(mesh, polygonId, code)) {
        const std::int32_t* first = topology->verticesOf(polygonId);
        storeValues(vertices, std::vector<int>(first, first + topology->cornerCount(polygonId)));
    }
    return code;
}

MStatus MFnMesh::getVertices(MIntArray& vertexCounts, MIntArray& vertices) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    storeValues(vertexCounts, cornerCounts(*mesh->topology));
    storeValues(vertices, mesh->topology->cornerVertices());
    return MStatus::kSuccess;
}

MStatus MFnMesh::getEdgeVertices(int edgeId, int2& vertices) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    if (!isIndex(edgeId, mesh->topology->edgeCount())) {
        return MStatus::kInvalidParameter;
    }
    const host::MeshEdge& edge = mesh->topology->edges()[static_cast<std::size_t>(edgeId)];
    vertices[0] = edge.start;
    vertices[1] = edge.end;
    return MStatus::kSuccess;
}

bool MFnMesh::isEdgeSmooth(int edgeId, MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh || !isIndex(edgeId, mesh->topology->edgeCount())) {
        return fail<bool>(ReturnStatus, mesh ? MStatus::kInvalidParameter : MStatus::kFailure);
    }
    return succeed(ReturnStatus, mesh->topology->edges()[static_cast<std::size_t>(edgeId)].smooth);
}

bool MFnMesh::isPolygonConvex(int polygonId, MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    MStatus::MStatusCode code;
    return topologyWithFace(mesh, polygonId, code) != nullptr
               ? succeed(ReturnStatus, host::isConvexFace(*mesh, polygonId))
               : fail<bool>(ReturnStatus, code);
}

int MFnMesh::getHoles(MIntArray& holeInfo, MIntArray& holeVertices, MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return fail<int>(ReturnStatus, MStatus::kFailure);
    }
    const MeshTopology& topology = *mesh->topology;
    const std::vector<std::int32_t>& corners = topology.cornerVertices();
    std::vector<int> info;
    std::vector<int> vertices;
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        for (std::int32_t loop = 1; loop < topology.loopCount(face); ++loop) {
            const std::int32_t first = topology.firstCornerOfLoop(face, loop);
            const std::int32_t end = topology.firstCornerOfLoop(face, loop + 1);
            info.insert(info.end(), {face, end - first, static_cast<int>(vertices.size())});
            vertices.insert(vertices.end(), corners.begin() + first, corners.begin() + end);
        }
    }
    const int holes = static_cast<int>(info.size() / 3);
    storeValues(holeInfo, std::move(info));
    storeValues(holeVertices, std::move(vertices));
    return succeed(ReturnStatus, holes);
}

MStatus MFnMesh::getTriangles(MIntArray& triangleCounts, MIntArray& triangleVertices) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    const MeshTopology& topology = *mesh->topology;
    std::vector<int> counts;
    std::vector<int> vertices;
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        const std::vector<std::int32_t> corners = host::triangulateFace(*mesh, face);
        counts.push_back(static_cast<int>(corners.size() / 3));
        for (const std::int32_t corner : corners) {
            vertices.push_back(topology.verticesOf(face)[corner]);
        }
    }
    storeValues(triangleCounts, std::move(counts));
    storeValues(triangleVertices, std::move(vertices));
    return MStatus::kSuccess;
}
