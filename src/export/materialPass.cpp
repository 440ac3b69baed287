#include "export/materialPass.h"

#include "material/materials.h"
#include "material/textureFiles.h"
#include "material/textureWriter.h"
#include "scene/Run.h"

#include <algorithm>

namespace tvk {
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
