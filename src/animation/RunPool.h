#pragma once

#include "animation/HashChains.h"
#include "animation/PlaceTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace tvk {

/// Data that channels share: each run of symbols is stored at the lowest place where the pool has the same symbols
/// already, be it inside a run stored before or across two of them, else at the end.
///   Symbol   comparable with ==
///   Hash     callable: const Symbol& -> uint64_t
///   kGram    runs of fewer than 2 * kGram - 1 symbols are not looked up by grams
///
/// Time is linear in the symbols given, memory in those stored. Every kGram-th place of the pool is indexed by the hash
/// of the kGram symbols there; one of the first kGram grams of a run falls on such a place wherever the run stands.
/// Hashes of the pool's beginnings check a candidate in constant time and one true comparison confirms it. Where a gram
/// is too common (held poses), the places where the pool goes from one symbol to another are looked up, as a run that
/// holds a pose has few of those; where they are too common as well, an index of all windows of the run's length
/// answers: channels of one frame range have a handful of lengths.
template <typename Symbol, typename Hash, int32_t kGram>
class RunPool {
public:
    /// Place of the run's first symbol. An empty run stands at 0.
    int32_t findOrAppend(const std::vector<Symbol>& run) {
        const int32_t found = find(run);
        if (found >= 0) {
            return found;
        }
        const int32_t place = size();
        symbols_.insert(symbols_.end(), run.begin(), run.end());
        for (const Symbol& symbol : run) {
            beginnings_.push_back(extended(beginnings_.back(), symbol));
        }
        return place;
    }

    const std::vector<Symbol>& symbols() const { return symbols_; }

private:
    static constexpr uint64_t kBase = 0x9E3779B97F4A7C15U; // odd: hashes are polynomials modulo 2^64
    static constexpr int32_t kCommon = 32;                 // candidates that are worth a look
    static constexpr int32_t kTooCommon = -2;
    static constexpr int32_t kAbsent = -1;

    struct WindowIndex {
        PlaceTable places;
        int32_t indexed = 0; // windows at places below are in the table
        uint64_t power = 1;  // kBase to the window's length
    };

    int32_t size() const { return static_cast<int32_t>(symbols_.size()); }

    static uint64_t extended(uint64_t hash, const Symbol& symbol) { return hash * kBase + mixed(Hash()(symbol)); }

    static uint64_t mixed(uint64_t value) {
        value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
        value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
        return value ^ (value >> 31U);
    }

    static uint64_t powerOf(int32_t length) {
        uint64_t result = 1;
        uint64_t base = kBase;
        for (; length > 0; length >>= 1) {
            result *= (length & 1) != 0 ? base : 1;
            base *= base;
        }
        return result;
    }

    // Of the symbols from `place` on, given the hash of so many.
    static uint64_t windowHash(const std::vector<uint64_t>& beginnings, int32_t place, int32_t length, uint64_t power) {
        const auto at = static_cast<std::size_t>(place);
        return beginnings[at + static_cast<std::size_t>(length)] - beginnings[at] * power;
    }

    bool standsAt(const std::vector<Symbol>& run, int32_t place) const {
        return std::equal(run.begin(), run.end(), symbols_.begin() + place);
    }

    int32_t find(const std::vector<Symbol>& run) {
        const auto length = static_cast<int32_t>(run.size());
        if (length == 0) {
            return 0;
        }
        if (length > size()) {
            return kAbsent;
        }
        runBeginnings_.assign(1, 0);
        for (const Symbol& symbol : run) {
            runBeginnings_.push_back(extended(runBeginnings_.back(), symbol));
        }
        int32_t found = length < 2 * kGram - 1 ? kTooCommon : findByGrams(run);
        found = found == kTooCommon ? findByChanges(run) : found;
        return found == kTooCommon ? findByWindows(run) : found;
    }

    int32_t findByGrams(const std::vector<Symbol>& run) {
        indexGrams();
        const auto length = static_cast<int32_t>(run.size());
        const uint64_t power = powerOf(length);
        const uint64_t hash = runBeginnings_.back();
        int32_t lowest = kAbsent;
        for (int32_t offset = 0; offset < kGram; ++offset) {
            int32_t looked = 0;
            for (int32_t gram = firstGram(windowHash(runBeginnings_, offset, kGram, kGramPower)); gram >= 0;
                 gram = grams_.next(gram)) {
                if (++looked > kCommon) {
                    return kTooCommon;
                }
                const int32_t place = gram * kGram - offset;
                if (place < 0 || place + length > size()) {
                    continue;
                }
                if (lowest >= 0 && place >= lowest) {
                    break;
                }
                if (windowHash(beginnings_, place, length, power) == hash && standsAt(run, place)) {
                    lowest = place;
                    break;
                }
            }
        }
        return lowest;
    }

    uint64_t gramHash(int32_t gram) const { return windowHash(beginnings_, gram * kGram, kGram, kGramPower); }

    int32_t firstGram(uint64_t hash) const {
        return grams_.first(hash, [this](int32_t gram) { return gramHash(gram); });
    }

    void indexGrams() {
        while ((static_cast<int32_t>(grams_.size()) + 1) * kGram <= size()) {
            grams_.add(gramHash(static_cast<int32_t>(grams_.size())),
                       [this](int32_t other) { return gramHash(other); });
        }
    }

    // Of the change to the symbol at a place from the one before.
    static uint64_t changeHash(const std::vector<Symbol>& symbols, std::size_t place) {
        return extended(extended(0, symbols[place - 1]), symbols[place]);
    }

    auto hashOfChange() const {
        return [this](int32_t change) {
            return changeHash(symbols_, static_cast<std::size_t>(changePlaces_[static_cast<std::size_t>(change)]));
        };
    }

    void indexChanges() {
        for (; changesIndexed_ < symbols_.size(); ++changesIndexed_) {
            if (!(symbols_[changesIndexed_] == symbols_[changesIndexed_ - 1])) {
                changePlaces_.push_back(static_cast<int32_t>(changesIndexed_));
                changes_.add(changeHash(symbols_, changesIndexed_), hashOfChange());
            }
        }
    }

    int32_t findByChanges(const std::vector<Symbol>& run) {
        indexChanges();
        for (std::size_t offset = 1; offset < run.size(); ++offset) {
            if (run[offset] == run[offset - 1]) {
                continue;
            }
            const int32_t first = changes_.first(changeHash(run, offset), hashOfChange());
            if (first < 0) {
                return kAbsent;
            }
            if (changes_.countFrom(first) <= kCommon) {
                return firstAmong(run, first, static_cast<int32_t>(offset));
            }
        }
        return kTooCommon;
    }

    // The lowest place of the run at which one of its changes, `offset` symbols on, is that one or one like it.
    int32_t firstAmong(const std::vector<Symbol>& run, int32_t change, int32_t offset) const {
        const auto length = static_cast<int32_t>(run.size());
        const uint64_t power = powerOf(length);
        for (; change >= 0; change = changes_.next(change)) {
            const int32_t place = changePlaces_[static_cast<std::size_t>(change)] - offset;
            if (place >= 0 && place + length <= size() &&
                windowHash(beginnings_, place, length, power) == runBeginnings_.back() && standsAt(run, place)) {
                return place;
            }
        }
        return kAbsent;
    }

    int32_t findByWindows(const std::vector<Symbol>& run) {
        const auto length = static_cast<int32_t>(run.size());
        WindowIndex& index = windows_[length];
        if (index.indexed == 0) {
            index.power = powerOf(length);
        }
        const auto hashAt = [&](int32_t place) { return windowHash(beginnings_, place, length, index.power); };
        index.places.reserve(static_cast<std::size_t>(size()));
        for (; index.indexed + length <= size(); ++index.indexed) {
            index.places.findOrAdd(hashAt(index.indexed), index.indexed, hashAt);
        }
        const int32_t place = index.places.find(runBeginnings_.back(), hashAt);
        if (place < 0 || standsAt(run, place)) {
            return place;
        }
        // Another window with the same hash hides whatever comes behind it.
        const auto literal = std::search(symbols_.begin(), symbols_.end(), run.begin(), run.end());
        return literal == symbols_.end() ? kAbsent : static_cast<int32_t>(literal - symbols_.begin());
    }

    std::vector<Symbol> symbols_;
    std::vector<uint64_t> beginnings_{0};    // hash of the first i symbols
    HashChains grams_;                       // the gram of each kGram-th place
    HashChains changes_;                     // of the places below
    std::vector<int32_t> changePlaces_;      // that differ from the place before
    std::size_t changesIndexed_ = 1;         // places below are done
    std::map<int32_t, WindowIndex> windows_; // by length
    std::vector<uint64_t> runBeginnings_;
    static inline const uint64_t kGramPower = powerOf(kGram);
};

struct NumberHash {
    uint64_t operator()(int32_t value) const { return static_cast<uint32_t>(value); }
};

/// The pools of stepped channels.
using NumberPool = RunPool<int32_t, NumberHash, 32>;

} // namespace tvk
