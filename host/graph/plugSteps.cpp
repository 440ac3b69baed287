#include "host/graph/plugSteps.h"

#include <algorithm>

namespace host {

bool isWholeArray(const Node& node, const PlugAddress& at) {
    const Attribute& attribute = node.attribute(at.attr);
    return attribute.array && at.depth == attribute.arrayDepth - 1;
}

bool isOneValue(const Node& node, const PlugAddress& at) {
    const auto used = at.index.begin() + at.depth;
    return at.depth == node.attribute(at.attr).arrayDepth &&
           std::none_of(at.index.begin(), used, [](std::int32_t index) { return index < 0; });
}

PlugAddress ownerOf(const Node& node, const PlugAddress& at) {
    const Attribute& attribute = node.attribute(at.attr);
    PlugAddress owner = at;
    if (attribute.array && at.depth == attribute.arrayDepth) {
        owner.index[static_cast<std::size_t>(--owner.depth)] = 0;
        return owner;
    }
    owner.attr = attribute.parent;
    return owner.attr == kNoAttr ? PlugAddress{} : owner;
}

int childPosition(const Node& node, AttrIndex attr) {
    const AttrIndex parent = node.attribute(attr).parent;
    if (parent == kNoAttr) {
        return -1;
    }
    const std::vector<AttrIndex>& siblings = node.attribute(parent).children;
    return static_cast<int>(std::find(siblings.begin(), siblings.end(), attr) - siblings.begin());
}

namespace {

/// One step down from a plug to what `step` is to its owner.
Plug stepDown(const Node& node, const PlugAddress& step, const Plug& from) {
    const Attribute& attribute = node.attribute(step.attr);
    const Attribute& there = from.node->attribute(from.at.attr);
    if (attribute.array && step.depth == attribute.arrayDepth) {
        const std::int32_t logical = step.index[static_cast<std::size_t>(step.depth - 1)];
        return isWholeArray(*from.node, from.at) ? Plug{from.node, from.at.element(logical)} : Plug{};
    }
    const auto position = static_cast<std::size_t>(childPosition(node, step.attr));
    if (position >= there.children.size() || !isOneValue(*from.node, from.at)) {
        return {};
    }
    Plug child = from;
    child.at.attr = there.children[position];
    return child;
}

} // namespace

Plug matchingBelow(const Node& node, const PlugAddress& ancestor, const PlugAddress& descendant,
                   const Plug& counterpart) {
    std::vector<PlugAddress> steps;
    for (PlugAddress at = descendant; at != ancestor; at = ownerOf(node, at)) {
        if (at.attr == kNoAttr) {
            return {};
        }
        steps.push_back(at);
    }
    Plug result = counterpart;
    for (auto step = steps.rbegin(); step != steps.rend() && result; ++step) {
        result = stepDown(node, *step, result);
    }
    return result;
}

std::vector<AttrIndex> withDescendants(const Node& node, AttrIndex attr) {
    std::vector<AttrIndex> result{attr};
    for (std::size_t next = 0; next < result.size(); ++next) {
        const std::vector<AttrIndex>& children = node.attribute(result[next]).children;
        result.insert(result.end(), children.begin(), children.end());
    }
    return result;
}

bool sharesIndices(const PlugAddress& prefix, const PlugAddress& at) {
    return prefix.depth <= at.depth &&
           std::equal(prefix.index.begin(), prefix.index.begin() + prefix.depth, at.index.begin());
}

} // namespace host
