#include "host/app/report/textureMemory.h"

#include "host/app/report/nameText.h"

#include <algorithm>
#include <stdexcept>

namespace host::app::report {

namespace {

constexpr std::int64_t kColorBytes = 2;
constexpr std::int64_t kBlockTexels = 16;    // of tex4x4
constexpr std::int64_t kBlockIndexBytes = 2; // of each block
constexpr const char* kBlockFormat = "tex4x4";

struct TexelFormat {
    const char* name;
    std::int64_t bits; // of a texel
};
constexpr TexelFormat kFormats[] = {{"a3i5", 8},       {"palette4", 2}, {"palette16", 4}, {"palette256", 8},
                                    {kBlockFormat, 2}, {"a5i3", 8},     {"direct", 16}};

std::int64_t texelsOf(int width, int height) {
    return static_cast<std::int64_t>(width) * height;
}

TextureCosts costsOf(const decode::ModelTexture& image, const std::vector<PaletteCosts>& palettes) {
    TextureCosts costs;
    costs.name = utf8Name(image.name);
    costs.format = image.format;
    costs.palette = utf8Name(image.paletteName.value_or(""));
    costs.width = image.width;
    costs.height = image.height;
    costs.texelBytes = texelBytes(image.format, image.width, image.height);
    if (image.format == kBlockFormat) {
        costs.indexBytes = texelsOf(image.width, image.height) / kBlockTexels * kBlockIndexBytes;
    }
    for (const PaletteCosts& palette : palettes) {
        costs.paletteBytes += image.paletteName && palette.name == costs.palette ? palette.bytes : 0;
    }
    return costs;
}

} // namespace

std::int64_t texelBytes(const std::string& format, int width, int height) {
    for (const TexelFormat& row : kFormats) {
        if (format == row.name) {
            return texelsOf(width, height) * row.bits / 8;
        }
    }
    throw std::invalid_argument("no texture format: " + format);
}

TextureMemory memoryOf(const decode::ModelTextures& textures) {
    TextureMemory memory;
    for (const decode::ModelPalette& palette : textures.palettes) {
        const auto colors = static_cast<std::int64_t>(palette.colors.size());
        memory.palettes.push_back({utf8Name(palette.name), colors, colors * kColorBytes, 0});
        memory.paletteBytes += colors * kColorBytes;
    }
    for (const decode::ModelTexture& image : textures.images) {
        memory.images.push_back(costsOf(image, memory.palettes));
        memory.texelBytes += memory.images.back().texelBytes;
        memory.indexBytes += memory.images.back().indexBytes;
        for (PaletteCosts& palette : memory.palettes) {
            palette.images += image.paletteName && palette.name == memory.images.back().palette ? 1 : 0;
        }
    }
    std::stable_sort(memory.images.begin(), memory.images.end(),
                     [](const TextureCosts& a, const TextureCosts& b) { return a.bytes() > b.bytes(); });
    return memory;
}

} // namespace host::app::report
