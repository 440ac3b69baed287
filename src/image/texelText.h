#pragma once

#include "image/ImageRecord.h"
#include "image/ImageResult.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace tvk {

/// Writes the bitmap element of a texture image, and for tex4x4 the element of its palette indices: hexadecimal words
/// behind three tabs, the elements behind two.
///   width, height   of the texture; what tex4x4 counts its blocks by
///   name            of the texture, for "No texel data: " and "No palette index data: "
/// The stream's number format is as before afterwards.
ImageResult writeTexels(std::ostream& out, const TextureData& data, int32_t width, int32_t height,
                        const std::string& name);

/// Words as four lowercase hexadecimal digits, eight to a line behind `tabs` tabs.
void writeHexWords(std::ostream& out, const std::vector<uint16_t>& words, int tabs);

} // namespace tvk
