#include "tex4x4Decoder.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

int expand(int five) {
    return five * 8 + five / 4;
}

int mix(int shareA, int a, int shareB, int b, int whole, Tex4x4Mixing mixing) {
    return mixing == Tex4x4Mixing::kConsole ? expand((shareA * a + shareB * b) / whole)
                                            : (shareA * expand(a) + shareB * expand(b)) / whole;
}

// A texel's component; the block's mode has a colour for its index.
int component(const TextureData& data, const DecodedBlock& block, unsigned int index, unsigned int channel,
              Tex4x4Mixing mixing) {
    const auto level = [&](std::size_t i) { return data.palette[block.position + i] >> (5 * channel) & 31; };
    const bool isMixed = index >= 2 && (block.mode == 1 || block.mode == 3);
    if (!isMixed) {
        return expand(level(index));
    }
    if (block.mode == 1) {
        return mix(1, level(0), 1, level(1), 2, mixing);
    }
    return index == 2 ? mix(5, level(0), 3, level(1), 8, mixing) : mix(3, level(0), 5, level(1), 8, mixing);
}

std::size_t colorsOf(unsigned int mode) {
    return mode == 2 ? 4 : mode == 0 ? 3 : 2;
}

} // namespace

DecodedBlock decodeBlock(const TextureData& data, std::size_t block) {
    DecodedBlock decoded;
    const unsigned int word = data.paletteIndices.at(block);
    decoded.mode = word / 16384;
    decoded.position = std::size_t{word % 16384} * 2;
    for (std::size_t i = 0; i < 16; ++i) {
        decoded.indices[i] = data.texels.at(block * 4 + i / 4) >> (i % 4 * 2) & 3U;
    }
    return decoded;
}

std::vector<std::uint8_t> decodeTex4x4(const TextureData& data, std::size_t width, std::size_t height,
                                       Tex4x4Mixing mixing) {
    std::vector<std::uint8_t> pixels(width * height * 4);
    EXPECT_EQ(data.paletteIndices.size(), width * height / 16);
    EXPECT_EQ(data.texels.size(), width * height / 4);
    for (std::size_t b = 0; b < data.paletteIndices.size(); ++b) {
        const DecodedBlock block = decodeBlock(data, b);
        EXPECT_LE(block.position + colorsOf(block.mode), data.palette.size()) << "block " << b;
        for (std::size_t i = 0; i < 16; ++i) {
            const std::size_t row = b / (width / 4) * 4 + i / 4, column = b % (width / 4) * 4 + i % 4;
            std::uint8_t* const pixel = &pixels[(row * width + column) * 4];
            if (block.mode < 2 && block.indices[i] == 3) {
                continue; // a hole
            }
            for (unsigned int c = 0; c < 3; ++c) {
                pixel[c] = static_cast<std::uint8_t>(component(data, block, block.indices[i], c, mixing));
            }
            pixel[3] = 255;
        }
    }
    return pixels;
}

double squaredError(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b) {
    EXPECT_EQ(a.size(), b.size());
    double sum = 0;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
        if (i % 4 != 3 && a[i / 4 * 4 + 3] >= 128) {
            const double d = double{static_cast<double>(a[i])} - double{static_cast<double>(b[i])};
            sum += d * d;
        }
    }
    return sum;
}

} // namespace tvk
