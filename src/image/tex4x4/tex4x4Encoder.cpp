#include "image/tex4x4/tex4x4Encoder.h"

#include "image/tex4x4/entryCandidates.h"
#include "image/tex4x4/paletteEntries.h"
#include "image/tex4x4/refineEntries.h"
#include "image/tex4x4/shareEntries.h"
#include "image/tex4x4/shrinkEntries.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

namespace tvk {
namespace {

constexpr uint32_t kAllHoles = 0xFFFFFFFF;
constexpr size_t kBlockSide = 4;

// The image's blocks, and the different ones among them that have texels.
struct ImageBlocks {
    std::vector<BlockTexels> blocks;     // in raster order
    std::vector<uint32_t> paletteBlocks; // of each; kAllHoles for a block without texels
    std::vector<PaletteBlock> different; // in the order in which they are met
};

std::string contentKey(const BlockTexels& block) {
    std::string key(1, block.hasHoles ? '1' : '0');
    for (size_t i = 0; i < block.colors.count; ++i) {
        for (const auto& channel : block.colors.channels) {
            key += static_cast<char>(static_cast<int>(channel[i]));
        }
        key += static_cast<char>(static_cast<int>(block.colors.weights[i]));
    }
    return key;
}

ImageBlocks readBlocks(const ImageRecord& image) {
    ImageBlocks all;
    std::unordered_map<std::string, uint32_t> known;
    const size_t rowBytes = size_t{image.width} * 4;
    const size_t blockCount = size_t{image.width} * image.height / kBlockTexels;
    all.blocks.reserve(blockCount);
    all.paletteBlocks.reserve(blockCount);
    all.different.reserve(blockCount);
    known.reserve(blockCount);
    for (size_t row = 0; row + kBlockSide <= image.height; row += kBlockSide) {
        for (size_t column = 0; column + kBlockSide <= image.width; column += kBlockSide) {
            all.blocks.push_back(readBlock(&image.pixels[row * rowBytes + column * 4], rowBytes));
            const BlockTexels& block = all.blocks.back();
            const auto next = static_cast<uint32_t>(all.different.size());
            const uint32_t index =
                block.colors.count == 0 ? kAllHoles : known.emplace(contentKey(block), next).first->second;
            all.paletteBlocks.push_back(index);
            if (index == next) {
                PaletteBlock different;
                different.texels = block;
                all.different.push_back(different);
            } else if (index != kAllHoles) {
                all.different[index].count += 1;
            }
        }
    }
    return all;
}

// The sum of squared distances of texels from the nearest colours that palette entries can have.
float levelError(const Tex4x4Colors& colors, TexelView texels) {
    float sum = 0;
    for (size_t i = 0; i < texels.count; ++i) {
        for (const float* const channel : texels.channels) {
            const float miss = channel[i] - colors.shown(colors.nearestLevel(channel[i]));
            sum += texels.weights[i] * miss * miss;
        }
    }
    return sum;
}

void fitBlock(const Tex4x4Colors& colors, const Tex4x4Options& options, PaletteBlock& block) {
    const bool hasHoles = block.texels.hasHoles;
    const TexelView texels = block.view();
    PairEffort effort = PairEffort::kThorough;
    block.list.error = kNoService;
    if (options.fourColors && block.texels.colors.count > 2) {
        block.list = fitList(colors, texels, hasHoles);
        // The console's mixes are no finer than its colours: nothing serves the block better than that.
        const bool isBest = options.mixing == Tex4x4Mixing::kConsole && block.list.error <= levelError(colors, texels);
        effort = isBest ? PairEffort::kQuick : effort;
    }
    block.pair = fitPair(colors, texels, hasHoles, effort);
    ColorPair& pair = block.pair.pair;
    if (keyOf(pair.first) > keyOf(pair.second)) {
        std::swap(pair.first, pair.second); // both modes of pairs mean the same the other way round
    }
}

// A palette within a limit. What is left after giving entries up moves to where it is wanted.
PaletteDraft limitedEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks, size_t pairLimit) {
    const BlockNeighbours neighbours = findNeighbours(colors, blocks);
    PaletteDraft draft = ownEntries(blocks);
    while (draft.pairCount() > pairLimit) {
        shrinkEntries(colors, blocks, neighbours, pairLimit, draft);
        refineEntries(colors, blocks, neighbours, draft);
    }
    return draft;
}

PairPalette laidOut(const PaletteDraft& draft) {
    PairPalette palette;
    std::vector<uint32_t> positions;
    for (const PaletteEntry& entry : draft.entries) {
        positions.push_back(static_cast<uint32_t>(palette.pairs.size()));
        for (size_t half = 0; half < entry.pairs; ++half) {
            palette.pairs.push_back(entry.pair(half));
        }
    }
    for (const uint32_t entry : draft.entryOf) {
        palette.positions.push_back(positions[entry]);
    }
    return palette;
}

PairPalette buildPalette(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks,
                         const Tex4x4Options& options) {
    const size_t pairLimit = std::max<size_t>(options.paletteLimit / 2, 1);
    PairPalette shared = shareEntries(colors, blocks);
    return shared.pairs.size() <= pairLimit ? shared : laidOut(limitedEntries(colors, blocks, pairLimit));
}

// One block's way to read the palette.
struct Reading {
    Tex4x4Mode mode = Tex4x4Mode::kPair;
    size_t position = 0;
    BlockPalette palette;
    float error = kNoService;
};

// The best readings in reach of a block's entry: the pairs of the entry, and lists that begin or end with them.
class Reader {
public:
    Reader(const Tex4x4Colors& tex4x4Colors, const PairPalette& pairPalette, bool withLists)
        : colors(tex4x4Colors), palette(pairPalette), lists(withLists) {}

    Reading find(const PaletteBlock& block, size_t position) const {
        Reading best;
        const size_t last = lists ? position + 1 : position;
        for (const Tex4x4Mode mode : {Tex4x4Mode::kPair, Tex4x4Mode::kPairAndHole}) {
            for (size_t at = position; at <= last && at < palette.pairs.size(); ++at) {
                if (mode == Tex4x4Mode::kPairAndHole || !block.texels.hasHoles) {
                    tryReading(block, mode, at, colors.pairPalette(mode, palette.pairs[at]), best);
                }
            }
        }
        const Tex4x4Mode listMode = block.texels.hasHoles ? Tex4x4Mode::kThreeColors : Tex4x4Mode::kFourColors;
        for (size_t at = position > 0 ? position - 1 : 0; lists && at <= last && at + 1 < palette.pairs.size(); ++at) {
            tryReading(block, listMode, at, listAt(at, listLength(block.texels.hasHoles)), best);
        }
        return best;
    }

private:
    BlockPalette listAt(size_t at, size_t length) const {
        const ColorPair &first = palette.pairs[at], &second = palette.pairs[at + 1];
        return colors.listPalette({first.first, first.second, second.first, second.second}, length);
    }

    static void tryReading(const PaletteBlock& block, Tex4x4Mode mode, size_t at, const BlockPalette& blockPalette,
                           Reading& best) {
        const float error = paletteError(block.view(), blockPalette);
        if (error < best.error) {
            best = {mode, at, blockPalette, error};
        }
    }

    const Tex4x4Colors& colors;
    const PairPalette& palette;
    bool lists;
};

uint16_t indexWord(const Reading& reading) {
    return static_cast<uint16_t>(reading.position | static_cast<size_t>(reading.mode) << 14U);
}

uint32_t blockWord(const BlockTexels& block, const BlockPalette& palette) {
    constexpr uint32_t kHoleIndex = 3;
    std::array<uint8_t, kBlockTexels> indices{};
    assignTexels(block.colors.view(), palette, indices.data());
    uint32_t word = 0;
    for (size_t i = 0; i < kBlockTexels; ++i) {
        const uint32_t index = block.slots[i] == kNoColor ? kHoleIndex : indices[block.slots[i]];
        word |= index << (2 * i);
    }
    return word;
}

void appendWord(std::vector<uint8_t>& bytes, uint32_t word) {
    for (unsigned int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<uint8_t>(word >> shift));
    }
}

std::vector<ColorKey> paletteWords(const PairPalette& palette) {
    constexpr size_t kMultiple = 8;
    std::vector<ColorKey> words;
    for (const ColorPair& pair : palette.pairs) {
        words.push_back(keyOf(pair.first));
        words.push_back(keyOf(pair.second));
    }
    words.resize(std::max<size_t>(1, (words.size() + kMultiple - 1) / kMultiple) * kMultiple, kFillerKey);
    return words;
}

} // namespace

TextureData encodeTex4x4(const ImageRecord& image, const Tex4x4Options& options) {
    const Tex4x4Colors colors(options.mixing);
    ImageBlocks image4x4 = readBlocks(image);
    for (PaletteBlock& block : image4x4.different) {
        fitBlock(colors, options, block);
    }
    const PairPalette palette = buildPalette(colors, image4x4.different, options);
    const Reader reader(colors, palette, options.fourColors);
    std::vector<Reading> readings;
    for (size_t i = 0; i < image4x4.different.size(); ++i) {
        readings.push_back(reader.find(image4x4.different[i], palette.positions[i]));
    }
    TextureData data;
    data.format = TextureFormat::kTex4x4;
    data.hasPalette = true;
    data.palette = paletteWords(palette);
    const Reading holes{Tex4x4Mode::kPairAndHole, 0, {}, 0};
    for (size_t i = 0; i < image4x4.blocks.size(); ++i) {
        const uint32_t different = image4x4.paletteBlocks[i];
        const Reading& reading = different == kAllHoles ? holes : readings[different];
        data.paletteIndices.push_back(indexWord(reading));
        appendWord(data.texels, blockWord(image4x4.blocks[i], reading.palette));
    }
    return data;
}

} // namespace tvk
