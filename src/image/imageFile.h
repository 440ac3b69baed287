#pragma once

#include "image/ImageRecord.h"
#include "image/ImageResult.h"

#include <string>

namespace tvk {

/// What to read of an image file beyond its header.
enum class ImageReading {
    kHeader,       // size, alpha, whether there is an extension block: a few hundred bytes of the file
    kPartialBlock, // and what a name check needs of the block, when there is one
    kTexture,      // and the texture: the whole block when there is one, else the pixels
};

/// Reads an image file by the extension of its name, "tga" or "pic" in any case.
///   fileName   UTF-8; used in every error text, "Can't open file: " for one that cannot be opened or read
///   record     filled as far as `reading` asks; on failure its contents mean nothing
ImageResult openImage(const std::string& fileName, ImageReading reading, ImageRecord& record);

} // namespace tvk
