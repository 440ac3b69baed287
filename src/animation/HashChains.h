#pragma once

#include "animation/PlaceTable.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

/// Things that are numbered from 0 on, by a hash each; those of one hash in their order. As with PlaceTable, whoever
/// uses it finds a thing's hash again: `hashOf` is callable, int32_t number -> uint64_t.
class HashChains {
public:
    std::size_t size() const { return links_.size(); }

    /// Adds the next thing.
    template <typename HashOf>
    void add(uint64_t hash, const HashOf& hashOf) {
        const auto number = static_cast<int32_t>(links_.size());
        links_.push_back({-1, number, 0});
        const int32_t first = firsts_.findOrAdd(hash, number, hashOf);
        Link& head = links_[static_cast<std::size_t>(first)];
        ++head.count;
        if (first != number) {
            links_[static_cast<std::size_t>(head.last)].next = number;
            head.last = number;
        }
    }

    /// The first thing of a hash; -1 when there is none.
    template <typename HashOf>
    int32_t first(uint64_t hash, const HashOf& hashOf) const {
        return firsts_.find(hash, hashOf);
    }

    /// The next thing of the same hash; -1 after the last.
    int32_t next(int32_t number) const { return links_[static_cast<std::size_t>(number)].next; }

    /// How many things have the hash of which this is the first.
    int32_t countFrom(int32_t first) const { return links_[static_cast<std::size_t>(first)].count; }

private:
    struct Link {
        int32_t next;
        int32_t last;  // of the first of a hash
        int32_t count; // likewise
    };

    PlaceTable firsts_;
    std::vector<Link> links_;
};

} // namespace tvk
