#pragma once

#include "image/TextureFormat.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

/// A texture in a format of the console: what a file's extension block holds, or what converting its pixels gave.
struct TextureData {
    TextureFormat format = TextureFormat::kDirect;
    bool hasFormat = false; // a block named its format
    bool color0Transparent = false;
    std::vector<uint8_t> texels;          // little-endian words, the first texel in the lowest bits
    std::vector<uint16_t> paletteIndices; // tex4x4: one per block of 4 by 4 texels
    bool hasPalette = false;
    std::string paletteName;       // may stay empty: the palette is then nameless
    std::vector<uint16_t> palette; // red in bits 0-4, green in 5-9, blue in 10-14
};

enum class ImageType { kTga, kPic };

/// The console's largest texture. Pixels of larger images are never allocated.
inline constexpr uint16_t kLargestImageSide = 1024;

/// An image file as far as it was read.
struct ImageRecord {
    std::string fileName; // UTF-8, as it was asked for
    ImageType type = ImageType::kTga;
    uint64_t fileSize = 0;
    uint16_t width = 0;
    uint16_t height = 0;
    bool hasAlpha = false;
    std::vector<uint8_t> pixels; // R, G, B, A; rows top to bottom, columns left to right; width * height * 4 bytes

    bool hasExtension = false;
    uint32_t extensionOffset = 0; // in the file
    TextureData extension;
};

} // namespace tvk
