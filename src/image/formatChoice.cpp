#include "image/formatChoice.h"

#include <algorithm>
#include <cstddef>

namespace tvk {
namespace {

constexpr size_t kMostColors = 256;
constexpr size_t kKeyCount = size_t{1} << 16U;

// Distinct keys in first-seen order. Beyond what any palette holds they are only known to be too many.
class ColorList {
public:
    void add(ColorKey key) {
        if (keys.size() <= kMostColors && !seen[key]) {
            seen[key] = true;
            keys.push_back(key);
        }
    }

    size_t size() const { return keys.size(); }
    const std::vector<ColorKey>& list() const { return keys; }

private:
    std::vector<ColorKey> keys;
    std::vector<bool> seen = std::vector<bool>(kKeyCount);
};

struct ColorLists {
    ColorList all;    // colours of all pixels
    ColorList opaque; // colours of the pixels that are there; one marker for all others
    bool hasTransparentPixels = false;
};

ColorLists collectColors(const ImageRecord& image) {
    ColorLists lists;
    for (size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
        const ColorKey key = colorKey(&image.pixels[i]);
        const bool isThere = image.pixels[i + 3] >= kOpaqueAlpha;
        lists.all.add(key);
        lists.opaque.add(isThere ? key : kTransparentKey);
        lists.hasTransparentPixels = lists.hasTransparentPixels || !isThere;
    }
    return lists;
}

TextureFormat formatForColors(size_t colors) {
    if (colors > kMostColors) {
        return TextureFormat::kDirect;
    }
    if (colors > 16) {
        return TextureFormat::kPalette256;
    }
    return colors > 4 ? TextureFormat::kPalette16 : TextureFormat::kPalette4;
}

// Rounded up to a multiple of 4 for palette4 and of 8 for the others, at least once that; the marker of transparency
// comes first, as the console skips entry 0.
std::vector<ColorKey> finishedPalette(std::vector<ColorKey> palette, TextureFormat format, bool color0Transparent) {
    const size_t multiple = format == TextureFormat::kPalette4 ? 4 : 8;
    const size_t size = std::max<size_t>(1, (palette.size() + multiple - 1) / multiple) * multiple;
    palette.resize(size, kFillerKey);
    if (color0Transparent) {
        const auto marker = std::find(palette.begin(), palette.end(), kTransparentKey);
        std::rotate(palette.begin(), marker, marker + 1);
    }
    return palette;
}

FormatChoice translucentChoice(TextureFormat format, const ColorList& colors) {
    return {format, false, true, finishedPalette(colors.list(), format, false), false};
}

} // namespace

NamedFormat namedFormat(std::string_view textureName) {
    constexpr size_t kSuffixLength = 5;
    if (textureName.size() <= kSuffixLength) {
        return NamedFormat::kAutomatic;
    }
    const std::string_view suffix = textureName.substr(textureName.size() - kSuffixLength);
    if (suffix == "_cmp2") {
        return NamedFormat::kTex4x4TwoColors;
    }
    return suffix == "_cmp4" ? NamedFormat::kTex4x4FourColors : NamedFormat::kAutomatic;
}

AlphaMode alphaMode(const ImageRecord& image) {
    AlphaMode mode = AlphaMode::kOpaque;
    for (size_t i = 3; image.hasAlpha && i < image.pixels.size(); i += 4) {
        const uint8_t alpha = image.pixels[i];
        if (alpha > 0 && alpha < 255) {
            return AlphaMode::kTranslucent;
        }
        mode = alpha == 0 ? AlphaMode::kHoles : mode;
    }
    return mode;
}

FormatChoice chooseFormat(const ImageRecord& image) {
    const ColorLists lists = collectColors(image);
    const bool translucent = alphaMode(image) == AlphaMode::kTranslucent;
    if (translucent && lists.all.size() <= 8) {
        return translucentChoice(TextureFormat::kA5i3, lists.all);
    }
    if (translucent && lists.all.size() <= 32) {
        return translucentChoice(TextureFormat::kA3i5, lists.all);
    }
    const ColorList& colors = lists.hasTransparentPixels ? lists.opaque : lists.all;
    FormatChoice choice;
    choice.alphaIsReduced = translucent;
    choice.format = formatForColors(colors.size());
    if (choice.format != TextureFormat::kDirect) {
        choice.color0Transparent = lists.hasTransparentPixels;
        choice.hasPalette = true;
        choice.palette = finishedPalette(colors.list(), choice.format, choice.color0Transparent);
    }
    return choice;
}

} // namespace tvk
