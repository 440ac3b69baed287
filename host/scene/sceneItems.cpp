#include "host/geometry/ComponentList.h"
#include "host/graph/parsePlugPath.h"
#include "host/scene/Scene.h"
#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

// A name's parts: "|a|b" and what stands behind the first '.'.
struct ItemName {
    std::string_view node, rest;
};

ItemName splitItem(std::string_view name) {
    const std::size_t dot = name.find('.');
    return dot == std::string_view::npos ? ItemName{name, {}} : ItemName{name.substr(0, dot), name.substr(dot + 1)};
}

// Whether the names of the path's end match the parts of a pattern, last to last; all of them for a full path.
bool matchesPath(std::string_view pattern, const DagPath& path) {
    const bool isFull = pattern.substr(0, 1) == "|";
    std::size_t depth = path.nodes.size();
    while (true) {
        const std::size_t bar = pattern.rfind('|');
        const std::string_view part = pattern.substr(bar == std::string_view::npos ? 0 : bar + 1);
        if (depth == 0 || !matchesPattern(part, path.nodes[--depth]->name())) {
            return false;
        }
        if (bar == std::string_view::npos || bar == 0) {
            return !isFull || depth == 0;
        }
        pattern = pattern.substr(0, bar);
    }
}

std::vector<SelectionItem> matchingNodes(const Graph& graph, std::string_view pattern) {
    std::vector<SelectionItem> items;
    const std::size_t bar = pattern.rfind('|');
    const std::string_view last = pattern.substr(bar == std::string_view::npos ? 0 : bar + 1);
    for (Node* node : graph.nodes()) {
        if (!matchesPattern(last, node->name()) || (bar != std::string_view::npos && !node->isDag())) {
            continue;
        }
        if (!node->isDag()) {
            items.push_back({node, {}, {}, {}});
            continue;
        }
        for (DagPath& path : allPaths(graph, *node)) {
            if (bar == std::string_view::npos || matchesPath(pattern, path)) {
                items.push_back({node, std::move(path), {}, {}});
                if (bar == std::string_view::npos) {
                    break; // a node's name alone is the node, not each of its paths
                }
            }
        }
    }
    return items;
}

// Components belong to the shape, which the name of its transform stands for.
bool goToShape(const Graph& graph, SelectionItem& item) {
    if (item.node->type().dagRole == DagRole::kShape) {
        return true;
    }
    for (Node* child : item.node->children()) {
        const AttrIndex attr = child->findAttribute("intermediateObject");
        const bool isShown =
            attr == kNoAttr || const_cast<Graph&>(graph).number({child, PlugAddress{attr, 0, {}}}) == 0.0;
        if (child->type().dagRole == DagRole::kShape && isShown) {
            item.node = child;
            item.path.nodes.push_back(child);
            return true;
        }
    }
    return false;
}

// Adds what stands behind the '.'; false when the item has no such thing.
bool applyRest(const Graph& graph, std::string_view rest, SelectionItem& item) {
    ComponentRange component;
    if (item.node->isDag() && parseComponent(rest, component) && goToShape(graph, item)) {
        item.components = {std::string(rest)};
        return true;
    }
    const PlugRange range = findPlugRange(*item.node, rest, 0);
    item.plug = range.isRange ? PlugAddress() : range.at;
    return static_cast<bool>(range) && !range.isRange;
}

} // namespace

std::int32_t Scene::instanceOf(const Node& node, std::string_view name) const {
    if (!node.isDag() || name.find('|') == std::string_view::npos || pathCount(*graph_, node) < 2) {
        return 0;
    }
    DagPath path;
    return names_->findPath(name, path).ok() ? std::max(0, instanceNumber(*graph_, path)) : 0;
}

Scene::PlugMatch Scene::findPlug(std::string_view name, Node* current) const {
    const auto [nodeName, path] = splitItem(name);
    PlugMatch match;
    NodeMatch found{current, false, {}};
    if (!nodeName.empty()) {
        found = names_->findNode(nodeName);
    } else if (current == nullptr) {
        found.error = messages::text(messages::kNoObject, {name});
    }
    if (!found.ok()) {
        match.error = std::move(found.error);
        return match;
    }
    const std::int32_t instance = nodeName.empty() ? 0 : instanceOf(*found.node, nodeName);
    match.plug = {found.node, graph_->findPlug(*found.node, path, instance)};
    if (!match.plug) {
        match.error = messages::text(messages::kNoAttribute, {name});
        return match;
    }
    const Attribute& attribute = found.node->attribute(match.plug.at.attr);
    if (attribute.worldSpace && match.plug.at.depth < attribute.arrayDepth) {
        match.plug.at = match.plug.at.element(instance);
    }
    return match;
}

SceneResult Scene::findItems(std::string_view name, std::vector<SelectionItem>& items) const {
    const auto [nodeName, rest] = splitItem(name);
    std::vector<SelectionItem> found;
    if (isPattern(nodeName)) {
        found = matchingNodes(*graph_, nodeName);
    } else {
        SelectionItem item;
        NodeMatch match = names_->findPath(nodeName, item.path);
        if (!match.ok()) {
            return {messages::text(match.isAmbiguous ? messages::kManyObjects : messages::kNoObject, {name})};
        }
        item.node = match.node;
        found.push_back(std::move(item));
    }
    const std::size_t before = items.size();
    for (SelectionItem& item : found) {
        if (rest.data() == nullptr || applyRest(*graph_, rest, item)) {
            items.push_back(std::move(item));
        }
    }
    return items.size() > before ? SceneResult() : SceneResult{messages::text(messages::kNoObject, {name})};
}

std::string Scene::itemName(const SelectionItem& item, bool fullPaths) const {
    std::string name = item.node->name();
    if (item.node->isDag()) {
        const bool hasPath = !item.path.nodes.empty();
        if (fullPaths) {
            name = fullPathName(hasPath ? item.path : allPaths(*graph_, *item.node).front());
        } else {
            name = hasPath ? names_->shortestName(item.path) : names_->shortestName(*item.node);
        }
    }
    if (item.plug.attr != kNoAttr) {
        name += "." + graph_->plugName(*item.node, item.plug, true);
    }
    return name;
}

} // namespace host
