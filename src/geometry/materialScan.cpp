#include "geometry/materialScan.h"

#include "geometry/ShapeFaces.h"
#include "geometry/shadingGroups.h"
#include "material/materials.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MItMeshPolygon.h>

#include <vector>

namespace tvk {
namespace {

struct ShadedFaces {
    bool any = false;
    bool haveUvs = false; // some of them
};

ShadedFaces findFaces(const ShapeRecord& shape, const ShadingAssignment& assignment) {
    ShadedFaces faces;
    const MString uvSet = hostText(shape.uvSet);
    MObject component = assignment.component;
    MStatus status;
    MItMeshPolygon face(shape.path, component, &status);
    for (; status && !face.isDone() && !faces.haveUvs; face.next()) {
        faces.any = true;
        faces.haveUvs = face.hasUVs(uvSet);
    }
    return faces;
}

MStatus scanShape(const ShapeRecord& shape, std::set<int>& used) {
    std::vector<ShadingAssignment> assignments;
    MStatus status = findShadingAssignments(shape, assignments);
    for (const ShadingAssignment& assignment : assignments) {
        if (!status) {
            break;
        }
        const ShadedFaces faces = findFaces(shape, assignment);
        int material = 0;
        int textureSource = -1;
        int renderPriority = 0;
        status = getMaterial(assignment.shadingGroup, faces.haveUvs, material, textureSource, renderPriority);
        if (status && faces.any) {
            used.insert(material);
        }
    }
    return status;
}

} // namespace

MStatus scanMaterials(std::set<int>& used) {
    for (const auto& node : run().scene.nodes) {
        if (node->kind != NodeKind::kMesh) {
            continue;
        }
        ShapeRecord shape;
        shape.node = node.get();
        shape.path = node->shape;
        const MObject object = node->shape.node();
        shape.name = textOf(MFnDependencyNode(object).name());
        shape.uvSet = readUvSetName(node->shape);
        const MStatus status = scanShape(shape, used);
        if (!status) {
            return status;
        }
    }
    return MS::kSuccess;
}

} // namespace tvk
