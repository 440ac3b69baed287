#include "image/tex4x4/paletteEntries.h"

namespace tvk {

Service serve(const Tex4x4Colors& colors, const PaletteBlock& block, const PaletteEntry& entry) {
    Service best;
    for (size_t half = 0; half < entry.pairs; ++half) {
        Tex4x4Mode mode{};
        const float error = pairError(colors, block.view(), block.texels.hasHoles, entry.pair(half), mode);
        if (error < best.error) {
            best = {error, half == 0 ? EntryUse::kFirstPair : EntryUse::kSecondPair, mode};
        }
    }
    if (entry.pairs == 2) {
        const size_t length = listLength(block.texels.hasHoles);
        const float error = paletteError(block.view(), colors.listPalette(entry.colors, length));
        const Tex4x4Mode mode = length == 3 ? Tex4x4Mode::kThreeColors : Tex4x4Mode::kFourColors;
        best = error < best.error ? Service{error, EntryUse::kList, mode} : best;
    }
    return best;
}

size_t PaletteDraft::pairCount() const {
    size_t count = 0;
    for (const PaletteEntry& entry : entries) {
        count += entry.pairs;
    }
    return count;
}

PaletteDraft ownEntries(const std::vector<PaletteBlock>& blocks) {
    PaletteDraft draft;
    draft.entries.reserve(blocks.size());
    draft.entryOf.reserve(blocks.size());
    for (const PaletteBlock& block : blocks) {
        PaletteEntry entry;
        entry.smaller = block.pair.pair;
        entry.pairs = block.prefersList() ? 2 : 1;
        entry.colors = block.list.colors;
        if (entry.pairs == 1) {
            entry.setPair(0, entry.smaller);
        }
        draft.entryOf.push_back(static_cast<uint32_t>(draft.entries.size()));
        draft.entries.push_back(entry);
    }
    return draft;
}

} // namespace tvk
