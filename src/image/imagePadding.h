#pragma once

#include "image/ImageRecord.h"

#include <cstdint>

namespace tvk {

/// The smallest power of two that holds `texels` and is at least 8: 8 for 0 to 8, 16 for 9, 65536 for 65535.
uint32_t textureSide(uint16_t texels);

/// Brings the image's pixels to a texture's size. Columns and rows beyond the picture repeat its last ones, alpha
/// included, so that clamped texture coordinates look right; nothing is resampled.
///   image   its pixels were read: at most kLargestImageSide wide and high
void padToTextureSize(ImageRecord& image);

} // namespace tvk
