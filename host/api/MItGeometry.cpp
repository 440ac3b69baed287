#include <maya/MItGeometry.h>

#include "host/api/ApiAccess.h"
#include "host/api/componentKinds.h"
#include "host/api/meshWalks.h"
#include "host/api/statusResult.h"
#include "host/geometry/meshComponents.h"
#include "host/geometry/meshNormals.h"

#include <vector>

using host::askWalk;
using host::MeshFrame;
using host::succeed;
using host::api::MeshWalk;

namespace {

constexpr MFn::Type kPoints = MFn::kMeshVertComponent;

/// The vertices of a component of any kind, where the mesh is known; a null component stays one.
MStatus startPoints(MeshWalk& walk, const MDagPath& path, const MObject& component) {
    const MStatus status = host::startWalk(walk, path, MObject::kNullObj, kPoints);
    const host::ComponentObject* some = host::ApiAccess::component(component);
    if (status != MStatus::kSuccess || component.isNull()) {
        return status;
    }
    host::ComponentList list;
    for (const std::string& text : some != nullptr ? host::componentTexts(*some) : std::vector<std::string>()) {
        host::ComponentRange range;
        if (host::parseComponent(text, range)) {
            list.ranges.push_back(range);
        }
    }
    const bool isMeshComponent = some != nullptr && host::isSingleIndexed(some->type) &&
                                 some->type != MFn::kCurveCVComponent && some->type != MFn::kMeshMapComponent;
    if (!isMeshComponent) {
        walk = MeshWalk();
        return MStatus::kInvalidParameter;
    }
    const std::vector<bool> named = host::namedVertices(list, *walk.mesh->topology);
    walk.isAll = false;
    for (std::size_t vertex = 0; vertex < named.size(); ++vertex) {
        if (named[vertex]) {
            walk.chosen.push_back(static_cast<int>(vertex));
        }
    }
    walk.size = static_cast<int>(walk.chosen.size());
    return status;
}

} // namespace

MItGeometry::MItGeometry(const MDagPath& path, MStatus* ReturnStatus) {
    host::report(ReturnStatus, startPoints(walk_, path, MObject::kNullObj));
}

MItGeometry::MItGeometry(const MObject& mesh, MStatus* ReturnStatus) {
    host::report(ReturnStatus, host::startWalk(walk_, mesh, kPoints));
}

MItGeometry::MItGeometry(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) {
    host::report(ReturnStatus, startPoints(walk_, path, component));
}

MItGeometry::~MItGeometry() = default;

MStatus MItGeometry::reset() {
    walk_.at = 0;
    return MStatus::kSuccess;
}

MStatus MItGeometry::next() {
    return host::stepWalk(walk_);
}

bool MItGeometry::isDone(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_.isDone());
}

int MItGeometry::count(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_.size);
}

int MItGeometry::exactCount(MStatus* ReturnStatus) const {
    return count(ReturnStatus);
}

int MItGeometry::index(MStatus* ReturnStatus) const {
    const MStatus status = askWalk(walk_);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? walk_.current() : 0;
}

MObject MItGeometry::currentItem(MStatus* ReturnStatus) const {
    return host::walkedComponent(walk_, kPoints, ReturnStatus);
}

MObject MItGeometry::component(MStatus* ReturnStatus) const {
    return currentItem(ReturnStatus);
}

MPoint MItGeometry::position(MSpace::Space space, MStatus* ReturnStatus) const {
    MeshFrame frame;
    const MStatus status = askWalk(walk_, space, frame);
    host::report(ReturnStatus, status);
    return status == MStatus::kSuccess ? frame.point((*walk_.mesh->points)[static_cast<std::size_t>(walk_.current())])
                                       : MPoint();
}

MStatus MItGeometry::allPositions(MPointArray& points, MSpace::Space space) const {
    MeshFrame frame;
    const MStatus status = walk_.mesh ? frame.set(walk_.path, space) : MStatus(MStatus::kFailure);
    if (status == MStatus::kSuccess) {
        points.setLength(static_cast<unsigned int>(walk_.size));
        for (unsigned int i = 0; i < points.length(); ++i) {
            const int vertex = walk_.isAll ? static_cast<int>(i) : walk_.chosen[i];
            points[i] = frame.point((*walk_.mesh->points)[static_cast<std::size_t>(vertex)]);
        }
    }
    return status;
}

MVector MItGeometry::normal(MStatus* ReturnStatus) const {
    const MStatus status = askWalk(walk_);
    host::report(ReturnStatus, status);
    if (status != MStatus::kSuccess) {
        return MVector();
    }
    const Imath::V3f normal = host::vertexNormal(*walk_.mesh, walk_.current(), host::NormalWeighting::kUnweighted);
    return MVector(normal.x, normal.y, normal.z);
}
