#include "host/graph/Value.h"

#include <algorithm>

namespace host {

namespace {

/// The first entry whose attribute is not less.
template <typename Entries>
auto placeOf(Entries& entries, AttrIndex attr) {
    return std::lower_bound(entries.begin(), entries.end(), attr,
                            [](const auto& entry, AttrIndex wanted) { return entry.first < wanted; });
}

} // namespace

const Value* Block::find(AttrIndex attr) const {
    const auto place = placeOf(entries_, attr);
    return place != entries_.end() && place->first == attr ? &place->second : nullptr;
}

Value& Block::at(AttrIndex attr) {
    auto place = placeOf(entries_, attr);
    if (place == entries_.end() || place->first != attr) {
        place = entries_.emplace(place);
        place->first = attr;
    }
    return place->second;
}

void Block::erase(AttrIndex attr) {
    const auto place = placeOf(entries_, attr);
    if (place != entries_.end() && place->first == attr) {
        entries_.erase(place);
    }
}

const Block* ElementArray::find(std::int32_t logical) const {
    const auto found = elements.find(logical);
    return found != elements.end() ? &found->second : nullptr;
}

Block& ElementArray::at(std::int32_t logical) {
    return elements.try_emplace(elements.end(), logical)->second; // files come in ascending order
}

} // namespace host
