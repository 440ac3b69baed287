#include "host/api/meshWalks.h"

#include "host/api/ApiAccess.h"
#include "host/api/statusResult.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

int countOf(const MeshData& mesh, MFn::Type kind) {
    switch (kind) {
    case MFn::kMeshVertComponent:
        return mesh.topology->vertexCount();
    case MFn::kMeshEdgeComponent:
        return mesh.topology->edgeCount();
    default:
        return mesh.topology->faceCount();
    }
}

} // namespace

MStatus startWalk(api::MeshWalk& walk, const MObject& mesh, MFn::Type component) {
    walk = api::MeshWalk();
    walk.mesh = attachedMesh(mesh);
    if (!walk.mesh) {
        return MStatus::kInvalidParameter;
    }
    walk.size = countOf(*walk.mesh, component);
    return MStatus::kSuccess;
}

MStatus startWalk(api::MeshWalk& walk, const MDagPath& path, const MObject& component, MFn::Type kind) {
    MDagPath shape = path;
    if (shape.hasFn(MFn::kTransform)) {
        shape.extendToShape();
    }
    const MStatus status = startWalk(walk, shape.node(), kind);
    if (status != MStatus::kSuccess) {
        return status;
    }
    walk.path = shape;
    if (component.isNull()) {
        return status;
    }
    const ComponentObject* some = ApiAccess::component(component);
    if (some == nullptr || some->type != kind) {
        walk = api::MeshWalk();
        return MStatus::kInvalidParameter;
    }
    if (some->indices.isComplete()) {
        return status;
    }
    walk.isAll = false;
    for (const IndexRange range : some->indices.ranges()) {
        for (std::int32_t index = range.first; index <= std::min(range.last, walk.size - 1); ++index) {
            walk.chosen.push_back(index);
        }
    }
    walk.size = static_cast<int>(walk.chosen.size());
    return status;
}

MStatus stepWalk(api::MeshWalk& walk) {
    if (walk.isDone()) {
        return MStatus::kFailure;
    }
    ++walk.at;
    return MStatus::kSuccess;
}

MStatus jumpWalk(api::MeshWalk& walk, int index, int& previous) {
    int place = index;
    if (!walk.isAll) {
        const auto found = std::lower_bound(walk.chosen.begin(), walk.chosen.end(), index);
        place = found != walk.chosen.end() && *found == index ? static_cast<int>(found - walk.chosen.begin()) : -1;
    }
    if (!isIndex(place, walk.size)) {
        return MStatus::kInvalidParameter;
    }
    previous = walk.isDone() ? -1 : walk.current();
    walk.at = place;
    return MStatus::kSuccess;
}

MObject walkedComponent(const api::MeshWalk& walk, MFn::Type kind, MStatus* status) {
    if (walk.isDone()) {
        return fail<MObject>(status, MStatus::kFailure);
    }
    ComponentObject one{kind, {}, {}};
    one.indices.add({walk.current(), walk.current()});
    return succeed(status, ApiAccess::object(ObjectPayload{std::move(one)}));
}

MStatus askWalk(const api::MeshWalk& walk, MSpace::Space space, MeshFrame& frame) {
    return walk.isDone() ? MStatus(MStatus::kFailure) : frame.set(walk.path, space);
}

std::vector<int> uniqueNumbers(std::vector<int> numbers) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

void storeUnique(MIntArray& array, std::vector<int> numbers) {
    storeValues(array, uniqueNumbers(std::move(numbers)));
}

} // namespace host
