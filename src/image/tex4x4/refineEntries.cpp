#include "image/tex4x4/refineEntries.h"

namespace tvk {
namespace {

using EntrySums = std::array<PairSums, 2>;

void addBlock(const Tex4x4Colors& colors, const PaletteBlock& block, const PaletteEntry& entry, EntrySums& sums) {
    const TexelView texels = block.view();
    const EntryUse use = serve(colors, block, entry).use;
    const size_t half = use == EntryUse::kSecondPair ? 1 : 0;
    Tex4x4Mode mode = Tex4x4Mode::kPair;
    if (use != EntryUse::kList) {
        pairError(colors, texels, block.texels.hasHoles, entry.pair(half), mode);
    }
    const BlockPalette palette = use == EntryUse::kList
                                     ? colors.listPalette(entry.colors, listLength(block.texels.hasHoles))
                                     : colors.pairPalette(mode, entry.pair(half));
    std::array<uint8_t, kBlockTexels> indices{};
    assignTexels(texels, palette, indices.data());
    for (size_t i = 0; i < texels.count; ++i) {
        const bool inList = use == EntryUse::kList;
        const size_t place = inList ? indices[i] % 2U : placeOf(mode, indices[i]);
        sums[inList ? indices[i] / 2U : half].add(place, texels.weights[i] * block.count, texels.channels[0][i],
                                                  texels.channels[1][i], texels.channels[2][i]);
    }
}

void moveColors(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks, PaletteDraft& draft) {
    std::vector<EntrySums> sums(draft.entries.size());
    for (size_t block = 0; block < blocks.size(); ++block) {
        const uint32_t entry = draft.entryOf[block];
        addBlock(colors, blocks[block], draft.entries[entry], sums[entry]);
    }
    for (size_t i = 0; i < draft.entries.size(); ++i) {
        PaletteEntry& entry = draft.entries[i];
        for (size_t half = 0; half < entry.pairs; ++half) {
            ColorPair pair = entry.pair(half);
            refitPair(colors, sums[i][half], pair);
            entry.setPair(half, pair);
        }
        entry.smaller = entry.pairs == 1 ? entry.pair(0) : entry.smaller;
    }
}

void moveBlocks(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks, const BlockNeighbours& neighbours,
                PaletteDraft& draft) {
    const EntryCandidates candidates(colors, neighbours, draft);
    std::vector<uint32_t> moved(blocks.size());
    std::vector<uint32_t> entries;
    for (size_t block = 0; block < blocks.size(); ++block) {
        candidates.find(block, entries);
        float least = kNoService;
        for (const uint32_t entry : entries) {
            const float error = serve(colors, blocks[block], draft.entries[entry]).error;
            if (error < least) {
                least = error;
                moved[block] = entry;
            }
        }
    }
    draft.entryOf = moved;
}

void dropUnused(PaletteDraft& draft) {
    std::vector<bool> isUsed(draft.entries.size());
    for (const uint32_t entry : draft.entryOf) {
        isUsed[entry] = true;
    }
    for (size_t i = 0; i < draft.entries.size(); ++i) {
        draft.entries[i].pairs = isUsed[i] ? draft.entries[i].pairs : 0;
    }
}

} // namespace

void refineEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks,
                   const BlockNeighbours& neighbours, int rounds, PaletteDraft& draft) {
    for (int round = 0; round < rounds; ++round) {
        moveColors(colors, blocks, draft);
        moveBlocks(colors, blocks, neighbours, draft);
        dropUnused(draft);
    }
}

} // namespace tvk
