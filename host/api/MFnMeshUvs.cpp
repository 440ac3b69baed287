#include <maya/MFnMesh.h>

#include "host/api/meshAccess.h"
#include "host/api/statusResult.h"

#include <maya/MStringArray.h>

#include <vector>

using host::attachedMesh;
using host::fail;
using host::isIndex;
using host::MeshPtr;
using host::succeed;
using host::UvSet;

namespace {

/// A mesh and one of its sets, which is null when there is no such set (or no mesh).
struct View {
    View(const MObject& object, const MString* name)
        : mesh(attachedMesh(object)), set(mesh ? host::uvSetOf(*mesh, name) : nullptr) {}

    bool hasFace(int face) const { return isIndex(face, mesh->topology->faceCount()); }

    MeshPtr mesh;
    const UvSet* set;
};

const host::UvSet* currentSet(const MeshPtr& mesh) {
    return mesh ? host::uvSetOf(*mesh, nullptr) : nullptr;
}

} // namespace

int MFnMesh::numUVs(MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    const UvSet* set = currentSet(mesh);
    if (!mesh) {
        return fail<int>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, set != nullptr ? static_cast<int>(set->points->size()) : 0);
}

int MFnMesh::numUVs(const MString& uvSet, MStatus* ReturnStatus) const {
    const View view(object_, &uvSet);
    return view.set != nullptr ? succeed(ReturnStatus, static_cast<int>(view.set->points->size()))
                               : fail<int>(ReturnStatus, MStatus::kFailure);
}

MStatus MFnMesh::getUVs(MFloatArray& u, MFloatArray& v, const MString* uvSet) const {
    const View view(object_, uvSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    const std::vector<Imath::V2f>& points = *view.set->points;
    u.setLength(static_cast<unsigned int>(points.size()));
    v.setLength(static_cast<unsigned int>(points.size()));
    for (unsigned int i = 0; i < u.length(); ++i) {
        u[i] = points[i].x;
        v[i] = points[i].y;
    }
    return MStatus::kSuccess;
}

MStatus MFnMesh::getUV(int uvId, float& u, float& v, const MString* uvSet) const {
    const View view(object_, uvSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    if (!isIndex(uvId, static_cast<std::int32_t>(view.set->points->size()))) {
        return MStatus::kInvalidParameter;
    }
    const Imath::V2f& point = (*view.set->points)[static_cast<std::size_t>(uvId)];
    u = point.x;
    v = point.y;
    return MStatus::kSuccess;
}

MStatus MFnMesh::getPolygonUV(int polygonId, int vertexIndex, float& u, float& v, const MString* uvSet) const {
    int uvId = 0;
    const MStatus status = getPolygonUVid(polygonId, vertexIndex, uvId, uvSet);
    return status == MStatus::kSuccess ? getUV(uvId, u, v, uvSet) : status;
}

MStatus MFnMesh::getPolygonUVid(int polygonId, int vertexIndex, int& uvId, const MString* uvSet) const {
    const View view(object_, uvSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    if (!view.hasFace(polygonId) || !isIndex(vertexIndex, view.mesh->topology->cornerCount(polygonId))) {
        return MStatus::kInvalidParameter;
    }
    const std::int32_t* ids = host::uvIdsOf(*view.mesh, *view.set, polygonId);
    if (ids == nullptr) {
        return MStatus::kFailure;
    }
    uvId = ids[vertexIndex];
    return MStatus::kSuccess;
}

MStatus MFnMesh::getAssignedUVs(MIntArray& uvCounts, MIntArray& uvIds, const MString* uvSet) const {
    const View view(object_, uvSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    std::vector<int> counts;
    std::vector<int> all;
    for (std::int32_t face = 0; face < view.mesh->topology->faceCount(); ++face) {
        const std::int32_t* ids = host::uvIdsOf(*view.mesh, *view.set, face);
        counts.push_back(ids != nullptr ? view.mesh->topology->cornerCount(face) : 0);
        all.insert(all.end(), ids, ids + counts.back());
    }
    storeValues(uvCounts, std::move(counts));
    storeValues(uvIds, std::move(all));
    return MStatus::kSuccess;
}

MStatus MFnMesh::getUVSetNames(MStringArray& names) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    names.clear();
    for (const UvSet& set : mesh->uvSets) {
        names.append(set.name.c_str());
    }
    return MStatus::kSuccess;
}

MString MFnMesh::currentUVSetName(MStatus* ReturnStatus, int instance) const {
    MString name;
    host::report(ReturnStatus, getCurrentUVSetName(name, instance));
    return name;
}

MStatus MFnMesh::getCurrentUVSetName(MString& name, int) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    const UvSet* set = currentSet(mesh);
    name = set != nullptr ? set->name.c_str() : "";
    return MStatus::kSuccess;
}

MStatus MFnMesh::getFaceUVSetNames(int polygonId, MStringArray& names) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh || !isIndex(polygonId, mesh->topology->faceCount())) {
        return mesh ? MStatus::kInvalidParameter : MStatus::kFailure;
    }
    names.clear();
    for (const UvSet& set : mesh->uvSets) {
        if (host::uvIdsOf(*mesh, set, polygonId) != nullptr) {
            names.append(set.name.c_str());
        }
    }
    return MStatus::kSuccess;
}
