#include "image/tex4x4/refineEntries.h"

namespace tvk {
namespace {

using EntrySums = std::array<PairSums, 2>;

void addBlock(const Tex4x4Colors& colors, const PaletteBlock& block, const PaletteEntry& entry, const Service& service,
              EntrySums& sums) {
    const bool inList = service.use == EntryUse::kList;
    const size_t half = service.use == EntryUse::kSecondPair ? 1 : 0;
    const BlockPalette palette = inList ? colors.listPalette(entry.colors, listLength(block.texels.hasHoles))
                                        : colors.pairPalette(service.mode, entry.pair(half));
    const TexelView texels = block.view();
    std::array<uint8_t, kBlockTexels> indices{};
    assignTexels(texels, palette, indices.data());
    for (size_t i = 0; i < texels.count; ++i) {
        const size_t place = inList ? indices[i] % 2U : placeOf(service.mode, indices[i]);
        sums[inList ? indices[i] / 2U : half].add(place, texels.weights[i] * block.count, texels.channels[0][i],
                                                  texels.channels[1][i], texels.channels[2][i]);
    }
}

class Refinement {
public:
    Refinement(const Tex4x4Colors& tex4x4Colors, const std::vector<PaletteBlock>& allBlocks, PaletteDraft& paletteDraft)
        : colors(tex4x4Colors), blocks(allBlocks), draft(paletteDraft) {
        for (size_t block = 0; block < blocks.size(); ++block) {
            services.push_back(serve(colors, blocks[block], draft.entries[draft.entryOf[block]]));
        }
    }

    void moveColors() {
        std::vector<EntrySums> sums(draft.entries.size());
        for (size_t block = 0; block < blocks.size(); ++block) {
            const uint32_t entry = draft.entryOf[block];
            addBlock(colors, blocks[block], draft.entries[entry], services[block], sums[entry]);
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

    void moveBlocks(const BlockNeighbours& neighbours) {
        const EntryCandidates candidates(colors, neighbours, draft);
        std::vector<uint32_t> moved(blocks.size());
        std::vector<uint32_t> entries;
        for (size_t block = 0; block < blocks.size(); ++block) {
            moved[block] = draft.entryOf[block];
            services[block] = serve(colors, blocks[block], draft.entries[moved[block]]);
            if (services[block].error <= blocks[block].leastError()) {
                continue; // as good as it gets
            }
            candidates.find(block, entries);
            Service best;
            for (const uint32_t entry : entries) {
                const Service service = serve(colors, blocks[block], draft.entries[entry]);
                if (service.error < best.error) {
                    best = service;
                    moved[block] = entry;
                }
            }
            services[block] = best;
        }
        draft.entryOf = moved;
    }

private:
    const Tex4x4Colors& colors;
    const std::vector<PaletteBlock>& blocks;
    PaletteDraft& draft;
    std::vector<Service> services; // by block
};

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
                   const BlockNeighbours& neighbours, PaletteDraft& draft) {
    Refinement refinement(colors, blocks, draft);
    refinement.moveColors();
    refinement.moveBlocks(neighbours);
    dropUnused(draft);
}

} // namespace tvk
