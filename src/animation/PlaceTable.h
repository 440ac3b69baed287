#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

/// Places by the hash of what stands there; of several places with one hash the first that was added. Keeps the places
/// alone, 4 bytes each and half of them free: whoever uses it finds a place's hash again.
class PlaceTable {
public:
    /// -1 when no place has the hash.
    ///   hashOf   callable: int32_t place -> uint64_t, the same as when the place was added
    template <typename HashOf>
    int32_t find(uint64_t hash, const HashOf& hashOf) const {
        return slots_.empty() ? -1 : slots_[slotOf(hash, hashOf)];
    }

    /// The place that has the hash; `place`, when none has.
    template <typename HashOf>
    int32_t findOrAdd(uint64_t hash, int32_t place, const HashOf& hashOf) {
        if ((count_ + 1) * 2 > slots_.size()) {
            grow(hashOf);
        }
        int32_t& slot = slots_[slotOf(hash, hashOf)];
        if (slot < 0) {
            slot = place;
            ++count_;
        }
        return slot;
    }

private:
    template <typename HashOf>
    std::size_t slotOf(uint64_t hash, const HashOf& hashOf) const {
        auto at = static_cast<std::size_t>((hash * 0x9E3779B97F4A7C15U) >> shift_);
        while (slots_[at] >= 0 && hashOf(slots_[at]) != hash) {
            at = (at + 1) & (slots_.size() - 1);
        }
        return at;
    }

    template <typename HashOf>
    void grow(const HashOf& hashOf) {
        constexpr std::size_t kFirstSlots = 16;
        constexpr int kFirstShift = 64 - 4;
        std::vector<int32_t> old(slots_.empty() ? kFirstSlots : slots_.size() * 2, -1);
        old.swap(slots_);
        shift_ = old.empty() ? kFirstShift : shift_ - 1;
        for (const int32_t place : old) {
            if (place >= 0) {
                slots_[slotOf(hashOf(place), hashOf)] = place;
            }
        }
    }

    std::vector<int32_t> slots_; // a power of two of them; -1 when free
    std::size_t count_ = 0;
    int shift_ = 0; // leaves as many bits of a hash as count the slots
};

} // namespace tvk
