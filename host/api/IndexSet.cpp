#include "host/api/IndexSet.h"

#include <algorithm>
#include <utility>

namespace host {

IndexSet::IndexSet(std::vector<IndexRange> ranges) : ranges_(std::move(ranges)), sorted_(false) {}

void IndexSet::add(IndexRange range) {
    if (!ranges_.empty() && range.first - 1 == ranges_.back().last) {
        ranges_.back().last = range.last; // the usual case: one after the other
        return;
    }
    ranges_.push_back(range);
    sorted_ = false;
}

void IndexSet::setComplete(std::int32_t count) {
    complete_ = true;
    ranges_.clear();
    if (count > 0) {
        ranges_.push_back({0, count - 1});
    }
    sorted_ = false;
}

const std::vector<IndexRange>& IndexSet::ranges() const {
    if (!sorted_) {
        sort();
    }
    return ranges_;
}

void IndexSet::sort() const {
    std::sort(ranges_.begin(), ranges_.end(), [](IndexRange a, IndexRange b) { return a.first < b.first; });
    std::vector<IndexRange> merged;
    for (const IndexRange range : ranges_) {
        // Touching ranges join; first - 1 does not overflow where last + 1 might.
        if (!merged.empty() && range.first - 1 <= merged.back().last) {
            merged.back().last = std::max(merged.back().last, range.last);
        } else {
            merged.push_back(range);
        }
    }
    ranges_ = std::move(merged);
    before_.clear();
    std::int32_t count = 0;
    for (const IndexRange range : ranges_) {
        before_.push_back(count);
        count += range.last - range.first + 1;
    }
    sorted_ = true;
}

std::int32_t IndexSet::count() const {
    const std::vector<IndexRange>& sorted = ranges();
    return sorted.empty() ? 0 : before_.back() + (sorted.back().last - sorted.back().first) + 1;
}

std::int32_t IndexSet::at(std::int32_t n) const {
    const std::vector<IndexRange>& sorted = ranges();
    const auto range =
        static_cast<std::size_t>(std::upper_bound(before_.begin(), before_.end(), n) - before_.begin()) - 1;
    return sorted[range].first + (n - before_[range]);
}

bool IndexSet::contains(std::int32_t index) const {
    const std::vector<IndexRange>& sorted = ranges();
    const auto next = std::upper_bound(sorted.begin(), sorted.end(), index,
                                       [](std::int32_t value, IndexRange range) { return value < range.first; });
    return next != sorted.begin() && index <= std::prev(next)->last;
}

std::vector<std::int32_t> IndexSet::all() const {
    std::vector<std::int32_t> result;
    result.reserve(static_cast<std::size_t>(count()));
    for (const IndexRange range : ranges()) {
        for (std::int32_t index = range.first; index <= range.last; ++index) {
            result.push_back(index);
        }
    }
    return result;
}

} // namespace host
