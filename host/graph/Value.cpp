#include "host/graph/Value.h"

#include <algorithm>

namespace host {

namespace {

/// Works on the sorted lists of this header alike: the first entry whose key is not less.
template <typename Entries, typename Key>
auto placeOf(Entries& entries, Key key) {
    if (entries.empty() || entries.back().first < key) {
        return entries.end(); // files come in ascending order
    }
    return std::lower_bound(entries.begin(), entries.end(), key,
                            [](const auto& entry, Key wanted) { return entry.first < wanted; });
}

template <typename Entries, typename Key>
auto* findEntry(Entries& entries, Key key) {
    const auto place = placeOf(entries, key);
    return place != entries.end() && place->first == key ? &place->second : nullptr;
}

template <typename Entries, typename Key>
auto& makeEntry(Entries& entries, Key key) {
    auto place = placeOf(entries, key);
    if (place == entries.end() || place->first != key) {
        place = entries.emplace(place);
        place->first = key;
    }
    return place->second;
}

} // namespace

const Value* Block::find(AttrIndex attr) const {
    return findEntry(entries_, attr);
}

Value& Block::at(AttrIndex attr) {
    return makeEntry(entries_, attr);
}

void Block::erase(AttrIndex attr) {
    const auto place = placeOf(entries_, attr);
    if (place != entries_.end() && place->first == attr) {
        entries_.erase(place);
    }
}

const Block* ElementArray::find(std::int32_t logical) const {
    return findEntry(elements, logical);
}

Block& ElementArray::at(std::int32_t logical) {
    return makeEntry(elements, logical);
}

} // namespace host
