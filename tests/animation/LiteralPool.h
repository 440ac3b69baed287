#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tvk {

/// What a pool is, word for word: the judge of the fast one.
struct LiteralPool {
    std::vector<int32_t> values;

    int32_t findOrAppend(const std::vector<int32_t>& run) {
        const auto found = std::search(values.begin(), values.end(), run.begin(), run.end());
        const auto place = static_cast<int32_t>(found - values.begin());
        if (found == values.end() && !run.empty()) {
            values.insert(values.end(), run.begin(), run.end());
        }
        return place;
    }
};

} // namespace tvk
