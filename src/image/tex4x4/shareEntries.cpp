#include "image/tex4x4/shareEntries.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace tvk {
namespace {

constexpr uint32_t kNowhere = 0xFFFFFFFF;

// Entries of one bucket that are looked at: buckets are small but for ramps that fill them.
constexpr size_t kMostTries = 16;

uint64_t pairKey(const ColorPair& pair) {
    return uint64_t{keyOf(pair.first)} << 16U | keyOf(pair.second);
}

uint64_t listKey(const ColorPair& first, const ColorPair& second) {
    return pairKey(first) << 32U | pairKey(second);
}

// The levels of a pair in steps of four.
using Bucket = std::array<int, 6>;

Bucket bucketOf(const ColorPair& pair) {
    Bucket bucket{};
    for (size_t c = 0; c < 3; ++c) {
        bucket[c] = pair.first[c] >> 2U;
        bucket[3 + c] = pair.second[c] >> 2U;
    }
    return bucket;
}

uint32_t bucketKey(const Bucket& bucket) {
    uint32_t key = 0;
    for (const int level : bucket) {
        key = key * 16 + static_cast<uint32_t>(level + 1); // from -1 on: neighbours of the outermost
    }
    return key;
}

uint32_t firstOf(const std::unordered_map<uint64_t, uint32_t>& places, uint64_t key) {
    const auto found = places.find(key);
    return found == places.end() ? kNowhere : found->second;
}

class Sharing {
public:
    explicit Sharing(const Tex4x4Colors& tex4x4Colors) : colors(tex4x4Colors) {}

    void add(const PaletteBlock& block) {
        uint32_t position = findEqual(block);
        position = position == kNowhere ? findAlike(block) : position;
        palette.positions.push_back(position == kNowhere ? append(block) : position);
    }

    PairPalette palette;

private:
    static ColorPair ownPair(const PaletteBlock& block, size_t half) {
        const auto& list = block.list.colors;
        return block.prefersList() ? ColorPair{list[2 * half], list[2 * half + 1]} : block.pair.pair;
    }

    uint32_t findEqual(const PaletteBlock& block) const {
        return block.prefersList() ? firstOf(lists, listKey(ownPair(block, 0), ownPair(block, 1)))
                                   : firstOf(pairs, pairKey(block.pair.pair));
    }

    // In the bucket of the own entry and those beside it.
    uint32_t findAlike(const PaletteBlock& block) const {
        const Bucket own = bucketOf(ownPair(block, 0));
        uint32_t position = firstAlike(block, own);
        for (size_t d = 0; d < own.size(); ++d) {
            for (const int step : {-1, 1}) {
                Bucket beside = own;
                beside[d] += step;
                position = std::min(position, firstAlike(block, beside));
            }
        }
        return position;
    }

    uint32_t firstAlike(const PaletteBlock& block, const Bucket& bucket) const {
        const auto found = buckets.find(bucketKey(bucket));
        const size_t tries = found == buckets.end() ? 0 : std::min(found->second.size(), kMostTries);
        for (size_t i = 0; i < tries; ++i) {
            if (errorAt(block, found->second[i]) <= block.leastError()) {
                return found->second[i];
            }
        }
        return kNowhere;
    }

    float errorAt(const PaletteBlock& block, uint32_t position) const {
        Tex4x4Mode mode{};
        const ColorPair& pair = palette.pairs[position];
        const float error = pairError(colors, block.view(), block.texels.hasHoles, pair, mode);
        if (!block.prefersList() || position + 1 >= palette.pairs.size()) {
            return error;
        }
        const ColorPair& next = palette.pairs[position + 1];
        const BlockPalette list =
            colors.listPalette({pair.first, pair.second, next.first, next.second}, listLength(block.texels.hasHoles));
        return std::min(error, paletteError(block.view(), list));
    }

    uint32_t append(const PaletteBlock& block) {
        const auto position = static_cast<uint32_t>(palette.pairs.size());
        for (size_t half = 0; half < (block.prefersList() ? 2U : 1U); ++half) {
            appendPair(ownPair(block, half));
        }
        return position;
    }

    void appendPair(const ColorPair& pair) {
        const auto position = static_cast<uint32_t>(palette.pairs.size());
        if (position > 0) {
            lists.emplace(listKey(palette.pairs.back(), pair), position - 1); // the first place stays
        }
        pairs.emplace(pairKey(pair), position);
        buckets[bucketKey(bucketOf(pair))].push_back(position);
        palette.pairs.push_back(pair);
    }

    const Tex4x4Colors& colors;
    std::unordered_map<uint64_t, uint32_t> pairs, lists; // the first place of each
    std::unordered_map<uint32_t, std::vector<uint32_t>> buckets;
};

} // namespace

PairPalette shareEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks) {
    Sharing sharing(colors);
    for (const PaletteBlock& block : blocks) {
        sharing.add(block);
    }
    return std::move(sharing.palette);
}

} // namespace tvk
