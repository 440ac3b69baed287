#pragma once

#include "image/ImageRecord.h"
#include "writers/Picture.h"

#include <vector>

namespace tvk {

// Texels of every format but tex4x4 as the console shows them, written from the description of the formats and with no
// line of the packer. Each texel: five bits a channel in the high bits of r, g and b; alpha 0 to 255.
//   texels of a3i5 and a5i3   alpha in steps of their three and five bits, in the high bits
//   all others                alpha 0 or 255
// A test failure and black for an index outside of the palette.
std::vector<Rgba> decodeTexels(const TextureData& data, std::size_t texelCount);

// A colour word in the same form, opaque.
Rgba decodeColor(std::uint16_t word);

} // namespace tvk
