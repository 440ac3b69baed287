#include "host/graph/parsePlugPath.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace host {

namespace {

std::optional<std::int32_t> parseIndex(std::string_view digits) {
    std::int32_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stop != end || value < 0) {
        return std::nullopt;
    }
    return value;
}

bool parseBrackets(std::string_view inside, PlugPathStep& step) {
    const std::size_t colon = inside.find(':');
    step.isRange = colon != std::string_view::npos;
    const auto first = parseIndex(inside.substr(0, colon));
    const auto last = step.isRange ? parseIndex(inside.substr(colon + 1)) : first;
    if (!first || !last || *last < *first) {
        return false;
    }
    step.hasIndex = true;
    step.first = *first;
    step.last = *last;
    return true;
}

std::optional<PlugPathStep> parseStep(std::string_view text) {
    PlugPathStep step;
    const std::size_t open = text.find('[');
    step.name = text.substr(0, open);
    if (step.name.empty() || step.name.find(']') != std::string_view::npos) {
        return std::nullopt;
    }
    if (open == std::string_view::npos) {
        return step;
    }
    if (text.back() != ']' || !parseBrackets(text.substr(open + 1, text.size() - open - 2), step)) {
        return std::nullopt;
    }
    return step;
}

/// An array on the way from the top-level attribute to the one that is named, and what the path says about its
/// elements.
struct Level {
    AttrIndex array = kNoAttr;
    bool hasIndex = false;
    bool isRange = false;
    std::int32_t first = 0, last = 0;
};

/// Adds the arrays between `from` (kNoAttr: above the top) and `to`. False when `to` is not below `from`.
bool goDown(const Node& node, AttrIndex from, AttrIndex to, std::vector<Level>& levels) {
    const std::size_t before = levels.size();
    for (AttrIndex at = to; at != from; at = node.attribute(at).parent) {
        if (at == kNoAttr) {
            return false;
        }
        if (node.attribute(at).array) {
            levels.push_back({at});
        }
    }
    std::reverse(levels.begin() + static_cast<std::ptrdiff_t>(before), levels.end());
    return true;
}

bool giveIndex(const PlugPathStep& step, AttrIndex attr, std::vector<Level>& levels) {
    if (!step.hasIndex) {
        return true;
    }
    if (levels.empty() || levels.back().array != attr || levels.back().hasIndex) {
        return false;
    }
    levels.back() = {attr, true, step.isRange, step.first, step.last};
    return true;
}

AttrIndex findBelow(const Node& node, AttrIndex compound, std::string_view name) {
    for (const AttrIndex child : node.attribute(compound).children) {
        if (node.attribute(child).longName == name || node.attribute(child).shortName == name) {
            return child;
        }
    }
    return node.findAttribute(name);
}

/// The first word of a path may be an alias, which stands for indices too.
AttrIndex findTop(const Node& node, std::string_view name, std::vector<Level>& levels) {
    const AttrIndex attr = node.findAttribute(name);
    if (attr == kNoAttr || !goDown(node, kNoAttr, attr, levels)) {
        return kNoAttr;
    }
    if (node.aliases().empty()) {
        return attr;
    }
    const auto alias = node.aliases().find(std::string(name));
    if (alias != node.aliases().end() && node.attribute(attr).longName != name &&
        node.attribute(attr).shortName != name) {
        for (int i = 0; i < alias->second.depth; ++i) {
            const std::int32_t index = alias->second.index[static_cast<std::size_t>(i)];
            levels[static_cast<std::size_t>(i)] = {levels[static_cast<std::size_t>(i)].array, true, false, index,
                                                   index};
        }
    }
    return attr;
}

/// The address of what was named once all words are read. An array without an index is the whole array when it is what
/// was named; on the way it is the instance's element of a world-space array, else left out.
PlugRange buildRange(const Node& node, AttrIndex named, const std::vector<Level>& levels, std::int32_t instance) {
    PlugRange result;
    PlugAddress at{named, 0, {}};
    bool leftOut = false;
    for (const Level& level : levels) {
        if (!level.hasIndex && level.array == named) {
            break;
        }
        if (!level.hasIndex && !node.attribute(level.array).worldSpace) {
            leftOut = true;
            continue;
        }
        if (leftOut || result.isRange) {
            return {};
        }
        if (level.isRange) {
            result = {{level.array, at.depth, at.index}, true, level.first, level.last, kNoAttr};
        } else {
            at = at.element(level.hasIndex ? level.first : instance);
        }
    }
    if (!result.isRange) {
        result.at = at;
    } else if (leftOut) {
        return {};
    } else if (named != result.at.attr) {
        result.below = named;
    }
    return result;
}

} // namespace

std::optional<std::vector<PlugPathStep>> parsePlugPath(std::string_view path) {
    if (!path.empty() && path.front() == '.') {
        path.remove_prefix(1);
    }
    std::vector<PlugPathStep> steps;
    for (bool more = true; more;) {
        const std::size_t dot = path.find('.');
        const auto step = parseStep(path.substr(0, dot));
        if (!step) {
            return std::nullopt;
        }
        steps.push_back(*step);
        more = dot != std::string_view::npos;
        path.remove_prefix(more ? dot + 1 : path.size());
    }
    return steps;
}

PlugRange findPlugRange(const Node& node, std::string_view path, std::int32_t instance) {
    const auto steps = parsePlugPath(path);
    if (!steps) {
        return {};
    }
    std::vector<Level> levels;
    AttrIndex attr = kNoAttr;
    for (const PlugPathStep& step : *steps) {
        const bool top = attr == kNoAttr;
        const AttrIndex next = top ? findTop(node, step.name, levels) : findBelow(node, attr, step.name);
        if (next == kNoAttr || (!top && (next == attr || !goDown(node, attr, next, levels))) ||
            !giveIndex(step, next, levels)) {
            return {};
        }
        attr = next;
    }
    return buildRange(node, attr, levels, instance);
}

} // namespace host
