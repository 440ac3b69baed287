#include "material/textureFiles.h"

#include "common/numberText.h"
#include "image/imageFile.h"
#include "image/imagePadding.h"
#include "material/textureMessages.h"
#include "material/texturePaths.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/plugReading.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MItDependencyNodes.h>

#include <utility>

namespace tvk {
namespace {

constexpr uint16_t kSmallestSide = 8;
// Continuation lines of messages, as wide as what stands before the text of a warning.
constexpr const char* kPathIndent = "\n         ";

std::string number(int value) {
    return integerText(value).str();
}

std::string subjectOf(const TextureRecord& image) {
    return imageSubject(image.name, image.originalWidth, image.originalHeight);
}

bool isTextureSide(int32_t texels) {
    return texels >= kSmallestSide && texels <= kLargestImageSide && (texels & (texels - 1)) == 0;
}

// A name check takes an image that it cannot read for a small one.
MStatus readSize(TextureRecord& image) {
    ImageRecord header;
    const ImageResult result = openImage(image.file, ImageReading::kHeader, header);
    if (!result.ok() && !run().options.quietTextureWarnings) {
        sayImageFailure(result.error, image.fileNode);
        return MS::kFailure;
    }
    const uint16_t width = result.ok() ? header.width : kSmallestSide;
    const uint16_t height = result.ok() ? header.height : kSmallestSide;
    image.originalWidth = width;
    image.originalHeight = height;
    image.width = static_cast<int32_t>(textureSide(width));
    image.height = static_cast<int32_t>(textureSide(height));
    return MS::kSuccess;
}

MStatus checkSize(TextureRecord& image) {
    if (image.originalWidth > kLargestImageSide || image.originalHeight > kLargestImageSide) {
        if (!run().options.quietTextureWarnings) {
            say(kImageTooLarge, subjectOf(image));
            return MS::kFailure;
        }
        image.originalWidth = kLargestImageSide;
        image.originalHeight = kLargestImageSide;
    }
    const bool fits = isTextureSide(image.originalWidth) && isTextureSide(image.originalHeight);
    if (!fits && !run().options.quietTextureWarnings) {
        say(kImageSize, subjectOf(image));
    }
    return MS::kSuccess;
}

int32_t addImage(TextureRecord&& image, const std::string& key) {
    SceneData& scene = run().scene;
    const auto index = static_cast<int32_t>(scene.textures.size());
    image.index = index;
    const auto [first, isNew] = scene.textureLookup.imageOfName.emplace(image.name, index);
    if (!isNew && !run().options.quietTextureWarnings) {
        const TextureRecord& other = scene.textures[static_cast<std::size_t>(first->second)];
        say(kSameImageName, image.name + kPathIndent + other.path + kPathIndent + image.path);
    }
    scene.textureLookup.imageOfPath.emplace(key, index);
    scene.textures.push_back(std::move(image));
    return index;
}

void sayFoundElsewhere(const TextureRecord& image) {
    if (image.file != image.path && !run().options.quietTextureWarnings) {
        showInformation(kFoundElsewhere + image.path + " -> " + image.file);
    }
}

MStatus registerImageOf(const MObject& fileNode) {
    MString name;
    const std::string nodeName = textOf(MFnDependencyNode(fileNode).name());
    if (!readAttribute(fileNode, "fileTextureName", name) || name.length() == 0) {
        if (!run().options.quietTextureWarnings) {
            say(kNoImageNameWarning, nodeName);
        }
        return MS::kSuccess;
    }
    int imageIndex = -1;
    return registerTextureFile(resolveTexturePath(name, hostText(run().options.workspaceRoot)), imageIndex, nodeName);
}

} // namespace

MStatus registerTextureFile(const MString& path, int& imageIndex, const std::string& fileNode) {
    TextureRecord image;
    image.path = textOf(path);
    const std::string key = normalisedPath(image.path);
    const auto& known = run().scene.textureLookup.imageOfPath;
    if (const auto found = known.find(key); found != known.end()) {
        imageIndex = found->second;
        return MS::kSuccess;
    }
    image.fileNode = fileNode;
    image.name = imageNameOf(image.path);
    image.file = findImageFile(image.path);
    sayFoundElsewhere(image);
    MStatus status = readSize(image);
    if (status) {
        status = checkSize(image);
    }
    if (status) {
        imageIndex = addImage(std::move(image), key);
    }
    return status;
}

MStatus registerAllTextureFiles() {
    for (MItDependencyNodes nodes(MFn::kFileTexture); !nodes.isDone(); nodes.next()) {
        const MObject node = nodes.thisNode();
        if (node.apiType() != MFn::kFileTexture) {
            continue; // a kind of file texture that has a type of its own
        }
        const MStatus status = registerImageOf(node);
        if (!status) {
            return status;
        }
    }
    return MS::kSuccess;
}

void sayImageFailure(const std::string& text, const std::string& fileNode) {
    say(kImageFailure, fileNode.empty() ? text : text + "\n       (used by " + fileNode + ")");
}

std::string imageSubject(const std::string& name, int width, int height) {
    return name + " (" + number(width) + " x " + number(height) + ")";
}

} // namespace tvk
