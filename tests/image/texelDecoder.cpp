#include "texelDecoder.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

Rgba paletteColor(const TextureData& data, std::size_t index) {
    if (index >= data.palette.size()) {
        ADD_FAILURE() << "entry " << index << " of " << data.palette.size();
        return {};
    }
    return decodeColor(data.palette[index]);
}

Rgba translucent(const TextureData& data, std::size_t at, unsigned int indexBits) {
    const unsigned int texel = data.texels.at(at);
    const unsigned int indexRange = 1U << indexBits;
    Rgba color = paletteColor(data, texel % indexRange);
    color.a = static_cast<std::uint8_t>(texel / indexRange * indexRange);
    return color;
}

Rgba indexed(const TextureData& data, std::size_t at, unsigned int bits) {
    const std::size_t perByte = 8 / bits;
    const unsigned int byte = data.texels.at(at / perByte);
    const unsigned int index = byte >> (at % perByte * bits) & ((1U << bits) - 1U);
    Rgba color = paletteColor(data, index);
    if (data.color0Transparent && index == 0) {
        color.a = 0;
    }
    return color;
}

Rgba direct(const TextureData& data, std::size_t at) {
    const auto word = static_cast<std::uint16_t>(data.texels.at(2 * at) + 256U * data.texels.at(2 * at + 1));
    Rgba color = decodeColor(word);
    color.a = word >= 0x8000 ? 255 : 0;
    return color;
}

} // namespace

Rgba decodeColor(std::uint16_t word) {
    return {static_cast<std::uint8_t>(word % 32 * 8), static_cast<std::uint8_t>(word / 32 % 32 * 8),
            static_cast<std::uint8_t>(word / 1024 % 32 * 8)};
}

std::vector<Rgba> decodeTexels(const TextureData& data, std::size_t texelCount) {
    std::vector<Rgba> colors;
    for (std::size_t i = 0; i < texelCount; ++i) {
        switch (data.format) {
        case TextureFormat::kA3i5:
            colors.push_back(translucent(data, i, 5));
            break;
        case TextureFormat::kA5i3:
            colors.push_back(translucent(data, i, 3));
            break;
        case TextureFormat::kPalette4:
            colors.push_back(indexed(data, i, 2));
            break;
        case TextureFormat::kPalette16:
            colors.push_back(indexed(data, i, 4));
            break;
        case TextureFormat::kPalette256:
            colors.push_back(indexed(data, i, 8));
            break;
        default:
            colors.push_back(direct(data, i));
        }
    }
    return colors;
}

} // namespace tvk
