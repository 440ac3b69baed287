#include <maya/MFnMesh.h>

#include "host/api/meshAccess.h"
#include "host/api/statusResult.h"
#include "host/geometry/meshNormals.h"

#include <algorithm>
#include <vector>

using host::attachedMesh;
using host::fail;
using host::isIndex;
using host::MeshFrame;
using host::MeshPtr;
using host::succeed;

namespace {

/// A mesh and the space in which it is asked about.
struct View {
    MeshPtr mesh;
    MeshFrame frame;

    MStatus open(const MObject& object, const MDagPath& path, MSpace::Space space) {
        mesh = attachedMesh(object);
        return mesh ? frame.set(path, space) : MStatus(MStatus::kFailure);
    }
    bool hasFace(int face) const { return isIndex(face, mesh->topology->faceCount()); }
    std::int32_t normalOfCorner(std::int32_t corner) const {
        return mesh->topology->normalFans().ofCorner[static_cast<std::size_t>(corner)];
    }
    MVector cornerNormal(std::int32_t corner) const {
        return frame.normal(mesh->normals()[static_cast<std::size_t>(normalOfCorner(corner))]);
    }
};

host::NormalWeighting weightingOf(bool angleWeighted) {
    return angleWeighted ? host::NormalWeighting::kAngle : host::NormalWeighting::kUnweighted;
}

MFloatVector narrow(const MVector& vector) {
    return MFloatVector(static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z));
}

} // namespace

MStatus MFnMesh::getNormals(MFloatVectorArray& normals, MSpace::Space space) const {
    View view;
    const MStatus status = view.open(object_, path_, space);
    if (status == MStatus::kSuccess) {
        const host::Points& all = view.mesh->normals();
        normals.setLength(static_cast<unsigned int>(all.size()));
        for (unsigned int i = 0; i < normals.length(); ++i) {
            normals[i] = narrow(view.frame.normal(all[i]));
        }
    }
    return status;
}

MStatus MFnMesh::getNormalIds(MIntArray& counts, MIntArray& normalIds) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    counts.setLength(static_cast<unsigned int>(mesh->topology->faceCount()));
    for (unsigned int face = 0; face < counts.length(); ++face) {
        counts[face] = mesh->topology->cornerCount(static_cast<std::int32_t>(face));
    }
    storeValues(normalIds, mesh->topology->normalFans().ofCorner);
    return MStatus::kSuccess;
}

MStatus MFnMesh::getFaceNormalIds(int polygonId, MIntArray& normalIds) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh || !isIndex(polygonId, mesh->topology->faceCount())) {
        return mesh ? MStatus::kInvalidParameter : MStatus::kFailure;
    }
    const auto first = mesh->topology->normalFans().ofCorner.begin() + mesh->topology->firstCorner(polygonId);
    storeValues(normalIds, std::vector<int>(first, first + mesh->topology->cornerCount(polygonId)));
    return MStatus::kSuccess;
}

MStatus MFnMesh::getFaceVertexNormals(int polygonId, MFloatVectorArray& normals, MSpace::Space space) const {
    View view;
    const MStatus status = view.open(object_, path_, space);
    if (status != MStatus::kSuccess || !view.hasFace(polygonId)) {
        return status != MStatus::kSuccess ? status : MStatus(MStatus::kInvalidParameter);
    }
    normals.setLength(static_cast<unsigned int>(view.mesh->topology->cornerCount(polygonId)));
    for (unsigned int i = 0; i < normals.length(); ++i) {
        const std::int32_t corner = view.mesh->topology->firstCorner(polygonId) + static_cast<std::int32_t>(i);
        normals[i] = narrow(view.cornerNormal(corner));
    }
    return MStatus::kSuccess;
}

MStatus MFnMesh::getFaceVertexNormal(int polygonId, int vertexId, MVector& normal, MSpace::Space space) const {
    View view;
    const MStatus status = view.open(object_, path_, space);
    if (status != MStatus::kSuccess || !view.hasFace(polygonId)) {
        return status != MStatus::kSuccess ? status : MStatus(MStatus::kInvalidParameter);
    }
    const std::int32_t* first = view.mesh->topology->verticesOf(polygonId);
    const std::int32_t* end = first + view.mesh->topology->cornerCount(polygonId);
    const std::int32_t* found = std::find(first, end, vertexId);
    if (found == end) {
        return MStatus::kInvalidParameter;
    }
    normal = view.cornerNormal(view.mesh->topology->firstCorner(polygonId) + static_cast<std::int32_t>(found - first));
    return MStatus::kSuccess;
}

MStatus MFnMesh::getVertexNormal(int vertexId, bool angleWeighted, MVector& normal, MSpace::Space space) const {
    View view;
    const MStatus status = view.open(object_, path_, space);
    if (status != MStatus::kSuccess || !isIndex(vertexId, view.mesh->topology->vertexCount())) {
        return status != MStatus::kSuccess ? status : MStatus(MStatus::kInvalidParameter);
    }
    normal = view.frame.normal(host::vertexNormal(*view.mesh, vertexId, weightingOf(angleWeighted)));
    return MStatus::kSuccess;
}

MStatus MFnMesh::getVertexNormal(int vertexId, MVector& normal, MSpace::Space space) const {
    return getVertexNormal(vertexId, false, normal, space);
}

MStatus MFnMesh::getVertexNormals(bool angleWeighted, MFloatVectorArray& normals, MSpace::Space space) const {
    View view;
    const MStatus status = view.open(object_, path_, space);
    if (status == MStatus::kSuccess) {
        normals.setLength(static_cast<unsigned int>(view.mesh->topology->vertexCount()));
        for (unsigned int i = 0; i < normals.length(); ++i) {
            const Imath::V3f normal =
                host::vertexNormal(*view.mesh, static_cast<std::int32_t>(i), weightingOf(angleWeighted));
            normals[i] = narrow(view.frame.normal(normal));
        }
    }
    return status;
}

MStatus MFnMesh::getPolygonNormal(int polygonId, MVector& normal, MSpace::Space space) const {
    View view;
    const MStatus status = view.open(object_, path_, space);
    if (status != MStatus::kSuccess || !view.hasFace(polygonId)) {
        return status != MStatus::kSuccess ? status : MStatus(MStatus::kInvalidParameter);
    }
    normal = view.frame.normal(host::faceNormal(*view.mesh, polygonId));
    return MStatus::kSuccess;
}

bool MFnMesh::isNormalLocked(int normalId, MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh || !isIndex(normalId, mesh->topology->normalFans().count)) {
        return fail<bool>(ReturnStatus, mesh ? MStatus::kInvalidParameter : MStatus::kFailure);
    }
    return succeed(ReturnStatus, mesh->isUserNormal(normalId));
}
