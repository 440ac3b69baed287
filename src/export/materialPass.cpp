#include "export/materialPass.h"

#include "export/exportMessages.h"
#include "material/materials.h"
#include "material/textureFiles.h"
#include "material/textureWriter.h"
#include "scene/Run.h"

#include <maya/MFnMesh.h>
#include <maya/MObjectArray.h>
#include <maya/MStringArray.h>

#include <algorithm>

namespace tvk {
namespace {

bool hasFaceGroups(const MObjectArray& components) {
    for (unsigned int i = 0; i < components.length(); ++i) {
        if (!components[i].isNull()) {
            return true;
        }
    }
    return false;
}

// The first set is the one that the model takes.
bool hasTextureCoordinates(const MFnMesh& mesh) {
    MStringArray sets;
    return mesh.getUVSetNames(sets) && sets.length() > 0 && mesh.numUVs(sets[0]) > 0;
}

struct ShapeShading {
    MObjectArray groups;
    MObjectArray components;
    bool hasTextureCoordinates = false;
};

MStatus readShading(const NodeRecord& node, ShapeShading& shading) {
    MStatus status;
    const MFnMesh mesh(node.shape, &status);
    if (status) {
        shading.hasTextureCoordinates = hasTextureCoordinates(mesh);
        status = mesh.getConnectedSetsAndMembers(node.shape.instanceNumber(), shading.groups, shading.components, true);
    }
    if (!status) {
        say(kGettingShadingGroups, node.name);
    }
    return status;
}

MStatus gatherMaterialsOf(const NodeRecord& node) {
    ShapeShading shading;
    MStatus status = readShading(node, shading);
    const bool skipsWholes = hasFaceGroups(shading.components);
    for (unsigned int i = 0; status && i < shading.groups.length(); ++i) {
        if (skipsWholes && shading.components[i].isNull()) {
            continue;
        }
        int material = -1;
        int textureSource = -1;
        int priority = 0;
        status = getMaterial(shading.groups[i], shading.hasTextureCoordinates, material, textureSource, priority);
    }
    return status;
}

} // namespace

MStatus gatherMaterials() {
    for (const auto& node : run().scene.nodes) {
        if (node->kind != NodeKind::kMesh) {
            continue;
        }
        const MStatus status = gatherMaterialsOf(*node);
        if (!status) {
            return status;
        }
    }
    return MS::kSuccess;
}

MStatus settleMaterials() {
    makeMaterialNamesUnique();
    sortMaterialsByName();
    if (run().options.outAllTex) {
        const MStatus status = registerAllTextureFiles();
        if (!status) {
            return status;
        }
    }
    sortTextures();
    return MS::kSuccess;
}

void prepareMaterialAnimation() {
    SceneData& scene = run().scene;
    scene.materialColorAnimated = std::any_of(scene.materials.begin(), scene.materials.end(),
                                              [](const MaterialRecord& material) { return material.colorAnimated; });
    scene.texturePatternAnimated = !scene.texturePatterns.empty();
    scene.textureSrtAnimated = std::any_of(scene.textureSources.begin(), scene.textureSources.end(),
                                           [](const TextureSourceRecord& source) { return source.texSrtAnimated; });
}

} // namespace tvk
