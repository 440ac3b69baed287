#pragma once

#include "image/tex4x4/tex4x4Colors.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tvk {

/// The most texels that are looked at together: those of a few blocks.
inline constexpr size_t kMostTexels = 96;

/// Colours with weights, 0 to 255 a channel. `count` is a multiple of 4, so that four are looked at together, and at
/// most kMostTexels; the surplus ones weigh nothing.
struct TexelView {
    std::array<const float*, 3> channels{};
    const float* weights = nullptr;
    size_t count = 0;
};

/// The different colours of up to `Capacity` texels (a multiple of 4), each with the number of its texels.
template <size_t Capacity>
struct WeightedColors {
    static_assert(Capacity % 4 == 0 && Capacity <= kMostTexels);

    alignas(16) std::array<std::array<float, Capacity>, 3> channels{};
    alignas(16) std::array<float, Capacity> weights{};
    size_t count = 0;

    void add(float red, float green, float blue, float weight) {
        channels[0][count] = red;
        channels[1][count] = green;
        channels[2][count] = blue;
        weights[count] = weight;
        ++count;
    }
    TexelView view() const {
        return {{channels[0].data(), channels[1].data(), channels[2].data()}, weights.data(), (count + 3) / 4 * 4};
    }
};

inline constexpr size_t kBlockTexels = 16;
inline constexpr uint8_t kNoColor = 0xFF;

/// The texels of one block of 4 by 4.
struct BlockTexels {
    WeightedColors<kBlockTexels> colors;       // of the texels that are there, in ascending order of red, green, blue
    std::array<uint8_t, kBlockTexels> slots{}; // of each texel, row by row: its colour; kNoColor where it is not there
    bool hasHoles = false;                     // some texel is not there
};

///   rgba        the block's first pixel
///   rowBytes    from one row of the image to the next
BlockTexels readBlock(const uint8_t* rgba, size_t rowBytes);

/// The sum of squared distances, over the three channels, of the texels from their nearest colours. Exact for one
/// block.
float paletteError(TexelView texels, const BlockPalette& palette);

/// The same, with the nearest colour of each texel; of equally near ones the lowest.
///   indices   room for texels.count
float assignTexels(TexelView texels, const BlockPalette& palette, uint8_t* indices);

/// Centre of texels and the direction in which they spread most.
struct TexelAxis {
    std::array<float, 3> mean{};
    std::array<float, 3> direction{}; // of length 1
    float lowest = 0, highest = 0;    // the texels' extent along it, from the mean
};

/// The texels must weigh something.
TexelAxis findAxis(TexelView texels);

} // namespace tvk
