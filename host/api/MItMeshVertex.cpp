#include <maya/MItMeshVertex.h>

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

constexpr MFn::Type kVertices = MFn::kMeshVertComponent;

/// A corner of the vertex: its number in the mesh, its face, and its place there.
struct Corner {
    std::int32_t number, face, place;
};

std::vector<Corner> cornersOf(const MeshWalk& walk) {
    const MeshTopology& topology = *walk.mesh->topology;
    std::vector<Corner> corners;
    const host::IndexLists& all = topology.cornersOfVertex();
    for (const std::int32_t* one = all.begin(walk.current()); one != all.end(walk.current()); ++one) {
        const std::int32_t face = topology.cornerFaces()[static_cast<std::size_t>(*one)];
        corners.push_back({*one, face, *one - topology.firstCorner(face)});
    }
    return corners;
}

std::vector<int> facesOf(const MeshWalk& walk) {
    std::vector<int> faces;
    for (const Corner& corner : cornersOf(walk)) {
        faces.push_back(corner.face);
    }
    return host::uniqueNumbers(std::move(faces));
}

std::vector<int> edgesOf(const MeshWalk& walk) {
    const host::IndexLists& all = walk.mesh->topology->edgesOfVertex();
    return host::uniqueNumbers({all.begin(walk.current()), all.end(walk.current())});
}

MVector normalOf(const MeshWalk& walk, const MeshFrame& frame, const Corner& corner) {
    const std::int32_t id = walk.mesh->topology->normalFans().ofCorner[static_cast<std::size_t>(corner.number)];
    return frame.normal(walk.mesh->normals()[static_cast<std::size_t>(id)]);
}

bool contains(const std::vector<int>& sorted, int number) {
    return std::binary_search(sorted.begin(), sorted.end(), number);
}

host::ColorMean meanColor(const MeshWalk& walk, const MString* name) {
    host::ColorMean mean;
    if (const host::ColorSet* set = walk.isDone() ? nullptr : host::colorSetOf(*walk.mesh, name)) {
        for (const Corner& corner : cornersOf(walk)) {
            mean.add(*set, host::colorIdOf(*set, corner.face, corner.place));
        }
    }
    return mean;
}

} // namespace

MItMeshVertex::MItMeshVertex(const MObject& mesh, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, mesh, kVertices));
}

MItMeshVertex::MItMeshVertex(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, path, component, kVertices));
}

MItMeshVertex::~MItMeshVertex() = default;

MStatus MItMeshVertex::reset() {
    walk_.at = 0;
    return MStatus::kSuccess;
}

MStatus MItMeshVertex::reset(const MObject& mesh) {
    return host::startWalk(walk_, mesh, kVertices);
}

MStatus MItMeshVertex::reset(const MDagPath& path, const MObject& component) {
    return host::startWalk(walk_, path, component, kVertices);
}

MStatus MItMeshVertex::next() {
    return host::stepWalk(walk_);
}

bool MItMeshVertex::isDone(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_.isDone());
}

unsigned int MItMeshVertex::count(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, static_cast<unsigned int>(walk_.size));
}

int MItMeshVertex::index(MStatus* ReturnStatus) const {
    return walk_.isDone() ? fail<int>(ReturnStatus, MStatus::kFailure) : succeed(ReturnStatus, walk_.current());
}

MStatus MItMeshVertex::setIndex(int index, int& previousIndex) {
    return host::jumpWalk(walk_, index, previousIndex);
}

MObject MItMeshVertex::currentItem(MStatus* ReturnStatus) const {
    return host::walkedComponent(walk_, kVertices, ReturnStatus);
}

MObject MItMeshVertex::vertex(MStatus* ReturnStatus) const {
    return currentItem(ReturnStatus);
}

MPoint MItMeshVertex::position(MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? frame.point((*walk_.mesh->points)[static_cast<std::size_t>(walk_.current())])
                                       : MPoint();
}

MStatus MItMeshVertex::getNormal(MVector& normal, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status == MStatus::kSuccess) {
        normal = frame.normal(host::vertexNormal(*walk_.mesh, walk_.current(), host::NormalWeighting::kUnweighted));
    }
    return status;
}

MStatus MItMeshVertex::getNormal(MVector& normal, int faceIndex, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status != MStatus::kSuccess) {
        return status;
    }
    const std::vector<Corner> corners = cornersOf(walk_);
    const auto found =
        std::find_if(corners.begin(), corners.end(), [&](const Corner& corner) { return corner.face == faceIndex; });
    if (found == corners.end()) {
        return MStatus::kInvalidParameter;
    }
    normal = normalOf(walk_, frame, *found);
    return MStatus::kSuccess;
}

MStatus MItMeshVertex::getNormals(MVectorArray& normals, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status == MStatus::kSuccess) {
        normals.clear();
        for (const Corner& corner : cornersOf(walk_)) {
            normals.append(normalOf(walk_, frame, corner));
        }
    }
    return status;
}

MStatus MItMeshVertex::getConnectedFaces(MIntArray& faces) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        storeValues(faces, facesOf(walk_));
    }
    return status;
}

MStatus MItMeshVertex::getConnectedEdges(MIntArray& edges) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        storeValues(edges, edgesOf(walk_));
    }
    return status;
}

MStatus MItMeshVertex::getConnectedVertices(MIntArray& vertices) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        std::vector<int> others;
        for (const int edge : edgesOf(walk_)) {
            const host::MeshEdge& ends = walk_.mesh->topology->edges()[static_cast<std::size_t>(edge)];
            others.push_back(ends.start == walk_.current() ? ends.end : ends.start);
        }
        host::storeUnique(vertices, std::move(others));
    }
    return status;
}

MStatus MItMeshVertex::numConnectedFaces(int& count) const {
    MIntArray faces;
    const MStatus status = getConnectedFaces(faces);
    count = status == MStatus::kSuccess ? static_cast<int>(faces.length()) : count;
    return status;
}

MStatus MItMeshVertex::numConnectedEdges(int& count) const {
    MIntArray edges;
    const MStatus status = getConnectedEdges(edges);
    count = status == MStatus::kSuccess ? static_cast<int>(edges.length()) : count;
    return status;
}

bool MItMeshVertex::connectedToFace(int faceIndex, MStatus* ReturnStatus) const {
    return walk_.isDone() ? fail<bool>(ReturnStatus, MStatus::kFailure)
                          : succeed(ReturnStatus, contains(facesOf(walk_), faceIndex));
}

bool MItMeshVertex::connectedToEdge(int edgeIndex, MStatus* ReturnStatus) const {
    return walk_.isDone() ? fail<bool>(ReturnStatus, MStatus::kFailure)
                          : succeed(ReturnStatus, contains(edgesOf(walk_), edgeIndex));
}

bool MItMeshVertex::onBoundary(MStatus* ReturnStatus) const {
    if (walk_.isDone()) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    const std::vector<int> edges = edgesOf(walk_);
    return succeed(ReturnStatus, std::any_of(edges.begin(), edges.end(), [&](int edge) {
                       return walk_.mesh->topology->facesOfEdge().count(edge) < 2;
                   }));
}

MStatus MItMeshVertex::getUV(float2& uv, const MString* uvSet) const {
    MFloatArray u;
    MFloatArray v;
    MIntArray faces;
    const MStatus status = getUVs(u, v, faces, uvSet);
    if (status == MStatus::kSuccess) {
        uv[0] = u[0];
        uv[1] = v[0];
    }
    return status;
}

MStatus MItMeshVertex::getUVs(MFloatArray& u, MFloatArray& v, MIntArray& faces, const MString* uvSet) const {
    const host::UvSet* set = walk_.isDone() ? nullptr : host::uvSetOf(*walk_.mesh, uvSet);
    if (set == nullptr) {
        return MStatus::kFailure;
    }
    std::vector<float> us;
    std::vector<float> vs;
    std::vector<int> owners;
    for (const Corner& corner : cornersOf(walk_)) {
        if (const std::int32_t* ids = host::uvIdsOf(*walk_.mesh, *set, corner.face)) {
            const Imath::V2f& point = (*set->points)[static_cast<std::size_t>(ids[corner.place])];
            us.push_back(point.x);
            vs.push_back(point.y);
            owners.push_back(corner.face);
        }
    }
    if (owners.empty()) {
        return MStatus::kFailure;
    }
    storeValues(u, std::move(us));
    storeValues(v, std::move(vs));
    storeValues(faces, std::move(owners));
    return MStatus::kSuccess;
}

bool MItMeshVertex::hasColor(MStatus* ReturnStatus) const {
    host::report(ReturnStatus, askWalk(walk_));
    return !meanColor(walk_, nullptr).isEmpty();
}

MStatus MItMeshVertex::getColor(MColor& color, const MString* colorSet) const {
    const host::ColorMean mean = meanColor(walk_, colorSet);
    if (mean.isEmpty()) {
        return MStatus::kFailure;
    }
    color = mean.mean();
    return MStatus::kSuccess;
}
