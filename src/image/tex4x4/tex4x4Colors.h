#pragma once

#include "image/colorKey.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tvk {

/// How a block of 4 by 4 texels reads its palette entries: the top two bits of its index word.
enum class Tex4x4Mode : uint8_t {
    kThreeColors, // c0, c1, c2, nothing
    kPairAndHole, // c0, c1, (c0 + c1) / 2, nothing
    kFourColors,  // c0, c1, c2, c3
    kPair         // c0, c1, (5 c0 + 3 c1) / 8, (3 c0 + 5 c1) / 8
};

/// With which precision colours between two palette entries come about.
enum class Tex4x4Mixing {
    kConsole, // five bits a channel, the rest cut off: what the console shows
    kShown    // eight bits a channel: what a viewer shows that mixes the expanded colours
};

/// Red, green and blue of a colour of the console, 0 to 31 each.
using Levels = std::array<uint8_t, 3>;

struct ColorPair {
    Levels first{}, second{};
};

constexpr ColorKey keyOf(const Levels& levels) {
    return static_cast<ColorKey>(levels[0] | levels[1] << 5U | levels[2] << 10U);
}

/// The colours that the texels of a block can choose from, 0 to 255 a channel. Modes of three colours repeat the first
/// one in the fourth place.
struct BlockPalette {
    std::array<std::array<float, 4>, 3> channels{};
};

/// What the console makes of palette entries.
class Tex4x4Colors {
public:
    static constexpr int kLevels = 32;
    /// The shares of the second colour in the mixed ones: 3/8 and 5/8 of kPair, 1/2 of kPairAndHole.
    static constexpr size_t kMixes = 3;
    static constexpr std::array<float, kMixes> kShares{0.375F, 0.625F, 0.5F};

    explicit Tex4x4Colors(Tex4x4Mixing mixing);

    /// A component as it is seen, 0 to 255.
    float shown(int level) const { return shownLevels[static_cast<size_t>(level)]; }
    /// A mixed component as it is seen.
    float mixed(size_t mix, int first, int second) const {
        return mixes[mix][static_cast<size_t>(first)][static_cast<size_t>(second)];
    }

    /// The level that is seen nearest to a component; any value is taken, the lower level of two equally near ones.
    uint8_t nearestLevel(float component) const;
    Levels nearestLevels(float red, float green, float blue) const {
        return {nearestLevel(red), nearestLevel(green), nearestLevel(blue)};
    }

    /// What a pair shows in one of its two modes.
    BlockPalette pairPalette(Tex4x4Mode mode, const ColorPair& pair) const;
    /// What the first `count` colours of a list show, 3 or 4.
    BlockPalette listPalette(const std::array<Levels, 4>& colors, size_t count) const;

private:
    using MixTable = std::array<std::array<float, kLevels>, kLevels>;

    std::array<float, kLevels> shownLevels{};
    std::array<MixTable, kMixes> mixes{};
};

} // namespace tvk
