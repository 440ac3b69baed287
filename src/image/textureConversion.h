#pragma once

#include "image/ImageRecord.h"
#include "image/ImageResult.h"

#include <cstdint>
#include <string>

namespace tvk {

/// An image as a model file takes it.
struct ConvertedTexture {
    TextureData data;
    uint32_t width = 0; // of the texture: powers of two, at least 8
    uint32_t height = 0;
    uint16_t originalWidth = 0; // of the picture
    uint16_t originalHeight = 0;
    bool alphaIsReduced = false;     // it was translucent, but has too many colours for that
    bool exceedsBlockMemory = false; // more blocks of tex4x4 than the console has room for
};

/// Takes the texture that an image file's extension block holds, or makes one of its pixels: in the format that the
/// name asks for, else in the one that fits the colours.
///   image   as openImage read it with ImageReading::kTexture
///   name    of the texture; palettes that are made here have it too
/// Fails with "No palette data: " and the name for a block with a palette format without colours, and with "Invalid
/// additional information: " and the file for one whose data does not fill the texture, or more.
ImageResult convertTexture(const ImageRecord& image, const std::string& name, ConvertedTexture& texture);

} // namespace tvk
