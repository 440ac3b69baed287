#include <maya/MFnMesh.h>

#include "host/api/meshAccess.h"
#include "host/api/statusResult.h"

using host::attachedMesh;
using host::fail;
using host::isIndex;
using host::MeshFrame;
using host::MeshPtr;
using host::report;
using host::succeed;

MFnMesh::MFnMesh() = default;
MFnMesh::~MFnMesh() = default;

MFnMesh::MFnMesh(const MObject& object, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnMesh::setObject(object));
}

MFnMesh::MFnMesh(const MDagPath& path, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnMesh::setObject(path));
}

namespace {

/// Counts something of the mesh when there is one.
template <class Count>
int count(const MObject& object, MStatus* status, Count number) {
    const MeshPtr mesh = attachedMesh(object);
    return mesh ? succeed(status, static_cast<int>(number(*mesh))) : fail<int>(status, MStatus::kFailure);
}

template <class Array, class Make>
MStatus fillPoints(const MObject& object, const MDagPath& path, MSpace::Space space, Array& points, Make make) {
    const MeshPtr mesh = attachedMesh(object);
    MeshFrame frame;
    const MStatus status = mesh ? frame.set(path, space) : MStatus(MStatus::kFailure);
    if (status != MStatus::kSuccess) {
        return status;
    }
    points.setLength(static_cast<unsigned int>(mesh->points->size()));
    for (unsigned int i = 0; i < points.length(); ++i) {
        points[i] = make(frame.point((*mesh->points)[i]));
    }
    return MStatus::kSuccess;
}

} // namespace

MFn::Type MFnMesh::type() const {
    return MFn::kMesh;
}

MStatus MFnMesh::setObject(const MObject& object) {
    if (!object.hasFn(MFn::kMeshData)) {
        return MFnDagNode::setObject(object);
    }
    object_ = object;
    path_ = MDagPath();
    return MStatus::kSuccess;
}

MStatus MFnMesh::setObject(const MDagPath& path) {
    return MFnDagNode::setObject(path);
}

int MFnMesh::numVertices(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.topology->vertexCount(); });
}

int MFnMesh::numEdges(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.topology->edgeCount(); });
}

int MFnMesh::numPolygons(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.topology->faceCount(); });
}

int MFnMesh::numFaceVertices(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.topology->cornerCount(); });
}

int MFnMesh::numNormals(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.topology->normalFans().count; });
}

int MFnMesh::numUVSets(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.uvSets.size(); });
}

int MFnMesh::numColorSets(MStatus* ReturnStatus) const {
    return count(object_, ReturnStatus, [](const auto& mesh) { return mesh.colorSets.size(); });
}

MStatus MFnMesh::getPoints(MPointArray& points, MSpace::Space space) const {
    return fillPoints(object_, path_, space, points, [](const MPoint& point) { return point; });
}

MStatus MFnMesh::getPoints(MFloatPointArray& points, MSpace::Space space) const {
    return fillPoints(object_, path_, space, points, [](const MPoint& point) {
        return MFloatPoint(static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z));
    });
}

MStatus MFnMesh::getPoint(int vertexId, MPoint& point, MSpace::Space space) const {
    const MeshPtr mesh = attachedMesh(object_);
    MeshFrame frame;
    const MStatus status = mesh ? frame.set(path_, space) : MStatus(MStatus::kFailure);
    if (status != MStatus::kSuccess) {
        return status;
    }
    if (!isIndex(vertexId, mesh->topology->vertexCount())) {
        return MStatus::kInvalidParameter;
    }
    point = frame.point((*mesh->points)[static_cast<std::size_t>(vertexId)]);
    return MStatus::kSuccess;
}
