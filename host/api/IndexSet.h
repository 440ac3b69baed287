#pragma once

#include "host/geometry/ComponentList.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

/// A set of numbers from 0 on, kept as ranges: faces, vertices or edges of one component. Adding costs nothing to speak
/// of; the first question after it sorts. A complete set stands for 0 … count - 1 and takes no others.
class IndexSet {
public:
    IndexSet() = default;
    explicit IndexSet(std::vector<IndexRange> ranges);

    /// 0 <= range.first <= range.last < 2^31 - 1.
    void add(IndexRange range);
    void setComplete(std::int32_t count);

    bool isComplete() const { return complete_; }
    /// Ascending; they neither overlap nor touch.
    const std::vector<IndexRange>& ranges() const;
    std::int32_t count() const;
    /// The n-th in ascending order, 0 <= n < count(). Logarithmic in the number of ranges.
    std::int32_t at(std::int32_t n) const;
    bool contains(std::int32_t index) const;
    /// All of them, ascending.
    std::vector<std::int32_t> all() const;

    friend bool operator==(const IndexSet& a, const IndexSet& b) {
        return a.complete_ == b.complete_ && a.ranges() == b.ranges();
    }

private:
    void sort() const;

    bool complete_ = false;
    mutable std::vector<IndexRange> ranges_;
    mutable std::vector<std::int32_t> before_; // per range: how many numbers stand before it
    mutable bool sorted_ = true;
};

} // namespace host
