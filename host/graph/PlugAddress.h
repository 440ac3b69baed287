#pragma once

#include "host/graph/Attribute.h"

#include <array>
#include <cstddef>
#include <functional>

namespace host {

class Node;

/// Which attribute, and which elements of the arrays on the way to it, outermost first.
/// An address with as many indices as the attribute's arrayDepth names one value (or compound); with one index less
/// it names the whole array. Addresses with fewer come from name look-ups below arrays and have no value.
struct PlugAddress {
    static constexpr int kMaxDepth = 4; // the deepest known: inputTarget[].inputTargetGroup[].inputTargetItem[].x[]

    AttrIndex attr = kNoAttr;
    std::int8_t depth = 0;
    std::array<std::int32_t, kMaxDepth> index{}; // only the first `depth` count; the others stay 0

    /// This address with one more element index. More than kMaxDepth indices are a programming error.
    PlugAddress element(std::int32_t logical) const {
        PlugAddress result = *this;
        result.index[static_cast<std::size_t>(result.depth++)] = logical;
        return result;
    }

    friend bool operator==(const PlugAddress& a, const PlugAddress& b) {
        return a.attr == b.attr && a.depth == b.depth && a.index == b.index;
    }
    friend bool operator!=(const PlugAddress& a, const PlugAddress& b) { return !(a == b); }
    /// By attribute, then by indices, a whole array before its elements: all elements of an array are one range.
    friend bool operator<(const PlugAddress& a, const PlugAddress& b) {
        if (a.attr != b.attr) {
            return a.attr < b.attr;
        }
        for (int i = 0; i < a.depth && i < b.depth; ++i) {
            const auto at = static_cast<std::size_t>(i);
            if (a.index[at] != b.index[at]) {
                return a.index[at] < b.index[at];
            }
        }
        return a.depth < b.depth;
    }
};

/// A place of one node that holds or computes a value. A plain handle: it does not keep the node alive.
struct Plug {
    Node* node = nullptr;
    PlugAddress at;

    explicit operator bool() const { return node != nullptr && at.attr != kNoAttr; }
    friend bool operator==(const Plug& a, const Plug& b) { return a.node == b.node && a.at == b.at; }
    friend bool operator!=(const Plug& a, const Plug& b) { return !(a == b); }
};

} // namespace host
