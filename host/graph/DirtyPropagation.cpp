#include "host/graph/DirtyPropagation.h"

#include "host/graph/plugSteps.h"

#include <algorithm>

namespace host {

void DirtyPropagation::add(const Plug& plug) {
    if (plug && seen_.insert(plug).second) {
        open_.push_back(plug);
    }
}

void DirtyPropagation::addPlace(Node& node) {
    openPlaces_.push_back(&node);
}

void DirtyPropagation::run() {
    while (!open_.empty() || !openPlaces_.empty()) {
        ++graph_.dropCount;
        if (open_.empty()) {
            Node* node = openPlaces_.back();
            openPlaces_.pop_back();
            dropWorldOutputs(*node);
        } else {
            const Plug plug = open_.back();
            open_.pop_back();
            visit(plug);
        }
    }
}

void DirtyPropagation::visit(const Plug& plug) {
    Node& node = *plug.node;
    for (const AttrIndex attr : withDescendants(node, plug.at.attr)) {
        if (node.attribute(attr).computed) {
            dropOutput(node, attr);
        } else {
            dropAffected(node, attr);
        }
        followParts(node, attr, plug.at);
    }
    followOwners(plug);
}

void DirtyPropagation::dropAffected(Node& node, AttrIndex input) {
    for (const AttrIndex output : node.type().outputsAffectedBy(input)) {
        dropOutput(node, output);
    }
}

void DirtyPropagation::dropOutput(Node& node, AttrIndex output) {
    if (!dropped_.insert({&node, output}).second) {
        return;
    }
    for (const AttrIndex attr : withDescendants(node, output)) {
        const auto first = node.cache_.lower_bound({attr, 0, {}});
        auto end = first;
        for (; end != node.cache_.end() && end->first.attr == attr; ++end) {
            const Plug plug{&node, end->first};
            followParts(node, attr, plug.at);
            followOwners(plug);
            --graph_.cachedCount;
        }
        node.cache_.erase(first, end);
        if (graph_.everGaveUp) {
            followParts(node, attr, {attr, 0, {}});
        }
    }
    const std::vector<AttrIndex>& placed = node.type().worldOutputs();
    if (std::find(placed.begin(), placed.end(), output) != placed.end()) {
        openPlaces_.push_back(&node);
    }
}

void DirtyPropagation::dropWorldOutputs(Node& node) {
    const bool below = graph_.everGaveUp ? seenPlaces_.insert(&node).second : !node.worldDropped_;
    if (!below) {
        return;
    }
    node.worldDropped_ = true;
    for (const AttrIndex output : node.type().worldOutputs()) {
        dropOutput(node, output);
    }
    const std::vector<Node*>& children = node.children();
    openPlaces_.insert(openPlaces_.end(), children.begin(), children.end());
}

void DirtyPropagation::followParts(Node& node, AttrIndex attr, const PlugAddress& prefix) {
    auto link = node.outgoing_.lower_bound({attr, prefix.depth, prefix.index});
    for (; link != node.outgoing_.end() && link->first.attr == attr && sharesIndices(prefix, link->first); ++link) {
        add(link->second);
    }
    if (node.ties_ != nullptr) {
        const auto& followers = node.ties_->followers;
        auto tied = followers.lower_bound({attr, prefix.depth, prefix.index});
        for (; tied != followers.end() && tied->first.attr == attr && sharesIndices(prefix, tied->first); ++tied) {
            add(tied->second);
        }
    }
}

void DirtyPropagation::followOwners(const Plug& plug) {
    Node& node = *plug.node;
    if (node.outgoing_.empty() && node.ties_ == nullptr) {
        return;
    }
    for (PlugAddress owner = ownerOf(node, plug.at); owner.attr != kNoAttr; owner = ownerOf(node, owner)) {
        const auto [first, last] = node.outgoing_.equal_range(owner);
        for (auto link = first; link != last; ++link) {
            add(matchingBelow(node, owner, plug.at, link->second));
        }
        if (node.ties_ != nullptr) {
            const auto [firstTied, lastTied] = node.ties_->followers.equal_range(owner);
            for (auto tied = firstTied; tied != lastTied; ++tied) {
                add(tied->second);
            }
        }
    }
}

} // namespace host
