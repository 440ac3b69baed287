#include "export/materialPass.h"

#include "export/exportMessages.h"
#include "material/materials.h"
#include "material/textureFiles.h"
#include "material/textureWriter.h"
#include "scene/Run.h"

#include <maya/MFnMesh.h>
#include <maya/MObjectArray.h>

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

MStatus readShadingGroups(const NodeRecord& node, MObjectArray& groups, MObjectArray& components) {
    MStatus status;
    const MFnMesh mesh(node.shape, &status);
    if (status) {
        status = mesh.getConnectedSetsAndMembers(node.shape.instanceNumber(), groups, components, true);
    }
    if (!status) {
        say(kGettingShadingGroups, node.name);
    }
    return status;
}

MStatus gatherMaterialsOf(const NodeRecord& node) {
    MObjectArray groups;
    MObjectArray components;
    MStatus status = readShadingGroups(node, groups, components);
    const bool skipsWholes = hasFaceGroups(components);
    for (unsigned int i = 0; status && i < groups.length(); ++i) {
        if (skipsWholes && components[i].isNull()) {
            continue;
        }
        int material = -1;
        int textureSource = -1;
        int priority = 0;
        status = getMaterial(groups[i], true, material, textureSource, priority);
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
