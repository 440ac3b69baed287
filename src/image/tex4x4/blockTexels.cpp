#include "image/tex4x4/blockTexels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tvk {
namespace {

constexpr size_t kLanes = 4;

uint32_t packed(const uint8_t* rgba) {
    return static_cast<uint32_t>(rgba[0]) << 16U | static_cast<uint32_t>(rgba[1]) << 8U | rgba[2];
}

struct Covariance {
    float rr = 0, rg = 0, rb = 0, gg = 0, gb = 0, bb = 0;

    std::array<float, 3> times(const std::array<float, 3>& v) const {
        return {rr * v[0] + rg * v[1] + rb * v[2], rg * v[0] + gg * v[1] + gb * v[2],
                rb * v[0] + gb * v[1] + bb * v[2]};
    }
    // The row of the channel that varies most: never at right angles to the direction looked for.
    std::array<float, 3> widestRow() const {
        if (gg >= rr && gg >= bb) {
            return {rg, gg, gb};
        }
        return bb > rr ? std::array<float, 3>{rb, gb, bb} : std::array<float, 3>{rr, rg, rb};
    }
};

std::array<float, 3> meanOf(TexelView texels) {
    std::array<float, 3> sums{};
    float weight = 0;
    for (size_t i = 0; i < texels.count; ++i) {
        weight += texels.weights[i];
        for (size_t c = 0; c < 3; ++c) {
            sums[c] += texels.weights[i] * texels.channels[c][i];
        }
    }
    return {sums[0] / weight, sums[1] / weight, sums[2] / weight};
}

Covariance covarianceOf(TexelView texels, const std::array<float, 3>& mean) {
    Covariance sums;
    for (size_t i = 0; i < texels.count; ++i) {
        const float weight = texels.weights[i];
        const float r = texels.channels[0][i] - mean[0];
        const float g = texels.channels[1][i] - mean[1];
        const float b = texels.channels[2][i] - mean[2];
        sums.rr += weight * r * r;
        sums.rg += weight * r * g;
        sums.rb += weight * r * b;
        sums.gg += weight * g * g;
        sums.gb += weight * g * b;
        sums.bb += weight * b * b;
    }
    return sums;
}

// Power iteration. A few rounds do: what uses the direction improves on it.
std::array<float, 3> directionOf(const Covariance& covariance) {
    constexpr int kRounds = 6;
    std::array<float, 3> v = covariance.widestRow();
    for (int round = 0; round < kRounds; ++round) {
        const float largest = std::max({std::abs(v[0]), std::abs(v[1]), std::abs(v[2])});
        if (largest == 0) {
            return {1, 0, 0}; // one colour
        }
        v = covariance.times({v[0] / largest, v[1] / largest, v[2] / largest});
    }
    const float length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    return length > 0 ? std::array<float, 3>{v[0] / length, v[1] / length, v[2] / length}
                      : std::array<float, 3>{1, 0, 0};
}

} // namespace

BlockTexels readBlock(const uint8_t* rgba, size_t rowBytes) {
    BlockTexels block;
    std::array<uint32_t, kBlockTexels> found{};
    size_t count = 0;
    std::array<uint32_t, kBlockTexels> texels{};
    constexpr uint32_t kHole = 0xFFFFFFFF;
    for (size_t i = 0; i < kBlockTexels; ++i) {
        const uint8_t* const pixel = rgba + i / 4 * rowBytes + i % 4 * 4;
        texels[i] = pixel[3] >= kOpaqueAlpha ? packed(pixel) : kHole;
        if (texels[i] != kHole) {
            found[count++] = texels[i];
        }
    }
    block.hasHoles = count < kBlockTexels;
    std::sort(found.begin(), found.begin() + count);
    const auto* const end = std::unique(found.begin(), found.begin() + count);
    for (const uint32_t* color = found.begin(); color != end; ++color) {
        block.colors.add(static_cast<float>(*color >> 16U), static_cast<float>(*color >> 8U & 0xFFU),
                         static_cast<float>(*color & 0xFFU), 0);
    }
    for (size_t i = 0; i < kBlockTexels; ++i) {
        const auto* const color = std::lower_bound(static_cast<const uint32_t*>(found.begin()), end, texels[i]);
        block.slots[i] = texels[i] == kHole ? kNoColor : static_cast<uint8_t>(color - found.begin());
        if (texels[i] != kHole) {
            block.colors.weights[block.slots[i]] += 1;
        }
    }
    return block;
}

// Plain loops over the texels: compilers turn them into vector instructions.
float paletteError(TexelView texels, const BlockPalette& palette) {
    std::array<float, kMostTexels> least; // NOLINT: filled as far as it is read
    const size_t count = std::min(texels.count, kMostTexels);
    const float *const reds = texels.channels[0], *const greens = texels.channels[1], *const blues = texels.channels[2];
    for (size_t k = 0; k < 4; ++k) {
        const float red = palette.channels[0][k], green = palette.channels[1][k], blue = palette.channels[2][k];
        for (size_t i = 0; i < count; ++i) {
            const float r = reds[i] - red, g = greens[i] - green, b = blues[i] - blue;
            const float distance = r * r + g * g + b * b;
            least[i] = k > 0 && least[i] < distance ? least[i] : distance;
        }
    }
    std::array<float, kLanes> sums{};
    for (size_t i = 0; i < count; i += kLanes) {
        for (size_t lane = 0; lane < kLanes; ++lane) {
            sums[lane] += least[i + lane] * texels.weights[i + lane];
        }
    }
    return sums[0] + sums[1] + sums[2] + sums[3];
}

float assignTexels(TexelView texels, const BlockPalette& palette, uint8_t* indices) {
    std::array<float, kMostTexels> least;   // NOLINT: both are filled as far as they are read
    std::array<float, kMostTexels> nearest; // NOLINT
    const size_t count = std::min(texels.count, kMostTexels);
    const float *const reds = texels.channels[0], *const greens = texels.channels[1], *const blues = texels.channels[2];
    for (size_t k = 0; k < 4; ++k) {
        const float red = palette.channels[0][k], green = palette.channels[1][k], blue = palette.channels[2][k];
        const auto index = static_cast<float>(k);
        for (size_t i = 0; i < count; ++i) {
            const float r = reds[i] - red, g = greens[i] - green, b = blues[i] - blue;
            const float distance = r * r + g * g + b * b;
            const bool keeps = k > 0 && least[i] <= distance;
            least[i] = keeps ? least[i] : distance;
            nearest[i] = keeps ? nearest[i] : index;
        }
    }
    float error = 0;
    for (size_t i = 0; i < count; ++i) {
        indices[i] = static_cast<uint8_t>(nearest[i]);
        error += least[i] * texels.weights[i];
    }
    return error;
}

TexelAxis findAxis(TexelView texels) {
    TexelAxis axis;
    axis.mean = meanOf(texels);
    axis.direction = directionOf(covarianceOf(texels, axis.mean));
    for (size_t i = 0; i < texels.count; ++i) {
        if (texels.weights[i] > 0) {
            float along = 0;
            for (size_t c = 0; c < 3; ++c) {
                along += (texels.channels[c][i] - axis.mean[c]) * axis.direction[c];
            }
            axis.lowest = std::min(axis.lowest, along);
            axis.highest = std::max(axis.highest, along);
        }
    }
    return axis;
}

} // namespace tvk
