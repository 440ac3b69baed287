#pragma once

#include "image/ImageRecord.h"
#include "image/formatChoice.h"

#include <cstdint>
#include <vector>

namespace tvk {

/// Packs an image's pixels into the texels of a chosen format (any but tex4x4): little-endian words, the first texel of
/// a word in its lowest bits. A pixel whose colour the palette lacks takes entry 0; a palette format without a palette
/// gets direct texels.
///   image   of a texture's size: width and height multiples of 8
std::vector<uint8_t> packTexels(const ImageRecord& image, const FormatChoice& choice);

} // namespace tvk
