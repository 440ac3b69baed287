#include "image/texelPacking.h"

#include <cstddef>

namespace tvk {
namespace {

// Entry of a colour in a palette; 0 for colours that it lacks.
class PaletteLookup {
public:
    explicit PaletteLookup(const std::vector<ColorKey>& palette) {
        for (size_t i = palette.size(); i-- > 0;) { // of equal entries the first is to win
            entries[palette[i]] = static_cast<uint8_t>(i);
        }
    }
    uint8_t operator[](ColorKey key) const { return entries[key]; }

private:
    std::vector<uint8_t> entries = std::vector<uint8_t>(size_t{1} << 16U);
};

uint8_t translucentTexel(const uint8_t* rgba, const PaletteLookup& entries, unsigned int alphaMask) {
    return static_cast<uint8_t>((rgba[3] & alphaMask) | entries[colorKey(rgba)]);
}

std::vector<uint8_t> packTranslucent(const ImageRecord& image, const FormatChoice& choice, unsigned int alphaMask) {
    const PaletteLookup entries(choice.palette);
    std::vector<uint8_t> texels(image.pixels.size() / 4);
    for (size_t i = 0; i < texels.size(); ++i) {
        texels[i] = translucentTexel(&image.pixels[i * 4], entries, alphaMask);
    }
    return texels;
}

std::vector<uint8_t> packPalette(const ImageRecord& image, const FormatChoice& choice) {
    const PaletteLookup entries(choice.palette);
    const auto bits = static_cast<size_t>(textureFormatRow(choice.format).bitsPerTexel);
    const size_t perByte = 8 / bits;
    std::vector<uint8_t> texels(image.pixels.size() / 4 / perByte);
    for (size_t i = 0; i < image.pixels.size() / 4; ++i) {
        const uint8_t* const rgba = &image.pixels[i * 4];
        const uint8_t entry = entries[rgba[3] < kOpaqueAlpha ? kTransparentKey : colorKey(rgba)];
        texels[i / perByte] = static_cast<uint8_t>(texels[i / perByte] | entry << (i % perByte * bits));
    }
    return texels;
}

std::vector<uint8_t> packDirect(const ImageRecord& image) {
    constexpr unsigned int kThere = 0x8000;
    std::vector<uint8_t> texels(image.pixels.size() / 4 * 2);
    for (size_t i = 0; i < image.pixels.size() / 4; ++i) {
        const uint8_t* const rgba = &image.pixels[i * 4];
        const unsigned int word = colorKey(rgba) | (rgba[3] >= kOpaqueAlpha ? kThere : 0U);
        texels[2 * i] = static_cast<uint8_t>(word & 0xFFU);
        texels[2 * i + 1] = static_cast<uint8_t>(word >> 8U);
    }
    return texels;
}

} // namespace

std::vector<uint8_t> packTexels(const ImageRecord& image, const FormatChoice& choice) {
    switch (choice.format) {
    case TextureFormat::kA3i5:
        return packTranslucent(image, choice, 0xE0);
    case TextureFormat::kA5i3:
        return packTranslucent(image, choice, 0xF8);
    case TextureFormat::kPalette4:
    case TextureFormat::kPalette16:
    case TextureFormat::kPalette256:
        return choice.hasPalette ? packPalette(image, choice) : packDirect(image);
    default:
        return packDirect(image);
    }
}

} // namespace tvk
