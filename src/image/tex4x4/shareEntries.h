#pragma once

#include "image/tex4x4/paletteEntries.h"

#include <cstdint>
#include <vector>

namespace tvk {

/// A palette as it is written, in pairs, and where the blocks find their entries.
struct PairPalette {
    std::vector<ColorPair> pairs;
    std::vector<uint32_t> positions; // by block: the pair, or the first of the two pairs of a list
};

/// Lays the blocks' own entries out in order. An entry that is there already is used again, at the first place that has
/// it: a pair anywhere, also within lists; a list at any two pairs. So is one that is much like it and serves the block
/// as well. Entries that serve it worse are left alone: as long as the palette has room, sharing them gains nothing.
PairPalette shareEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks);

} // namespace tvk
