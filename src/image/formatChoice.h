#pragma once

#include "image/ImageRecord.h"
#include "image/colorKey.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tvk {

/// What a texture's name asks for. Names end in "_cmp2" or "_cmp4" behind at least one more character.
enum class NamedFormat { kAutomatic, kTex4x4TwoColors, kTex4x4FourColors };

NamedFormat namedFormat(std::string_view textureName);

enum class AlphaMode {
    kOpaque,     // no alpha, or 255 everywhere
    kHoles,      // 0 or 255
    kTranslucent // something between
};

AlphaMode alphaMode(const ImageRecord& image);

/// The format that fits an image's colours, with its palette.
struct FormatChoice {
    TextureFormat format = TextureFormat::kDirect;
    bool color0Transparent = false;
    bool hasPalette = false;
    std::vector<ColorKey> palette; // rounded up to a size that the console takes, in its final order
    bool alphaIsReduced = false;   // translucent, but with too many colours: its alpha becomes on and off
};

/// Chooses by the colours of the image's own pixels; what padding adds has no other.
FormatChoice chooseFormat(const ImageRecord& image);

} // namespace tvk
