#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

/// A list in which every value stands once, at the place of its first insertion.
///   Value    copyable, comparable with ==
///   Hash     callable: const Value& -> uint64_t; need not be spread well
/// Fewer than 2^31 values. Insertion takes constant time on average; the index costs 8 bytes a value at the most.
template <typename Value, typename Hash>
class IndexedTable {
public:
    /// The place of the value, which is appended when it is not there yet.
    int32_t findOrAdd(const Value& value) {
        if ((values.size() + 1) * 2 > slots.size()) {
            grow();
        }
        int32_t& slot = slots[slotOf(value)];
        if (slot < 0) {
            slot = static_cast<int32_t>(values.size());
            values.push_back(value);
        }
        return slot;
    }

    const std::vector<Value>& entries() const { return values; }
    const Value& operator[](int32_t place) const { return values[static_cast<std::size_t>(place)]; }
    int32_t size() const { return static_cast<int32_t>(values.size()); }
    bool empty() const { return values.empty(); }

private:
    // The slot that holds the value's place, or the free one where it belongs. At least half of the slots are free.
    std::size_t slotOf(const Value& value) const {
        // Fibonacci hashing: neighbouring values spread over the whole table.
        constexpr uint64_t kSpread = 0x9E3779B97F4A7C15U;
        auto at = static_cast<std::size_t>((Hash()(value) * kSpread) >> shift);
        while (slots[at] >= 0 && !(values[static_cast<std::size_t>(slots[at])] == value)) {
            at = (at + 1) & (slots.size() - 1);
        }
        return at;
    }

    void grow() {
        constexpr std::size_t kFirstSlots = 16;
        const std::size_t size = slots.empty() ? kFirstSlots : slots.size() * 2;
        shift = slots.empty() ? 64 - 4 : shift - 1;
        slots.assign(size, -1);
        for (std::size_t i = 0; i < values.size(); ++i) {
            slots[slotOf(values[i])] = static_cast<int32_t>(i);
        }
    }

    std::vector<Value> values;
    std::vector<int32_t> slots; // a power of two of them; -1 when free
    int shift = 0;              // leaves as many bits of a hash as count the slots
};

} // namespace tvk
