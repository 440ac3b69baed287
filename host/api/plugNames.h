#pragma once

#include "host/graph/Node.h"

#include <string>

namespace host {

struct PlugNameStyle {
    bool longNames = false;
    bool fullPath = false;        // all compounds above; else from the outermost array above, or the attribute alone
    bool instanceIndices = false; // "[0]" also behind world-space arrays
    bool alias = false;           // the alias instead, when the plug has one
};

/// The attribute path of a plug, without the node: "t.tx", "wl[3].w[0]". A whole array has no brackets, an array that
/// the address has no index for has empty ones.
std::string plugPath(const Node& node, const PlugAddress& at, const PlugNameStyle& style);

} // namespace host
