#pragma once

#include "image/tex4x4/blockTexels.h"
#include "image/tex4x4/listFit.h"
#include "image/tex4x4/pairFit.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace tvk {

/// No service: the error of what a block must not use.
inline constexpr float kNoService = std::numeric_limits<float>::max();

/// The blocks of an image that have the same texels in some order, with the entries that would serve them best.
struct PaletteBlock {
    BlockTexels texels; // some texel is there
    float count = 1;    // of such blocks
    PairFit pair;       // the first colour has the lower word
    ListFit list;       // error kNoService where lists are not asked for

    TexelView view() const { return texels.colors.view(); }
    /// As often as an error is equal, fewer palette colours are taken.
    bool prefersList() const { return list.error < pair.error; }
    float leastError() const { return prefersList() ? list.error : pair.error; }
};

/// Entries that stay together in the palette: one pair, or two that are also a list of four.
struct PaletteEntry {
    size_t pairs = 0; // 1 or 2; 0 when it is given up
    std::array<Levels, 4> colors{};
    ColorPair smaller; // what is left of two pairs when only one can be kept

    ColorPair pair(size_t half) const { return {colors[2 * half], colors[2 * half + 1]}; }
    void setPair(size_t half, const ColorPair& pair) {
        colors[2 * half] = pair.first;
        colors[2 * half + 1] = pair.second;
    }
};

/// How a block uses an entry.
enum class EntryUse : uint8_t { kFirstPair, kSecondPair, kList };

struct Service {
    float error = kNoService;
    EntryUse use = EntryUse::kFirstPair;
    Tex4x4Mode mode = Tex4x4Mode::kPair;
};

/// The least error of a block under an entry that is not given up.
Service serve(const Tex4x4Colors& colors, const PaletteBlock& block, const PaletteEntry& entry);

/// A palette on its way: its entries and the entry of each block.
struct PaletteDraft {
    std::vector<PaletteEntry> entries;
    std::vector<uint32_t> entryOf; // by block

    size_t pairCount() const;
};

/// Every block has the entry that serves it best, for itself.
PaletteDraft ownEntries(const std::vector<PaletteBlock>& blocks);

} // namespace tvk
