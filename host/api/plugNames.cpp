#include "host/api/plugNames.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

/// The attribute and those above it, topmost first.
std::vector<AttrIndex> chainOf(const Node& node, AttrIndex attr) {
    std::vector<AttrIndex> chain;
    for (AttrIndex one = attr; one != kNoAttr; one = node.attribute(one).parent) {
        chain.push_back(one);
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

std::string indexText(const Attribute& attribute, const PlugAddress& at, bool isLast, const PlugNameStyle& style) {
    if (!attribute.array || (attribute.worldSpace && !style.instanceIndices)) {
        return {};
    }
    if (attribute.arrayDepth > at.depth) {
        return isLast ? std::string() : "[]";
    }
    return "[" + std::to_string(at.index[static_cast<std::size_t>(attribute.arrayDepth - 1)]) + "]";
}

} // namespace

std::string plugPath(const Node& node, const PlugAddress& at, const PlugNameStyle& style) {
    if (style.alias) {
        for (const auto& [alias, address] : node.aliases()) {
            if (address == at) {
                return alias;
            }
        }
    }
    const std::vector<AttrIndex> chain = chainOf(node, at.attr);
    std::size_t first = 0;
    while (!style.fullPath && first + 1 < chain.size() && !node.attribute(chain[first]).array) {
        ++first;
    }
    std::string text;
    for (std::size_t i = first; i < chain.size(); ++i) {
        const Attribute& attribute = node.attribute(chain[i]);
        const std::string& name = style.longNames ? attribute.longName : attribute.shortName;
        text += (text.empty() ? "" : ".") + name + indexText(attribute, at, i + 1 == chain.size(), style);
    }
    return text;
}

} // namespace host
