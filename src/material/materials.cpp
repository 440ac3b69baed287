#include "material/materials.h"

#include "common/UniqueNames.h"
#include "common/byteOrder.h"
#include "material/fileTextureSearch.h"
#include "material/materialAttributes.h"
#include "material/materialMerging.h"
#include "material/materialMessages.h"
#include "material/shaderReading.h"
#include "material/shaderTypes.h"
#include "material/textureSource.h"
#include "platform/codePage.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/plugSource.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tvk {
namespace {

int32_t lengthOf(const std::vector<MaterialRecord>& materials) {
    return static_cast<int32_t>(materials.size());
}

MaterialRecord& materialAt(int32_t index) {
    return run().scene.materials[static_cast<std::size_t>(index)];
}

std::string nodeName(MObject node) {
    return textOf(MFnDependencyNode(node).name());
}

std::string writtenBytes(const std::string& name) {
    bool lossy = false;
    return toShiftJis(name, lossy);
}

// -1 when there is none yet.
int32_t findMaterial(const std::string& groupName, const MObject& shadingGroup, bool withTexture) {
    const auto& ofGroup = run().scene.materialLookup.ofShadingGroup;
    const auto found = ofGroup.find(groupName);
    if (found == ofGroup.end()) {
        return -1;
    }
    const auto fits = [&](int32_t index) {
        const MaterialRecord& record = materialAt(index);
        return record.shadingGroup == shadingGroup && (record.textureRef == -1 || withTexture);
    };
    const auto first = std::find_if(found->second.begin(), found->second.end(), fits);
    return first != found->second.end() ? *first : -1;
}

// Fails with nothing added. The material's place is the end of the list.
MStatus readTexture(const MObject& fileTexture, MaterialRecord& record) {
    int source = -1;
    int ref = -1;
    const MStatus status = getTextureSource(fileTexture, lengthOf(run().scene.materials), source, ref);
    if (!status) {
        return status;
    }
    const TextureSourceRecord& texture = run().scene.textureSources[static_cast<std::size_t>(source)];
    record.textureSource = source;
    record.textureRef = ref;
    record.texPatternAnimated = texture.texPatternAnimated;
    record.texSrtAnimated = texture.texSrtAnimated;
    record.placement = texture.placement;
    readTexGenAttributes(record.shader, record);
    return MS::kSuccess;
}

MStatus readMaterial(bool withTexture, MaterialRecord& record) {
    record.type = record.shader.apiType();
    record.sourceName = nodeName(record.shader);
    record.name = record.sourceName;
    const MPlug color = findPlug(MFnDependencyNode(record.shader), shaderTypeOf(record.shader).colorPlug);
    const MObject fileTexture = findFileTexture(color);
    readShader(record.shader, fileTexture, record);
    return withTexture && !fileTexture.isNull() ? readTexture(fileTexture, record) : MStatus(MS::kSuccess);
}

void takeSmallerName(MaterialRecord& kept, const MaterialRecord& dropped) {
    if (bytesBefore(writtenBytes(dropped.name), writtenBytes(kept.name))) {
        kept.sourceName = dropped.sourceName;
        kept.name = dropped.name;
    }
}

int32_t append(MaterialRecord record, const std::string& groupName) {
    SceneData& scene = run().scene;
    const int32_t index = lengthOf(scene.materials);
    scene.materialLookup.ofShadingGroup[groupName].push_back(index);
    scene.materials.push_back(std::move(record));
    return index;
}

int32_t addOrMerge(MaterialRecord record, const std::string& groupName) {
    ++run().scene.materialCount;
    if (!run().options.compressMaterial || !mayMerge(record)) {
        return append(std::move(record), groupName);
    }
    const int32_t next = lengthOf(run().scene.materials);
    const auto [found, isNew] = run().scene.materialLookup.mergeable.try_emplace(mergeKeyOf(record), next);
    if (isNew) {
        return append(std::move(record), groupName);
    }
    takeSmallerName(materialAt(found->second), record);
    if (record.textureSource != -1) {
        dropTextureSource(record.textureSource);
    }
    return found->second;
}

struct Wanted {
    int& material;
    int& textureSource;
    int& renderPriority;

    void take(int32_t index) const {
        material = index;
        textureSource = materialAt(index).textureSource;
        renderPriority = materialAt(index).renderPriority;
    }
};

MStatus takeDummy(const Wanted& wanted) {
    wanted.textureSource = -1;
    return getDummyMaterial(wanted.material, wanted.renderPriority);
}

std::string groupNameOf(const MaterialRecord& record) {
    return record.shadingGroup.isNull() ? "no shading group" : nodeName(record.shadingGroup);
}

} // namespace

MStatus getMaterial(MObject shadingGroup, bool withTexture, int& materialIndex, int& textureSourceIndex,
                    int& renderPriority) {
    const Wanted wanted{materialIndex, textureSourceIndex, renderPriority};
    const std::string groupName = nodeName(shadingGroup);
    const int32_t known = findMaterial(groupName, shadingGroup, withTexture);
    if (known != -1) {
        wanted.take(known);
        return MS::kSuccess;
    }
    MaterialRecord record;
    record.shadingGroup = shadingGroup;
    const MPlug source = sourceOf(findPlug(MFnDependencyNode(shadingGroup), "surfaceShader"));
    if (source.isNull()) {
        say(kNoShader, groupName);
        return takeDummy(wanted);
    }
    record.shader = source.node();
    if (!isExportedShader(record.shader)) {
        say(kInvalidShader, nodeName(record.shader));
        return takeDummy(wanted);
    }
    const MStatus status = readMaterial(withTexture, record);
    if (status) {
        wanted.take(addOrMerge(std::move(record), groupName));
    }
    return status;
}

MStatus getDummyMaterial(int& materialIndex, int& renderPriority) {
    SceneData& scene = run().scene;
    if (scene.materialLookup.dummy == -1) {
        ++scene.materialCount;
        MaterialRecord record;
        record.isDummy = true;
        record.sourceName = "dummy_material";
        record.name = record.sourceName;
        scene.materialLookup.dummy = lengthOf(scene.materials);
        scene.materials.push_back(std::move(record));
    }
    materialIndex = scene.materialLookup.dummy;
    renderPriority = materialAt(materialIndex).renderPriority;
    return MS::kSuccess;
}

void makeMaterialNamesUnique() {
    UniqueNames names;
    names.reserve(run().scene.materials.size());
    for (MaterialRecord& record : run().scene.materials) {
        const std::string written = writtenBytes(record.name);
        const std::string suffix = names.allocate(written).substr(written.size());
        if (suffix.empty()) {
            continue;
        }
        const std::string name = record.name + suffix;
        if (!run().options.quietTextureWarnings) {
            say(kMaterialNameChanged, record.sourceName + " (" + groupNameOf(record) + ") -> " + name);
        }
        record.name = name;
    }
}

void sortMaterialsByName() {
    SceneData& scene = run().scene;
    std::vector<std::pair<std::string, int32_t>> keyed;
    keyed.reserve(scene.materials.size());
    for (const MaterialRecord& record : scene.materials) {
        keyed.emplace_back(writtenBytes(record.name), static_cast<int32_t>(keyed.size()));
    }
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? bytesBefore(a.first, b.first) : a.second < b.second;
    });
    scene.materialOrder.clear();
    for (const auto& [name, index] : keyed) {
        materialAt(index).outputIndex = static_cast<int32_t>(scene.materialOrder.size());
        scene.materialOrder.push_back(index);
    }
    scene.outputMaterialCount = lengthOf(scene.materials);
}

} // namespace tvk
