#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace tvk {

/// Everything of a material that decides whether another one may take its place, number by number.
using MergeKey = std::vector<int32_t>;

struct MergeKeyHash {
    std::size_t operator()(const MergeKey& key) const {
        // FNV-1a, a number at a time.
        uint64_t hash = 14695981039346656037U;
        for (const int32_t value : key) {
            hash = (hash ^ static_cast<uint32_t>(value)) * 1099511628211U;
        }
        return static_cast<std::size_t>(hash ^ (hash >> 32U));
    }
};

/// Where materials stand in their list, so that nothing is searched for in order. Always the first place that an
/// ordered search would find.
struct MaterialLookup {
    std::unordered_map<std::string, std::vector<int32_t>> ofShadingGroup; // by its name; ascending
    std::unordered_map<MergeKey, int32_t, MergeKeyHash> mergeable;        // empty when nothing is merged
    int32_t dummy = -1;                                                   // none yet
};

} // namespace tvk
