#include "geometry/shadingGroups.h"

#include "geometry/geometryMessages.h"

#include <maya/MFn.h>
#include <maya/MFnMesh.h>
#include <maya/MObjectArray.h>

namespace tvk {

MStatus findShadingAssignments(const ShapeRecord& shape, std::vector<ShadingAssignment>& assignments) {
    assignments.clear();
    MObjectArray sets;
    MObjectArray components;
    const unsigned int instance = shape.path.isInstanced() ? shape.path.instanceNumber() : 0;
    MStatus status;
    const MFnMesh mesh(shape.path, &status);
    if (status) {
        status = mesh.getConnectedSetsAndMembers(instance, sets, components, true);
    }
    if (!status) {
        say(kSetsAndMembers, shape.name);
        return status;
    }
    if (sets.length() == 0) {
        say(kNoShadingGroup, shape.name);
        return MS::kFailure;
    }
    bool hasFaces = false;
    for (unsigned int i = 0; i < components.length(); ++i) {
        hasFaces = hasFaces || components[i].apiType() == MFn::kMeshPolygonComponent;
    }
    for (unsigned int i = 0; i < sets.length(); ++i) {
        const bool isWhole = components[i].isNull();
        if (isWhole ? !hasFaces : components[i].apiType() == MFn::kMeshPolygonComponent) {
            assignments.push_back({sets[i], components[i]});
        }
    }
    return MS::kSuccess;
}

} // namespace tvk
