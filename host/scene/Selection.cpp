#include "host/scene/Selection.h"

#include <algorithm>

namespace host {

namespace {

bool runsThrough(const SelectionItem& item, const std::unordered_set<const Node*>& nodes) {
    return nodes.count(item.node) != 0 || std::any_of(item.path.nodes.begin(), item.path.nodes.end(),
                                                      [&](const Node* node) { return nodes.count(node) != 0; });
}

void addComponents(std::vector<std::string>& to, const std::vector<std::string>& components) {
    for (const std::string& component : components) {
        if (std::find(to.begin(), to.end(), component) == to.end()) {
            to.push_back(component);
        }
    }
}

} // namespace

bool SelectionItem::sameObject(const SelectionItem& other) const {
    return node == other.node && plug == other.plug && components.empty() == other.components.empty() &&
           path == other.path;
}

const std::vector<SelectionItem>& Selection::items() const {
    if (hasHoles_) {
        items_.erase(std::remove_if(items_.begin(), items_.end(),
                                    [](const SelectionItem& item) { return item.node == nullptr; }),
                     items_.end());
        positions_.clear();
        for (std::size_t at = 0; at < items_.size(); ++at) {
            positions_.emplace(items_[at].node, at);
        }
        hasHoles_ = false;
    }
    return items_;
}

std::size_t Selection::find(const SelectionItem& item) const {
    const auto [first, last] = positions_.equal_range(item.node);
    const auto found =
        std::find_if(first, last, [&](const auto& entry) { return items_[entry.second].sameObject(item); });
    return found == last ? items_.size() : found->second;
}

bool Selection::contains(const SelectionItem& item) const {
    return find(item) != items_.size();
}

void Selection::add(const SelectionItem& item) {
    const std::size_t known = find(item);
    if (known != items_.size()) {
        addComponents(items_[known].components, item.components);
        return;
    }
    positions_.emplace(item.node, items_.size());
    items_.push_back(item);
}

void Selection::erase(std::size_t position) {
    const auto [first, last] = positions_.equal_range(items_[position].node);
    positions_.erase(std::find_if(first, last, [&](const auto& entry) { return entry.second == position; }));
    items_[position] = SelectionItem();
    hasHoles_ = true;
}

void Selection::remove(const SelectionItem& item) {
    const std::size_t position = find(item);
    if (position == items_.size()) {
        return;
    }
    std::vector<std::string>& components = items_[position].components;
    for (const std::string& component : item.components) {
        components.erase(std::remove(components.begin(), components.end(), component), components.end());
    }
    if (components.empty()) {
        erase(position);
    }
}

void Selection::clear() {
    items_.clear();
    positions_.clear();
    hasHoles_ = false;
}

void Selection::nodesDeleted(const std::unordered_set<const Node*>& nodes) {
    for (std::size_t at = 0; at < items_.size(); ++at) {
        if (items_[at].node != nullptr && runsThrough(items_[at], nodes)) {
            erase(at);
        }
    }
}

} // namespace host
