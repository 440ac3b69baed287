#pragma once

#include "host/graph/Node.h"

#include <vector>

namespace host {

/// Whether the address names a whole array (one index less than its attribute's arrayDepth, the attribute an array).
bool isWholeArray(const Node& node, const PlugAddress& at);
/// Whether the address names a single value or compound: it has every index, and none is negative.
bool isOneValue(const Node& node, const PlugAddress& at);

/// One step up: from an element to its array, from a child to its compound (the element of it when that is in an
/// array). attr is kNoAttr above a top-level attribute.
PlugAddress ownerOf(const Node& node, const PlugAddress& at);

/// Position of a child attribute in its compound; -1 for a top-level attribute.
int childPosition(const Node& node, AttrIndex attr);

/// The plug that corresponds to `descendant` (at or below `ancestor` on `node`) below `counterpart`, which stands for
/// `ancestor`: children by position, elements by logical index. Null when `counterpart` has nothing there.
Plug matchingBelow(const Node& node, const PlugAddress& ancestor, const PlugAddress& descendant,
                   const Plug& counterpart);

/// The attribute and all attributes below it, each before its children.
std::vector<AttrIndex> withDescendants(const Node& node, AttrIndex attr);

/// Whether `at` is `prefix` or an element below it, for addresses of the same attribute or of one below it.
bool sharesIndices(const PlugAddress& prefix, const PlugAddress& at);

} // namespace host
