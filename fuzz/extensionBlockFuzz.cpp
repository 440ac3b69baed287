#include "image/extensionBlock.h"
#include "image/textureConversion.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

bool isComplete(const tvk::TextureData& data) {
    const bool isBlocks = data.format == tvk::TextureFormat::kTex4x4;
    return data.hasFormat && !data.texels.empty() && (!isBlocks || !data.paletteIndices.empty()) &&
           (!data.hasPalette || !data.palette.empty());
}

} // namespace

// Any bytes as the extension block of an image of 8 by 8, read for its names and as a texture.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const tvk::Bytes block{data, size};
    tvk::ImageRecord image;
    image.width = 8;
    image.height = 8;
    image.hasExtension = true;
    const bool namesRead = readExtension(block, tvk::ExtensionReading::kPartial, image).ok();
    const bool allRead = readExtension(block, tvk::ExtensionReading::kFull, image).ok();
    if (allRead && (!namesRead || !isComplete(image.extension))) {
        std::abort();
    }
    tvk::ConvertedTexture texture;
    if (allRead && convertTexture(image, "texture", texture).ok() && texture.data.texels.size() % 2 != 0) {
        std::abort(); // texels are written as words
    }
    return 0;
}
