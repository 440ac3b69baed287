#include <maya/MItMeshEdge.h>

#include "host/api/meshWalks.h"
#include "host/api/statusResult.h"

#include <algorithm>
#include <vector>

using host::askWalk;
using host::fail;
using host::MeshFrame;
using host::succeed;
using host::api::MeshWalk;

namespace {

constexpr MFn::Type kEdges = MFn::kMeshEdgeComponent;

const host::MeshEdge& edgeOf(const MeshWalk& walk) {
    return walk.mesh->topology->edges()[static_cast<std::size_t>(walk.current())];
}

int vertexOf(const MeshWalk& walk, int end) {
    return end == 0 ? edgeOf(walk).start : edgeOf(walk).end;
}

MPoint pointOf(const MeshWalk& walk, const MeshFrame& frame, int end) {
    return frame.point((*walk.mesh->points)[static_cast<std::size_t>(vertexOf(walk, end))]);
}

/// kInvalidParameter for what is neither end.
MStatus askEnd(const MeshWalk& walk, int end) {
    const MStatus status = askWalk(walk);
    return status == MStatus::kSuccess && end != 0 && end != 1 ? MStatus(MStatus::kInvalidParameter) : status;
}

std::vector<int> facesOf(const MeshWalk& walk) {
    const host::IndexLists& all = walk.mesh->topology->facesOfEdge();
    return host::uniqueNumbers({all.begin(walk.current()), all.end(walk.current())});
}

} // namespace

MItMeshEdge::MItMeshEdge(const MObject& mesh, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, mesh, kEdges));
}

MItMeshEdge::MItMeshEdge(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, path, component, kEdges));
}

MItMeshEdge::~MItMeshEdge() = default;

MStatus MItMeshEdge::reset() {
    walk_.at = 0;
    return MStatus::kSuccess;
}

MStatus MItMeshEdge::reset(const MObject& mesh) {
    return host::startWalk(walk_, mesh, kEdges);
}

MStatus MItMeshEdge::reset(const MDagPath& path, const MObject& component) {
    return host::startWalk(walk_, path, component, kEdges);
}

MStatus MItMeshEdge::next() {
    return host::stepWalk(walk_);
}

bool MItMeshEdge::isDone(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_.isDone());
}

unsigned int MItMeshEdge::count(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, static_cast<unsigned int>(walk_.size));
}

int MItMeshEdge::index(MStatus* ReturnStatus) const {
    return walk_.isDone() ? fail<int>(ReturnStatus, MStatus::kFailure) : succeed(ReturnStatus, walk_.current());
}

int MItMeshEdge::index(int vertexNum, MStatus* ReturnStatus) const {
    const MStatus status = askEnd(walk_, vertexNum);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? vertexOf(walk_, vertexNum) : 0;
}

MStatus MItMeshEdge::setIndex(int index, int& previousIndex) {
    return host::jumpWalk(walk_, index, previousIndex);
}

MObject MItMeshEdge::currentItem(MStatus* ReturnStatus) const {
    return host::walkedComponent(walk_, kEdges, ReturnStatus);
}

MObject MItMeshEdge::edge(MStatus* ReturnStatus) const {
    return currentItem(ReturnStatus);
}

MPoint MItMeshEdge::point(int vertexNum, MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    MStatus status = askEnd(walk_, vertexNum);
    status = status == MStatus::kSuccess ? askWalk(walk_, space, frame) : status;
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? pointOf(walk_, frame, vertexNum) : MPoint();
}

MPoint MItMeshEdge::center(MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    host::report(ReturnStatus, status);
    if (status != MStatus::kSuccess) {
        return MPoint();
    }
    const MPoint start = pointOf(walk_, frame, 0);
    return start + (pointOf(walk_, frame, 1) - start) / 2;
}

MStatus MItMeshEdge::getLength(double& length, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    if (status == MStatus::kSuccess) {
        length = (pointOf(walk_, frame, 1) - pointOf(walk_, frame, 0)).length();
    }
    return status;
}

bool MItMeshEdge::isSmooth(MStatus* ReturnStatus) const {
    return walk_.isDone() ? fail<bool>(ReturnStatus, MStatus::kFailure) : succeed(ReturnStatus, edgeOf(walk_).smooth);
}

bool MItMeshEdge::onBoundary(MStatus* ReturnStatus) const {
    return walk_.isDone() ? fail<bool>(ReturnStatus, MStatus::kFailure)
                          : succeed(ReturnStatus, walk_.mesh->topology->facesOfEdge().count(walk_.current()) < 2);
}

MStatus MItMeshEdge::numConnectedFaces(int& count) const {
    const MStatus status = askWalk(walk_);
    count = status == MStatus::kSuccess ? static_cast<int>(facesOf(walk_).size()) : count;
    return status;
}

int MItMeshEdge::getConnectedFaces(MIntArray& faces, MStatus* ReturnStatus) const {
    if (walk_.isDone()) {
        return fail<int>(ReturnStatus, MStatus::kFailure);
    }
    storeValues(faces, facesOf(walk_));
    return succeed(ReturnStatus, static_cast<int>(faces.length()));
}

MStatus MItMeshEdge::numConnectedEdges(int& count) const {
    MIntArray edges;
    const MStatus status = getConnectedEdges(edges);
    count = status == MStatus::kSuccess ? static_cast<int>(edges.length()) : count;
    return status;
}

MStatus MItMeshEdge::getConnectedEdges(MIntArray& edges) const {
    const MStatus status = askWalk(walk_);
    if (status != MStatus::kSuccess) {
        return status;
    }
    const host::IndexLists& all = walk_.mesh->topology->edgesOfVertex();
    std::vector<int> others(all.begin(edgeOf(walk_).start), all.end(edgeOf(walk_).start));
    others.insert(others.end(), all.begin(edgeOf(walk_).end), all.end(edgeOf(walk_).end));
    others.erase(std::remove(others.begin(), others.end(), walk_.current()), others.end());
    host::storeUnique(edges, std::move(others));
    return status;
}

bool MItMeshEdge::connectedToFace(int faceIndex, MStatus* ReturnStatus) const {
    if (walk_.isDone()) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    const std::vector<int> faces = facesOf(walk_);
    return succeed(ReturnStatus, std::binary_search(faces.begin(), faces.end(), faceIndex));
}
