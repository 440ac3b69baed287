#include "image/textureConversion.h"

#include "image/formatChoice.h"
#include "image/imagePadding.h"
#include "image/tex4x4/tex4x4Encoder.h"
#include "image/texelPacking.h"

#include <utility>

namespace tvk {
namespace {

// What the console's memory for block words holds: 128 KB, four bytes for 16 texels.
constexpr uint64_t kMostBlockTexels = uint64_t{1024} * 512;

bool fillsTexture(const TextureData& data, uint64_t texels) {
    const auto bits = static_cast<uint64_t>(textureFormatRow(data.format).bitsPerTexel);
    const bool isBlocks = data.format == TextureFormat::kTex4x4;
    return data.texels.size() == texels * bits / 8 && (!isBlocks || data.paletteIndices.size() == texels / 16);
}

ImageResult takeExtension(const ImageRecord& image, const std::string& name, ConvertedTexture& texture) {
    if (textureFormatRow(image.extension.format).paletteSize > 0 && !image.extension.hasPalette) {
        return {image_error::kNoPalette + name};
    }
    if (!fillsTexture(image.extension, uint64_t{texture.width} * texture.height)) {
        return {image_error::kExtension + image.fileName};
    }
    texture.data = image.extension;
    return {};
}

void packChosen(const ImageRecord& image, const ImageRecord& padded, ConvertedTexture& texture) {
    FormatChoice choice = chooseFormat(image);
    texture.data.texels = packTexels(padded, choice);
    texture.data.format = choice.format;
    texture.data.color0Transparent = choice.color0Transparent;
    texture.data.hasPalette = choice.hasPalette;
    texture.data.palette = std::move(choice.palette);
    texture.alphaIsReduced = choice.alphaIsReduced;
}

void convertPixels(const ImageRecord& image, const std::string& name, ConvertedTexture& texture) {
    ImageRecord padded = image;
    padToTextureSize(padded);
    const NamedFormat named = namedFormat(name);
    if (named == NamedFormat::kAutomatic) {
        packChosen(image, padded, texture);
    } else {
        Tex4x4Options options;
        options.fourColors = named == NamedFormat::kTex4x4FourColors;
        texture.data = encodeTex4x4(padded, options);
    }
    texture.data.hasFormat = true;
    texture.data.paletteName = texture.data.hasPalette ? name : std::string();
}

} // namespace

ImageResult convertTexture(const ImageRecord& image, const std::string& name, ConvertedTexture& texture) {
    texture = ConvertedTexture{};
    texture.originalWidth = image.width;
    texture.originalHeight = image.height;
    texture.width = textureSide(image.width);
    texture.height = textureSide(image.height);
    if (image.hasExtension) {
        const ImageResult result = takeExtension(image, name, texture);
        if (!result.ok()) {
            return result;
        }
    } else {
        convertPixels(image, name, texture);
    }
    texture.exceedsBlockMemory =
        texture.data.format == TextureFormat::kTex4x4 && uint64_t{texture.width} * texture.height > kMostBlockTexels;
    return {};
}

} // namespace tvk
