#include "image/tex4x4/shrinkEntries.h"

#include <algorithm>
#include <queue>
#include <utility>

namespace tvk {
namespace {

constexpr uint32_t kNoEntry = 0xFFFFFFFF;
constexpr double kImpossible = 1e30;
// Merged blocks are fitted anew, which is worth its time for small groups only.
constexpr size_t kGroupBlocks = kMostTexels / kBlockTexels;
// Entries that one is joined with for trial.
constexpr size_t kPartners = 6;

// An entry that a block can use.
struct Option {
    uint32_t entry;
    float error;        // as the entry is
    float smallerError; // when it keeps one pair only
};

struct Loss {
    double perPair = kImpossible;
    size_t pairsLeft = 0;
};

class Shrinker {
public:
    Shrinker(const Tex4x4Colors& tex4x4Colors, const std::vector<PaletteBlock>& allBlocks, PaletteDraft& paletteDraft)
        : colors(tex4x4Colors), blocks(allBlocks), draft(paletteDraft), options(blocks.size()),
          usable(draft.entries.size()), errors(blocks.size()) {}

    void collectOptions(const BlockNeighbours& neighbours) {
        const EntryCandidates candidates(colors, neighbours, draft);
        std::vector<uint32_t> entries;
        for (uint32_t block = 0; block < blocks.size(); ++block) {
            candidates.find(block, entries);
            for (const uint32_t entry : entries) {
                addOption(block, entry);
            }
        }
        for (uint32_t block = 0; block < blocks.size(); ++block) {
            takeBest(block);
        }
    }

    void shrinkTo(size_t pairLimit) {
        size_t pairs = draft.pairCount();
        for (uint32_t entry = 0; entry < draft.entries.size(); ++entry) {
            push(entry);
        }
        while (pairs > pairLimit && !queue.empty()) {
            const auto [expected, entry] = queue.top();
            queue.pop();
            const size_t before = draft.entries[entry].pairs;
            const Loss loss = before > 0 ? lossOf(entry) : Loss{};
            if (loss.perPair >= kImpossible) {
                continue;
            }
            if (!queue.empty() && loss.perPair > queue.top().first) { // it has grown in the meantime
                queue.emplace(loss.perPair, entry);
                continue;
            }
            if (before > 1 || !merge(entry, loss.perPair)) {
                giveUp(entry, loss.pairsLeft);
            }
            pairs -= before - draft.entries[entry].pairs;
        }
    }

private:
    void addOption(uint32_t block, uint32_t entry) {
        const PaletteEntry& candidate = draft.entries[entry];
        const float error = serve(colors, blocks[block], candidate).error;
        Tex4x4Mode mode{};
        const float smaller = candidate.pairs == 2 ? pairError(colors, blocks[block].view(),
                                                               blocks[block].texels.hasHoles, candidate.smaller, mode)
                                                   : error;
        options[block].push_back({entry, error, smaller});
        usable[entry].push_back(block);
    }

    // The best option of a block when one entry has only so many pairs left.
    std::pair<float, uint32_t> bestOption(uint32_t block, uint32_t changed, size_t pairsLeft) const {
        std::pair<float, uint32_t> best{kNoService, kNoEntry};
        for (const Option& option : options[block]) {
            const size_t pairs = option.entry == changed ? pairsLeft : draft.entries[option.entry].pairs;
            const float error = pairs == 2 ? option.error : option.smallerError;
            if (pairs > 0 && error < best.first) {
                best = {error, option.entry};
            }
        }
        return best;
    }

    void takeBest(uint32_t block) {
        const auto [error, entry] = bestOption(block, kNoEntry, 0);
        errors[block] = error;
        draft.entryOf[block] = entry;
    }

    bool uses(uint32_t block, uint32_t entry) const { return draft.entryOf[block] == entry; }

    double lossWith(uint32_t entry, size_t pairsLeft) const {
        double loss = 0;
        for (const uint32_t block : usable[entry]) {
            if (uses(block, entry)) {
                const auto [error, other] = bestOption(block, entry, pairsLeft);
                loss += other == kNoEntry ? kImpossible : double{blocks[block].count} * (error - errors[block]);
            }
        }
        return loss / static_cast<double>(draft.entries[entry].pairs - pairsLeft);
    }

    Loss lossOf(uint32_t entry) const {
        const Loss gone{lossWith(entry, 0), 0};
        if (draft.entries[entry].pairs == 1) {
            return gone;
        }
        const Loss halved{lossWith(entry, 1), 1};
        return halved.perPair < gone.perPair ? halved : gone;
    }

    void push(uint32_t entry) {
        if (draft.entries[entry].pairs > 0) {
            queue.emplace(lossOf(entry).perPair, entry);
        }
    }

    void giveUp(uint32_t entry, size_t pairsLeft) {
        PaletteEntry& changed = draft.entries[entry];
        changed.pairs = pairsLeft;
        changed.setPair(0, changed.smaller);
        for (const uint32_t block : usable[entry]) {
            if (uses(block, entry)) {
                takeBest(block);
            }
        }
        push(entry);
    }

    std::vector<uint32_t> usersOf(uint32_t entry) const {
        std::vector<uint32_t> users;
        std::copy_if(usable[entry].begin(), usable[entry].end(), std::back_inserter(users),
                     [&](uint32_t block) { return uses(block, entry); });
        return users;
    }

    // The pair entries that would serve some of an entry's blocks with least error, as they are.
    std::vector<uint32_t> partnersOf(uint32_t entry, const std::vector<uint32_t>& users) const {
        std::vector<std::pair<float, uint32_t>> others;
        for (const uint32_t block : users) {
            for (const Option& option : options[block]) {
                if (option.entry != entry && draft.entries[option.entry].pairs == 1) {
                    others.emplace_back(option.smallerError, option.entry);
                }
            }
        }
        std::sort(others.begin(), others.end());
        std::vector<uint32_t> partners;
        for (const auto& [error, other] : others) {
            if (partners.size() < kPartners && std::find(partners.begin(), partners.end(), other) == partners.end()) {
                partners.push_back(other);
            }
        }
        return partners;
    }

    // The pair that serves a group of blocks best; false when they are too many, or some have holes and some have none.
    bool fitGroup(const std::vector<uint32_t>& group, PairFit& fit) const {
        if (group.size() > kGroupBlocks) {
            return false;
        }
        WeightedColors<kMostTexels> all;
        const bool hasHoles = blocks[group.front()].texels.hasHoles;
        for (const uint32_t block : group) {
            const auto& texels = blocks[block].texels;
            if (texels.hasHoles != hasHoles) {
                return false;
            }
            for (size_t i = 0; i < texels.colors.count; ++i) {
                all.add(texels.colors.channels[0][i], texels.colors.channels[1][i], texels.colors.channels[2][i],
                        texels.colors.weights[i] * blocks[block].count);
            }
        }
        fit = fitPair(colors, all.view(), hasHoles, PairEffort::kQuick);
        return true;
    }

    // What a group of blocks loses when all its blocks change to a pair.
    double costOf(const std::vector<uint32_t>& group, const ColorPair& pair) const {
        double cost = 0;
        for (const uint32_t block : group) {
            Tex4x4Mode mode{};
            const float error = pairError(colors, blocks[block].view(), blocks[block].texels.hasHoles, pair, mode);
            cost += double{blocks[block].count} * (error - errors[block]);
        }
        return cost;
    }

    // Joins a pair entry with another one in a new pair for both: the cheapest, where that costs less than `allowed`.
    bool merge(uint32_t entry, double allowed) {
        const std::vector<uint32_t> users = usersOf(entry);
        uint32_t best = kNoEntry;
        PairFit bestFit;
        for (const uint32_t partner : partnersOf(entry, users)) {
            std::vector<uint32_t> group = usersOf(partner);
            group.insert(group.end(), users.begin(), users.end());
            PairFit fit;
            if (!fitGroup(group, fit)) {
                continue;
            }
            const double cost = costOf(group, fit.pair);
            if (cost < allowed) {
                allowed = cost;
                best = partner;
                bestFit = fit;
            }
        }
        if (best == kNoEntry) {
            return false;
        }
        draft.entries[entry].pairs = 0;
        replacePair(best, bestFit.pair, users);
        return true;
    }

    void replacePair(uint32_t entry, const ColorPair& pair, const std::vector<uint32_t>& newUsers) {
        PaletteEntry& changed = draft.entries[entry];
        changed.smaller = pair;
        changed.setPair(0, pair);
        for (const uint32_t block : newUsers) {
            if (std::find(usable[entry].begin(), usable[entry].end(), block) == usable[entry].end()) {
                options[block].push_back({entry, 0, 0});
                usable[entry].push_back(block);
            }
        }
        for (const uint32_t block : usable[entry]) {
            const auto option = std::find_if(options[block].begin(), options[block].end(),
                                             [&](const Option& known) { return known.entry == entry; });
            Tex4x4Mode mode{};
            option->error = pairError(colors, blocks[block].view(), blocks[block].texels.hasHoles, pair, mode);
            option->smallerError = option->error;
            takeBest(block);
        }
        push(entry);
    }

    const Tex4x4Colors& colors;
    const std::vector<PaletteBlock>& blocks;
    PaletteDraft& draft;
    std::vector<std::vector<Option>> options;  // by block
    std::vector<std::vector<uint32_t>> usable; // by entry: the blocks that have it among their options
    std::vector<float> errors;                 // by block
    using Expected = std::pair<double, uint32_t>;
    std::priority_queue<Expected, std::vector<Expected>, std::greater<>> queue; // losses as they were last seen
};

} // namespace

void shrinkEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks,
                   const BlockNeighbours& neighbours, size_t pairLimit, PaletteDraft& draft) {
    Shrinker shrinker(colors, blocks, draft);
    shrinker.collectOptions(neighbours);
    shrinker.shrinkTo(pairLimit);
}

} // namespace tvk
