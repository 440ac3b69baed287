#pragma once

#include "host/graph/Node.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace host {

/// One word of an attribute path with what stands in brackets behind it.
struct PlugPathStep {
    std::string_view name;  // views the parsed text
    bool hasIndex = false;  // "[first]" or "[first:last]"
    std::int32_t first = 0; // 0 … 2147483647
    std::int32_t last = 0;  // first when there is one number; never less than first
    bool isRange = false;   // "[first:last]"
};

/// Splits "a", ".a", "a.b", "a[3].b[0:2]"; the node's name must be gone. nullopt for anything malformed: nothing
/// before or between dots, missing or empty brackets, a negative or too large index, a range that runs backwards.
std::optional<std::vector<PlugPathStep>> parsePlugPath(std::string_view path);

/// What an attribute path of a scene file names: a plug, or the elements `first` … `last` of an array.
struct PlugRange {
    /// Without a range the plug itself ("tx", "a[3].b", or a whole array); with a range the whole array, whose elements
    /// are at.element(first) … at.element(last). at.attr is kNoAttr when there is no such plug.
    PlugAddress at;
    bool isRange = false;
    std::int32_t first = 0, last = 0;
    /// The attribute named behind the range ("w" in "wl[0:7].w"), without an index of its own; kNoAttr when there is
    /// none.
    AttrIndex below = kNoAttr;

    explicit operator bool() const { return at.attr != kNoAttr; }
};

/// Looks an attribute path up on a node: long names, short names, aliases, children with or without the compounds above
/// them. A world-space array on the way ("iog" in "iog.og[0]") that has no index gets `instance`; another array on the
/// way without an index has none (see PlugAddress), and then no index may follow. At most one range, and no index
/// behind it.
PlugRange findPlugRange(const Node& node, std::string_view path, std::int32_t instance = 0);

} // namespace host
