#pragma once

#include <cstdint>

namespace tvk {

/// A colour of the console: red in bits 0-4, green in 5-9, blue in 10-14, each the top five bits of 8.
using ColorKey = uint16_t;

/// No colour: stands in lists and palettes for every texel that is not there. It is written like a colour.
inline constexpr ColorKey kTransparentKey = 0xFFFF;

/// Fills a palette up to a size that the console takes: white.
inline constexpr ColorKey kFillerKey = 0x7FFF;

/// Texels of an image count as there from this alpha on.
inline constexpr uint8_t kOpaqueAlpha = 128;

/// The colour of an RGBA pixel.
constexpr ColorKey colorKey(const uint8_t* rgba) {
    return static_cast<ColorKey>(rgba[0] >> 3U | rgba[1] >> 3U << 5U | rgba[2] >> 3U << 10U);
}

} // namespace tvk
