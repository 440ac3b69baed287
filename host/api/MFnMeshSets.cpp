#include <maya/MFnMesh.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/setMembers.h"
#include "host/nodes/meshQueries.h"

#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>

#include <algorithm>
#include <utility>

using host::ApiAccess;
using host::ComponentObject;
using host::IndexRange;
using host::Node;
using host::ObjectPayload;
using host::SetShare;

namespace {

constexpr const char* kShadingGroup = "shadingEngine";

/// The shape, when the instance exists.
Node* shapeWithInstance(const MObject& mesh, unsigned int instance) {
    Node* shape = ApiAccess::node(mesh);
    const bool exists = shape != nullptr && instance < host::pathCount(host::Host::instance().graph(), *shape);
    return exists ? shape : nullptr;
}

void append(MObjectArray& sets, MObjectArray& components, SetShare& share) {
    const MObject set = ApiAccess::object(share.set);
    if (share.whole) {
        sets.append(set);
        components.append(MObject::kNullObj);
        return;
    }
    if (share.components.empty()) {
        share.components.push_back({MFn::kMeshPolygonComponent, {}, {}});
    }
    for (ComponentObject& component : share.components) {
        sets.append(set);
        components.append(ApiAccess::object(ObjectPayload{std::move(component)}));
    }
}

void shadeFaces(const SetShare& share, int place, MIntArray& indices) {
    for (const ComponentObject& component : share.components) {
        if (component.type != MFn::kMeshPolygonComponent) {
            continue;
        }
        for (const IndexRange range : component.indices.ranges()) {
            const int end = std::min(range.last, static_cast<int>(indices.length()) - 1);
            for (int face = range.first; face <= end; ++face) {
                indices[static_cast<unsigned int>(face)] = place;
            }
        }
    }
}

/// Gives the faces that are in no group to this one, if there is such a group and such a face.
void shadeRest(Node* group, MObjectArray& shaders, MIntArray& indices) {
    if (group == nullptr) {
        return;
    }
    const MObject object = ApiAccess::object(*group);
    unsigned int place = 0;
    while (place < shaders.length() && shaders[place] != object) {
        ++place;
    }
    for (unsigned int face = 0; face < indices.length(); ++face) {
        if (indices[face] < 0) {
            indices[face] = static_cast<int>(place);
            if (place == shaders.length()) {
                shaders.append(object);
            }
        }
    }
}

} // namespace

MStatus MFnMesh::getConnectedSetsAndMembers(unsigned int instanceNumber, MObjectArray& sets, MObjectArray& components,
                                            bool renderableSetsOnly) const {
    Node* shape = shapeWithInstance(object_, instanceNumber);
    if (shape == nullptr) {
        return MStatus::kFailure;
    }
    sets.clear();
    components.clear();
    for (SetShare& share : host::setsOf(*shape, static_cast<std::int32_t>(instanceNumber))) {
        if (!renderableSetsOnly || share.set->type().isKindOf(kShadingGroup)) {
            append(sets, components, share);
        }
    }
    return MStatus::kSuccess;
}

MStatus MFnMesh::getConnectedShaders(unsigned int instanceNumber, MObjectArray& shaders, MIntArray& indices) const {
    Node* shape = shapeWithInstance(object_, instanceNumber);
    if (shape == nullptr) {
        return MStatus::kFailure;
    }
    const host::MeshPtr mesh = host::evaluatedMesh(host::Host::instance().graph(), *shape);
    shaders.clear();
    indices = MIntArray(static_cast<unsigned int>(mesh->topology->faceCount()), -1);
    // Those that have the instance whole come first, so that faces of their own are put over them.
    for (const SetShare& share : host::setsOf(*shape, static_cast<std::int32_t>(instanceNumber))) {
        if (!share.set->type().isKindOf(kShadingGroup)) {
            continue;
        }
        const int place = static_cast<int>(shaders.length());
        shaders.append(ApiAccess::object(share.set));
        if (share.whole) {
            indices = MIntArray(indices.length(), place);
        }
        shadeFaces(share, place, indices);
    }
    shadeRest(host::shadingGroupOfRest(*shape, static_cast<std::int32_t>(instanceNumber)), shaders, indices);
    return MStatus::kSuccess;
}
