#include "export/nameCheck.h"

#include "export/RunGuard.h"
#include "export/exportOptions.h"
#include "export/materialPass.h"
#include "export/nodeTree.h"
#include "export/runReport.h"
#include "geometry/materialScan.h"
#include "image/imageFile.h"
#include "material/textureMessages.h"
#include "platform/outputWindow.h"
#include "scene/hostCompatibility.h"
#include "scene/messages.h"

#include <maya/MFileObject.h>

#include <ostream>
#include <set>
#include <utility>

namespace tvk {
namespace {

using Texts = std::vector<std::string>;

void addPair(Texts& pairs, std::string first, std::string second) {
    pairs.push_back(std::move(first));
    pairs.push_back(std::move(second));
}

void addLongNodes(Texts& pairs) {
    for (const NodeRecord* node : run().scene.outputNodes) {
        if (node->hasDagNode && isLongName(node->name)) {
            addPair(pairs, textOf(node->path.fullPathName()), node->name);
        }
    }
}

void addLongMaterials(const std::set<int>& used, Texts& pairs) {
    for (const int32_t index : run().scene.materialOrder) {
        const MaterialRecord& material = run().scene.materials[static_cast<std::size_t>(index)];
        if (used.count(index) != 0 && isLongName(material.name)) {
            addPair(pairs, material.name, material.sourceName);
        }
    }
}

void addLongNamesOf(const TextureRecord& texture, Texts& pairs) {
    ImageRecord image;
    const ImageResult result = openImage(texture.file, ImageReading::kPartialBlock, image);
    if (!result.ok()) {
        say(kUncheckedImage, result.error);
        return;
    }
    if (isLongName(texture.name)) {
        addPair(pairs, texture.path, texture.name);
    }
    if (isLongName(image.extension.paletteName)) {
        addPair(pairs, texture.path, image.extension.paletteName);
    }
}

void addLongTextures(Texts& pairs) {
    for (const int32_t index : run().scene.textureOrder) {
        addLongNamesOf(run().scene.textures[static_cast<std::size_t>(index)], pairs);
    }
}

MStatus gatherNames(Texts& pairs) {
    std::set<int> usedMaterials;
    MStatus status = buildNodeTree();
    if (status) {
        status = scanMaterials(usedMaterials);
    }
    if (status) {
        status = settleMaterials();
    }
    if (status) {
        addLongNodes(pairs);
        addLongMaterials(usedMaterials, pairs);
        addLongTextures(pairs);
    }
    return status;
}

void prepareCheck(MPxFileTranslator::FileAccessMode mode) {
    run().resetMessages();
    MFileObject file;
    file.setRawFullName("./dummy.txt"); // options speak of a file; this one is never made
    resetOptions(file, mode);
    run().options.quietTextureWarnings = true;
    run().clearScene();
}

} // namespace

MStatus checkElementNames(MPxFileTranslator::FileAccessMode mode, std::vector<std::string>& pairs) {
    if (run().underWay) {
        return MS::kFailure;
    }
    const RunGuard guard;
    prepareCheck(mode);
    const MStatus status = gatherNames(pairs);
    if (warningRaised()) {
        *run().messages << std::endl;
        showOutputWindow();
    }
    return status;
}

} // namespace tvk
