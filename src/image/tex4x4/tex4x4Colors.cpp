#include "image/tex4x4/tex4x4Colors.h"

#include <algorithm>

namespace tvk {
namespace {

struct MixRow {
    int first, second, divisor;
};

constexpr std::array<MixRow, Tex4x4Colors::kMixes> kMixRows{{{5, 3, 8}, {3, 5, 8}, {1, 1, 2}}};

int expanded(int level) {
    return level << 3 | level >> 2;
}

int mixedComponent(Tex4x4Mixing mixing, const MixRow& row, int first, int second) {
    if (mixing == Tex4x4Mixing::kConsole) {
        return expanded((row.first * first + row.second * second) / row.divisor);
    }
    return (row.first * expanded(first) + row.second * expanded(second)) / row.divisor;
}

} // namespace

Tex4x4Colors::Tex4x4Colors(Tex4x4Mixing mixing) {
    for (int level = 0; level < kLevels; ++level) {
        shownLevels[static_cast<size_t>(level)] = static_cast<float>(expanded(level));
    }
    for (size_t mix = 0; mix < kMixes; ++mix) {
        for (int pair = 0; pair < kLevels * kLevels; ++pair) {
            const int first = pair / kLevels, second = pair % kLevels;
            mixes[mix][static_cast<size_t>(first)][static_cast<size_t>(second)] =
                static_cast<float>(mixedComponent(mixing, kMixRows[mix], first, second));
        }
    }
}

uint8_t Tex4x4Colors::nearestLevel(float component) const {
    // The largest level that is not brighter, or its neighbour.
    const int below = std::clamp(static_cast<int>(component * (kLevels - 1) / 255.0F), 0, kLevels - 2);
    const float toBelow = component - shown(below);
    const float toAbove = shown(below + 1) - component;
    return static_cast<uint8_t>(toBelow <= toAbove ? below : below + 1);
}

BlockPalette Tex4x4Colors::pairPalette(Tex4x4Mode mode, const ColorPair& pair) const {
    BlockPalette palette;
    for (size_t c = 0; c < 3; ++c) {
        const int first = pair.first[c], second = pair.second[c];
        palette.channels[c] =
            mode == Tex4x4Mode::kPair
                ? std::array<float, 4>{shown(first), shown(second), mixed(0, first, second), mixed(1, first, second)}
                : std::array<float, 4>{shown(first), shown(second), mixed(2, first, second), shown(first)};
    }
    return palette;
}

BlockPalette Tex4x4Colors::listPalette(const std::array<Levels, 4>& colors, size_t count) const {
    BlockPalette palette;
    for (size_t i = 0; i < 4; ++i) {
        const Levels& color = colors[i < count ? i : 0];
        for (size_t c = 0; c < 3; ++c) {
            palette.channels[c][i] = shown(color[c]);
        }
    }
    return palette;
}

} // namespace tvk
