#include "host/scene/SceneNames.h"

#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

NodeMatch noMatch(std::string_view name) {
    return {nullptr, false, messages::text(messages::kNoObject, {name})};
}

NodeMatch manyMatches(std::string_view name) {
    return {nullptr, true, messages::text(messages::kManyObjects, {name})};
}

// The parts between the '|' of a path, root namespace taken off; nothing when one of them is empty.
std::vector<std::string_view> splitPath(std::string_view path) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t bar = std::min(path.find('|', at), path.size());
        std::string_view part = path.substr(at, bar - at);
        part.remove_prefix(part.substr(0, 1) == ":" ? 1 : 0);
        if (part.empty()) {
            return {};
        }
        parts.push_back(part);
        at = bar + 1;
    }
    return parts;
}

// The way up through first parents, the node itself left out; topmost first.
std::vector<Node*> firstWayUp(const Graph& graph, const Node& node) {
    std::vector<Node*> way;
    const Node* at = &node;
    while (!at->parents().empty() && at->parents().front() != &graph.world()) {
        at = at->parents().front();
        way.push_back(const_cast<Node*>(at));
    }
    std::reverse(way.begin(), way.end());
    return way;
}

DagPath firstPath(const Graph& graph, Node& node) {
    DagPath path{firstWayUp(graph, node)};
    path.nodes.push_back(&node);
    return path;
}

bool hasOnePath(const Node& node, const Graph& graph) {
    const Node* at = &node;
    while (at != &graph.world()) {
        if (at->parents().size() != 1) {
            return false;
        }
        at = at->parents().front();
    }
    return true;
}

std::string joinLast(const DagPath& path, std::size_t count) {
    std::string name;
    for (std::size_t at = path.nodes.size() - count; at < path.nodes.size(); ++at) {
        name += name.empty() ? "" : "|";
        name += path.nodes[at]->name();
    }
    return name;
}

} // namespace

Node* SceneNames::walkDown(Node* from, const std::vector<std::string_view>& parts, std::size_t first,
                           DagPath& path) const {
    for (std::size_t at = first; at < parts.size() && from != nullptr; ++at) {
        from = child(*from, parts[at]);
        path.nodes.push_back(from);
    }
    return from;
}

// Level by level, each node once: the number of ways may be exponential, the number of nodes is not.
bool SceneNames::matchUpwards(const std::vector<std::string_view>& parts, std::size_t last, Node* from,
                              EndMatch& match) const {
    using Level = std::vector<std::pair<Node*, std::size_t>>; // a node, and from which node of the level below it came
    std::vector<Level> levels{{{from, 0}}};
    for (std::size_t part = last; part-- > 0;) {
        Level level;
        std::unordered_set<const Node*> seen;
        for (std::size_t below = 0; below < levels.back().size(); ++below) {
            for (Node* parent : levels.back()[below].first->parents()) {
                if (parent == &graph_.world() || parent->name() != parts[part]) {
                    continue;
                }
                match.isOnlyWay = match.isOnlyWay && level.empty();
                if (seen.insert(parent).second) {
                    level.emplace_back(parent, below);
                }
            }
        }
        if (level.empty()) {
            return false;
        }
        levels.push_back(std::move(level));
    }
    std::size_t at = 0;
    for (std::size_t level = levels.size(); level-- > 0; at = levels[level][at].second) {
        match.nodes.nodes.push_back(levels[level][at].first);
    }
    return true;
}

// The part that fewest nodes bear decides where to begin, so that many nodes of one name cost nothing below parents
// whose names are rare.
std::vector<SceneNames::EndMatch> SceneNames::endsMatching(const std::vector<std::string_view>& parts,
                                                           std::size_t limit) const {
    std::size_t rarest = 0;
    auto fewest = static_cast<std::size_t>(-1);
    for (std::size_t part = 0; part < parts.size() && fewest > 1; ++part) {
        const Bearers* holders = bearers(parts[part]);
        const std::size_t count = holders != nullptr ? holders->count() : 0;
        if (count < fewest) {
            fewest = count;
            rarest = part;
        }
    }
    std::vector<EndMatch> matches;
    const Bearers* holders = parts.empty() ? nullptr : bearers(parts[rarest]);
    const auto consider = [&](Node* node) {
        EndMatch match;
        if (!matchUpwards(parts, rarest, node, match) || walkDown(node, parts, rarest + 1, match.nodes) == nullptr) {
            return true;
        }
        const auto same = std::find_if(matches.begin(), matches.end(),
                                       [&](const EndMatch& other) { return other.nodes.end() == match.nodes.end(); });
        if (same != matches.end()) {
            same->isOnlyWay = false;
        } else {
            matches.push_back(std::move(match));
        }
        return matches.size() < limit;
    };
    if (holders != nullptr && holders->single != nullptr) {
        consider(holders->single);
    } else if (holders != nullptr) {
        (void)std::all_of(holders->more->begin(), holders->more->end(), consider);
    }
    return matches;
}

NodeMatch SceneNames::findAbsolute(std::string_view name) const {
    if (name.find('|') == std::string_view::npos) {
        const Bearers* holders = bearers(name.substr(name.substr(0, 1) == ":" ? 1 : 0));
        if (holders == nullptr) {
            return noMatch(name);
        }
        return holders->single != nullptr ? NodeMatch{holders->single, false, {}} : manyMatches(name);
    }
    DagPath ignored;
    if (name.front() == '|') {
        const std::vector<std::string_view> parts = splitPath(name.substr(1));
        Node* found = parts.empty() ? nullptr : walkDown(&graph_.world(), parts, 0, ignored);
        return found != nullptr ? NodeMatch{found, false, {}} : noMatch(name);
    }
    const std::vector<EndMatch> matches = endsMatching(splitPath(name), 2);
    if (matches.size() == 1) {
        return {matches[0].nodes.end(), false, {}};
    }
    return matches.empty() ? noMatch(name) : manyMatches(name);
}

NodeMatch SceneNames::findInScope(std::string_view name, std::string& absolute) const {
    absolute = scope_.pathOf(name);
    NodeMatch match = findAbsolute(absolute);
    if (match.ok() || match.isAmbiguous) {
        return match;
    }
    NodeMatch outside = findAbsolute(name);
    if (outside.ok() && (!scope_.isReference || outside.node->isDefault)) {
        absolute = name;
        return outside;
    }
    return match;
}

NodeMatch SceneNames::findNode(std::string_view name) const {
    std::string absolute;
    return scope_.isPlain() ? findAbsolute(name) : findInScope(name, absolute);
}

NodeMatch SceneNames::findPath(std::string_view name, DagPath& path) const {
    path.nodes.clear();
    std::string absolute;
    NodeMatch match = scope_.isPlain() ? findAbsolute(name) : findInScope(name, absolute);
    name = scope_.isPlain() ? name : std::string_view(absolute);
    if (!match.ok() || !match.node->isDag()) {
        return match;
    }
    if (name.find('|') == std::string_view::npos) {
        path = firstPath(graph_, *match.node);
    } else if (name.front() == '|') {
        walkDown(&graph_.world(), splitPath(name.substr(1)), 0, path);
    } else {
        const EndMatch found = endsMatching(splitPath(name), 1).front();
        path.nodes = firstWayUp(graph_, *found.nodes.nodes.front());
        path.nodes.insert(path.nodes.end(), found.nodes.nodes.begin(), found.nodes.nodes.end());
    }
    return match;
}

std::string SceneNames::shortestName(const Node& node) const {
    const Bearers* holders = bearers(node.name());
    if (holders != nullptr && holders->single != nullptr) {
        return node.name();
    }
    const DagPath path = firstPath(graph_, const_cast<Node&>(node));
    for (std::size_t count = 2; count <= path.nodes.size(); ++count) {
        std::string name = joinLast(path, count);
        if (findAbsolute(name).ok()) {
            return name;
        }
    }
    return fullPathName(path);
}

std::string SceneNames::shortestName(const DagPath& path) const {
    std::vector<std::string_view> parts;
    for (std::size_t count = 1; count <= path.nodes.size(); ++count) {
        parts.insert(parts.begin(), path.nodes[path.nodes.size() - count]->name());
        const std::vector<EndMatch> matches = endsMatching(parts, 2);
        const Node* top = path.nodes[path.nodes.size() - count];
        if (matches.size() == 1 && matches[0].isOnlyWay && hasOnePath(*top, graph_)) {
            return joinLast(path, count);
        }
    }
    return fullPathName(path); // the whole path without its '|' in front stands for other paths that end alike, too
}

bool matchesPattern(std::string_view pattern, std::string_view name) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::string_view::npos; // the last '*' that was met, and where its run began
    std::size_t run = 0;
    while (in < name.size()) {
        const bool isBoundary = name[in] == ':' || name[in] == '|';
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            run = in;
        } else if (at < pattern.size() && (pattern[at] == name[in] || (pattern[at] == '?' && !isBoundary))) {
            ++at;
            ++in;
        } else if (star != std::string_view::npos && name[run] != ':' && name[run] != '|') {
            in = ++run;
            at = star + 1;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

} // namespace host
