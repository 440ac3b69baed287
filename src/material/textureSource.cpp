#include "material/textureSource.h"

#include "material/textureFiles.h"
#include "material/textureMessages.h"
#include "material/texturePaths.h"
#include "material/texturePattern.h"
#include "material/texturePlacement.h"
#include "material/textureReferences.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/plugReading.h"

#include <maya/MFnDependencyNode.h>

#include <utility>

namespace tvk {
namespace {

constexpr int32_t kSmallestTiledSide = 8;

int32_t findKnownSource(const MObject& fileNode, int32_t materialIndex) {
    const SceneData& scene = run().scene;
    const auto [first, last] = scene.textureLookup.sourcesOfMaterial.equal_range(materialIndex);
    for (auto place = first; place != last; ++place) {
        if (scene.textureSources[static_cast<std::size_t>(place->second)].fileNode == fileNode) {
            return place->second;
        }
    }
    return -1;
}

MStatus readPath(TextureSourceRecord& source) {
    MString name;
    static_cast<void>(readAttribute(source.fileNode, "fileTextureName", name)); // unreadable: as good as empty
    if (name.length() == 0) {
        const bool isQuiet = run().options.quietTextureWarnings;
        say(isQuiet ? kNoImageNameWarning : kNoImageName, source.fileNodeName);
        if (!isQuiet) {
            return MS::kFailure;
        }
    }
    source.path = textOf(resolveTexturePath(name, hostText(run().options.workspaceRoot)));
    return MS::kSuccess;
}

// Mirroring is a kind of wrapping: it wins.
TextureTiling readTiling(const MObject& fileNode, const char* mirror, const char* wrap) {
    if (attributeOr(fileNode, mirror, false)) {
        return kTilingFlip;
    }
    return attributeOr(fileNode, wrap, true) ? kTilingRepeat : kTilingClamp;
}

// The console tiles by masking bits of the coordinate.
void checkTiledSide(int32_t texels, const Message& noPowerOfTwo, const Message& tooSmall, const std::string& subject) {
    if ((texels & (texels - 1)) != 0) {
        say(noPowerOfTwo, subject);
    } else if (texels < kSmallestTiledSide) {
        say(tooSmall, subject);
    }
}

void checkTiling(const TextureSourceRecord& source, const MaterialTextureRef& ref) {
    if (run().options.quietTextureWarnings) {
        return;
    }
    const TextureRecord& image = run().scene.textures[static_cast<std::size_t>(ref.imageIndex)];
    const int32_t width = image.originalWidth;
    const int32_t height = image.originalHeight;
    const std::string subject = source.fileNodeName + " (" + image.name + ")" + imageSubject({}, width, height);
    if (ref.tilingS != kTilingClamp) {
        checkTiledSide(width, kWidthNoPowerOfTwo, kWidthTooSmall, subject);
    }
    if (ref.tilingT != kTilingClamp) {
        checkTiledSide(height, kHeightNoPowerOfTwo, kHeightTooSmall, subject);
    }
}

MStatus findReference(TextureSourceRecord& source) {
    int imageIndex = -1;
    const MStatus status = registerTextureFile(hostText(source.path), imageIndex, source.fileNodeName);
    if (status) {
        source.textureRef = referTo(imageIndex, readTiling(source.fileNode, "mirrorU", "wrapU"),
                                    readTiling(source.fileNode, "mirrorV", "wrapV"));
    }
    return status;
}

MStatus readSource(TextureSourceRecord& source) {
    MStatus status = readPath(source);
    if (!status) {
        return status;
    }
    source.texPatternAnimated = attributeOr(source.fileNode, "useFrameExtension", false);
    readPlacement(source);
    status = findReference(source);
    if (!status) {
        return status;
    }
    const MaterialTextureRef ref = run().scene.textureRefs[static_cast<std::size_t>(source.textureRef)];
    checkTiling(source, ref);
    return source.texPatternAnimated ? gatherTexturePattern(source, ref) : status;
}

int32_t addSource(TextureSourceRecord&& source) {
    SceneData& scene = run().scene;
    const auto index = static_cast<int32_t>(scene.textureSources.size());
    scene.textureLookup.sourcesOfMaterial.emplace(source.materialIndex, index);
    scene.textureSources.push_back(std::move(source));
    return index;
}

} // namespace

MStatus getTextureSource(MObject fileNode, int materialIndex, int& sourceIndex, int& refIndex) {
    int32_t index = findKnownSource(fileNode, materialIndex);
    if (index < 0) {
        TextureSourceRecord source;
        source.fileNode = fileNode;
        source.fileNodeName = textOf(MFnDependencyNode(fileNode).name());
        source.materialIndex = materialIndex;
        const MStatus status = readSource(source);
        if (!status) {
            return status;
        }
        index = addSource(std::move(source));
    }
    sourceIndex = index;
    refIndex = run().scene.textureSources[static_cast<std::size_t>(index)].textureRef;
    return MS::kSuccess;
}

void dropTextureSource(int sourceIndex) {
    SceneData& scene = run().scene;
    auto& places = scene.textureLookup.sourcesOfMaterial;
    const auto [first, last] = places.equal_range(scene.textureSources.back().materialIndex);
    for (auto place = first; place != last; ++place) {
        if (place->second == sourceIndex) {
            places.erase(place);
            break;
        }
    }
    scene.textureSources.pop_back();
}

} // namespace tvk
