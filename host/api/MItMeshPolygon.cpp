#include <maya/MItMeshPolygon.h>

#include "host/api/meshWalks.h"
#include "host/api/statusResult.h"
#include "host/geometry/meshNormals.h"

#include <algorithm>

using host::askWalk;
using host::fail;
using host::MeshFrame;
using host::MeshTopology;
using host::succeed;
using host::api::MeshWalk;

namespace {

constexpr MFn::Type kFaces = MFn::kMeshPolygonComponent;

const MeshTopology& topologyOf(const MeshWalk& walk) {
    return *walk.mesh->topology;
}

/// kInvalidParameter for a corner that the current face does not have.
MStatus askCorner(const MeshWalk& walk, int corner) {
    const MStatus status = askWalk(walk);
    const bool exists =
        status == MStatus::kSuccess && host::isIndex(corner, topologyOf(walk).cornerCount(walk.current()));
    return status == MStatus::kSuccess && !exists ? MStatus(MStatus::kInvalidParameter) : status;
}

/// Number among all corners of the mesh.
std::size_t cornerNumber(const MeshWalk& walk, int corner) {
    return static_cast<std::size_t>(topologyOf(walk).firstCorner(walk.current()) + corner);
}

MPoint pointAt(const MeshWalk& walk, const MeshFrame& frame, int corner) {
    const std::int32_t vertex = topologyOf(walk).verticesOf(walk.current())[corner];
    return frame.point((*walk.mesh->points)[static_cast<std::size_t>(vertex)]);
}

} // namespace

MItMeshPolygon::MItMeshPolygon(const MObject& mesh, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, mesh, kFaces));
}

MItMeshPolygon::MItMeshPolygon(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, path, component, kFaces));
}

MItMeshPolygon::~MItMeshPolygon() = default;

MStatus MItMeshPolygon::reset() {
    walk_.at = 0;
    return MStatus::kSuccess;
}

MStatus MItMeshPolygon::reset(const MObject& mesh) {
    return host::startWalk(walk_, mesh, kFaces);
}

MStatus MItMeshPolygon::reset(const MDagPath& path, const MObject& component) {
    return host::startWalk(walk_, path, component, kFaces);
}

MStatus MItMeshPolygon::next() {
    return host::stepWalk(walk_);
}

bool MItMeshPolygon::isDone(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_.isDone());
}

unsigned int MItMeshPolygon::count(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, static_cast<unsigned int>(walk_.size));
}

unsigned int MItMeshPolygon::index(MStatus* ReturnStatus) const {
    const MStatus status = askWalk(walk_);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? static_cast<unsigned int>(walk_.current()) : 0;
}

MStatus MItMeshPolygon::setIndex(int index, int& previousIndex) {
    return host::jumpWalk(walk_, index, previousIndex);
}

MObject MItMeshPolygon::currentItem(MStatus* ReturnStatus) const {
    return host::walkedComponent(walk_, kFaces, ReturnStatus);
}

MObject MItMeshPolygon::polygon(MStatus* ReturnStatus) const {
    return currentItem(ReturnStatus);
}

unsigned int MItMeshPolygon::polygonVertexCount(MStatus* ReturnStatus) const {
    const MStatus status = askWalk(walk_);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? static_cast<unsigned int>(topologyOf(walk_).cornerCount(walk_.current())) : 0;
}

int MItMeshPolygon::vertexIndex(int index, MStatus* ReturnStatus) const {
    const MStatus status = askCorner(walk_, index);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? topologyOf(walk_).verticesOf(walk_.current())[index] : 0;
}

MStatus MItMeshPolygon::getVertices(MIntArray& vertices) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        const std::int32_t* first = topologyOf(walk_).verticesOf(walk_.current());
        storeValues(vertices, std::vector<int>(first, first + topologyOf(walk_).cornerCount(walk_.current())));
    }
    return status;
}

MPoint MItMeshPolygon::point(int index, MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    MStatus status = askCorner(walk_, index);
    status = status == MStatus::kSuccess ? askWalk(walk_, space, frame) : status;
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? pointAt(walk_, frame, index) : MPoint();
}

void MItMeshPolygon::getPoints(MPointArray& points, MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    host::report(ReturnStatus, status);
    if (status == MStatus::kSuccess) {
        points.setLength(static_cast<unsigned int>(topologyOf(walk_).cornerCount(walk_.current())));
        for (unsigned int i = 0; i < points.length(); ++i) {
            points[i] = pointAt(walk_, frame, static_cast<int>(i));
        }
    }
}

MPoint MItMeshPolygon::center(MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status != MStatus::kSuccess) {
        return fail<MPoint>(ReturnStatus, status.statusCode());
    }
    const std::int32_t face = walk_.current();
    const std::int32_t count = topologyOf(walk_).firstCornerOfLoop(face, 1) - topologyOf(walk_).firstCorner(face);
    MVector sum(0, 0, 0);
    for (std::int32_t corner = 0; corner < count; ++corner) {
        sum += MVector(pointAt(walk_, frame, corner));
    }
    return succeed(ReturnStatus, MPoint(sum / std::max(count, 1)));
}

MStatus MItMeshPolygon::getEdges(MIntArray& edges) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        edges.setLength(static_cast<unsigned int>(topologyOf(walk_).cornerCount(walk_.current())));
        for (unsigned int i = 0; i < edges.length(); ++i) {
            const std::size_t corner = cornerNumber(walk_, static_cast<int>(i));
            edges[i] = MeshTopology::edgeNumber(topologyOf(walk_).cornerEdges()[corner]);
        }
    }
    return status;
}

unsigned int MItMeshPolygon::normalIndex(int index, MStatus* ReturnStatus) const {
    const MStatus status = askCorner(walk_, index);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess
               ? static_cast<unsigned int>(topologyOf(walk_).normalFans().ofCorner[cornerNumber(walk_, index)])
               : 0;
}

MStatus MItMeshPolygon::getNormal(MVector& normal, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status == MStatus::kSuccess) {
        normal = frame.normal(host::faceNormal(*walk_.mesh, walk_.current()));
    }
    return status;
}

MStatus MItMeshPolygon::getNormal(unsigned int index, MVector& normal, MSpace::Space space) const {
    MeshFrame frame;
    MStatus status = askCorner(walk_, static_cast<int>(index));
    status = status == MStatus::kSuccess ? askWalk(walk_, space, frame) : status;
    if (status == MStatus::kSuccess) {
        normal = frame.normal(walk_.mesh->normals()[normalIndex(static_cast<int>(index))]);
    }
    return status;
}

MStatus MItMeshPolygon::getNormals(MVectorArray& normals, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status == MStatus::kSuccess) {
        normals.setLength(polygonVertexCount());
        for (unsigned int i = 0; i < normals.length(); ++i) {
            normals[i] = frame.normal(walk_.mesh->normals()[normalIndex(static_cast<int>(i))]);
        }
    }
    return status;
}
