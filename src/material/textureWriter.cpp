#include "material/textureWriter.h"

#include "common/numberText.h"
#include "image/imageFile.h"
#include "image/texelText.h"
#include "image/textureConversion.h"
#include "material/paletteRegistration.h"
#include "material/paletteWriter.h"
#include "material/textureFiles.h"
#include "material/textureMessages.h"
#include "material/textureNameOrder.h"
#include "material/texturePaths.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string>

namespace tvk {
namespace {

constexpr int kAttributeTabs = 2;
constexpr std::array<const char*, 2> kColor0Words{"color", "transparency"};

// The formats in which the first colour of the palette can stand for holes.
bool hasColor0Mode(TextureFormat format) {
    return format == TextureFormat::kPalette4 || format == TextureFormat::kPalette16 ||
           format == TextureFormat::kPalette256;
}

void sayWhatConversionCost(const TextureRecord& image, const ConvertedTexture& texture) {
    if (texture.alphaIsReduced) {
        showInformation(kAlphaReduced + image.name);
    }
    if (texture.exceedsBlockMemory) {
        say(kTooLargeForBlocks, imageSubject(image.name, image.width, image.height));
    }
}

MStatus failed(const ImageResult& result, const TextureRecord& image) {
    sayImageFailure(result.error, image.fileNode);
    return MS::kFailure;
}

// Reads the image and stores in its record what the model has to know of it.
MStatus convert(TextureRecord& image, ConvertedTexture& texture) {
    ImageRecord pixels;
    ImageResult result = openImage(image.file, ImageReading::kTexture, pixels);
    if (result.ok()) {
        result = convertTexture(pixels, image.name, texture);
    }
    if (!result.ok()) {
        return failed(result, image);
    }
    image.width = static_cast<int32_t>(texture.width);
    image.height = static_cast<int32_t>(texture.height);
    image.originalWidth = texture.originalWidth;
    image.originalHeight = texture.originalHeight;
    image.format = static_cast<int32_t>(texture.data.format);
    image.color0Mode = texture.data.color0Transparent ? 1 : 0;
    image.paletteIndex = -1;
    sayWhatConversionCost(image, texture);
    return texture.data.hasPalette
               ? registerPalette(texture.data.paletteName, texture.data.palette, image, image.paletteIndex)
               : MS::kSuccess;
}

void writeSizes(std::ostream& out, const TextureRecord& image) {
    out << "\t\twidth=\"" << integerText(image.width) << '"';
    writeAttribute(out, "height", image.height);
    writeAttribute(out, "original_width", image.originalWidth);
    writeAttribute(out, "original_height", image.originalHeight);
    out << '\n';
}

MStatus writeImage(std::ostream& out, const TextureRecord& image, const ConvertedTexture& texture) {
    out << "\t<tex_image";
    writeAttribute(out, "index", image.index);
    writeAttribute(out, "name", image.name);
    out << '\n';
    writeSizes(out, image);
    writeAttributeLine(out, kAttributeTabs, "format", textureFormatName(image.format));
    if (hasColor0Mode(texture.data.format)) {
        writeAttributeLine(out, kAttributeTabs, "color0_mode",
                           kColor0Words.at(static_cast<std::size_t>(image.color0Mode)));
    }
    if (texture.data.hasPalette) {
        writeAttributeLine(out, kAttributeTabs, "palette_name", texture.data.paletteName);
    }
    writeAttributeLine(out, kAttributeTabs, "path", image.path);
    out << "\t>\n";
    const ImageResult result = writeTexels(out, texture.data, image.width, image.height, image.name);
    if (!result.ok()) {
        return failed(result, image);
    }
    out << "\t</tex_image>\n";
    return MS::kSuccess;
}

// One image at a time: its texels are gone before the next one is read.
MStatus processImage(std::ostream& out, bool write, TextureRecord& image) {
    ConvertedTexture texture;
    const MStatus status = convert(image, texture);
    return status && write ? writeImage(out, image, texture) : status;
}

void handDownConversions() {
    SceneData& scene = run().scene;
    for (MaterialTextureRef& ref : scene.textureRefs) {
        const TextureRecord& image = scene.textures[static_cast<std::size_t>(ref.imageIndex)];
        ref.paletteIndex = image.paletteIndex;
        ref.format = image.format;
    }
}

void numberImages() {
    SceneData& scene = run().scene;
    int32_t index = 0;
    for (const int32_t place : scene.textureOrder) {
        scene.textures[static_cast<std::size_t>(place)].index = index++;
    }
}

void numberReferences() {
    SceneData& scene = run().scene;
    std::vector<MaterialTextureRef*> order;
    order.reserve(scene.textureRefs.size());
    for (MaterialTextureRef& ref : scene.textureRefs) {
        order.push_back(&ref);
    }
    std::stable_sort(order.begin(), order.end(), [&](const MaterialTextureRef* a, const MaterialTextureRef* b) {
        return scene.textures[static_cast<std::size_t>(a->imageIndex)].index <
               scene.textures[static_cast<std::size_t>(b->imageIndex)].index;
    });
    int32_t index = 0;
    for (MaterialTextureRef* ref : order) {
        ref->index = index++;
    }
}

} // namespace

void sortTextures() {
    SceneData& scene = run().scene;
    std::vector<NameKey> keys;
    keys.reserve(scene.textures.size());
    for (const TextureRecord& image : scene.textures) {
        keys.push_back({writtenBytes(image.name), normalisedPath(image.path)});
    }
    scene.textureOrder = orderOf(keys);
    numberImages();
    numberReferences();
}

void keepTextures(const std::vector<bool>& isKept) {
    std::vector<int32_t>& order = run().scene.textureOrder;
    order.erase(std::remove_if(order.begin(), order.end(),
                               [&](int32_t place) { return !isKept[static_cast<std::size_t>(place)]; }),
                order.end());
    numberImages();
}

MStatus writeTexImageArray(std::ostream& out, bool write) {
    SceneData& scene = run().scene;
    const bool writesFrame = write && !scene.textureOrder.empty();
    if (writesFrame) {
        out << "<tex_image_array";
        writeAttribute(out, "size", static_cast<int64_t>(scene.textureOrder.size()));
        out << ">\n";
    }
    for (const int32_t place : scene.textureOrder) {
        const MStatus status = processImage(out, write, scene.textures[static_cast<std::size_t>(place)]);
        if (!status) {
            return status;
        }
    }
    if (writesFrame) {
        out << "</tex_image_array>\n\n";
    }
    sortPalettes();
    handDownConversions();
    return MS::kSuccess;
}

} // namespace tvk
