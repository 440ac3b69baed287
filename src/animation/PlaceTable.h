#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

/// Places by the hash of what stands there; of several places with one hash the first that was added. Keeps the places
/// and half of each hash, 8 bytes each and half of them free: whoever uses it finds the other half again.
class PlaceTable {
public:
    /// Makes room for so many places in all.
    void reserve(std::size_t count) {
        while (count * 2 > slots_.size()) {
            grow();
        }
    }

    /// -1 when no place has the hash.
    ///   hashOf   callable: int32_t place -> uint64_t, the same as when the place was added
    template <typename HashOf>
    int32_t find(uint64_t hash, const HashOf& hashOf) const {
        return slots_.empty() ? -1 : slots_[slotOf(hash, hashOf)].place;
    }

    /// The place that has the hash; `place`, when none has.
    template <typename HashOf>
    int32_t findOrAdd(uint64_t hash, int32_t place, const HashOf& hashOf) {
        reserve(count_ + 1);
        Slot& slot = slots_[slotOf(hash, hashOf)];
        if (slot.place < 0) {
            slot = {place, tagOf(hash)};
            ++count_;
        }
        return slot.place;
    }

private:
    struct Slot {
        int32_t place = -1; // -1 when free
        uint32_t tag = 0;
    };

    static uint32_t tagOf(uint64_t hash) { return static_cast<uint32_t>((hash * 0x9E3779B97F4A7C15U) >> 32U); }

    std::size_t after(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }

    template <typename HashOf>
    std::size_t slotOf(uint64_t hash, const HashOf& hashOf) const {
        const uint32_t tag = tagOf(hash);
        std::size_t at = tag >> shift_;
        while (slots_[at].place >= 0 && (slots_[at].tag != tag || hashOf(slots_[at].place) != hash)) {
            at = after(at);
        }
        return at;
    }

    void grow() {
        constexpr std::size_t kFirstSlots = 16;
        constexpr int kFirstShift = 32 - 4;
        std::vector<Slot> old(slots_.empty() ? kFirstSlots : slots_.size() * 2);
        old.swap(slots_);
        shift_ = old.empty() ? kFirstShift : shift_ - 1;
        for (const Slot& slot : old) {
            if (slot.place >= 0) {
                std::size_t at = slot.tag >> shift_;
                while (slots_[at].place >= 0) {
                    at = after(at);
                }
                slots_[at] = slot;
            }
        }
    }

    std::vector<Slot> slots_; // a power of two of them
    std::size_t count_ = 0;
    int shift_ = 0; // leaves as many bits of a tag as count the slots
};

} // namespace tvk
