#include "host/graph/DirtyPropagation.h"
#include "host/graph/Graph.h"
#include "host/graph/GraphImpl.h"
#include "host/graph/PathCounter.h"

#include <algorithm>
#include <unordered_set>

namespace host {

namespace {

/// A node with more parents than this is looked for among the children of the parent when they are fewer.
constexpr std::size_t kManyParents = 16;

bool hasParent(const Node& node, const Node& parent) {
    const auto& parents = node.parents();
    if (parents.size() <= kManyParents || parents.size() <= parent.children().size()) {
        return std::find(parents.begin(), parents.end(), &parent) != parents.end();
    }
    const auto& children = parent.children();
    return std::find(children.begin(), children.end(), &node) != children.end();
}

} // namespace

bool Graph::isAncestor(const Node& ancestor, const Node& node) const {
    std::vector<const Node*> open(node.parents_.begin(), node.parents_.end());
    std::unordered_set<const Node*> seen;
    while (!open.empty()) {
        const Node* next = open.back();
        open.pop_back();
        if (next == &ancestor) {
            return true;
        }
        if (seen.insert(next).second) {
            open.insert(open.end(), next->parents_.begin(), next->parents_.end());
        }
    }
    return false;
}

std::uint64_t Graph::lossOfParents() const {
    return impl_->lossOfParents;
}

GraphResult Graph::addParent(Node& node, Node& parent) {
    for (const Node* each : {&node, &parent}) {
        if (!each->isDag()) {
            return {each->name() + " has no place in the DAG"};
        }
    }
    if (node.type().dagRole == DagRole::kWorld) {
        return {"The world cannot be placed below " + parent.name()};
    }
    if (parent.type().dagRole == DagRole::kShape) {
        return {parent.name() + " is a shape, nothing can be placed below it"};
    }
    if (hasParent(node, parent)) {
        return {node.name() + " is below " + parent.name() + " already"};
    }
    // A node without children can only be above itself.
    if (&node == &parent || (!node.children().empty() && isAncestor(node, parent))) {
        return {node.name() + " cannot be placed below itself"};
    }
    PathCounter(*this).parentComes(node, parent);
    node.parents_.push_back(&parent);
    node.placeInParent_.push_back(static_cast<std::uint32_t>(parent.children_.size()));
    parent.children_.push_back(&node);
    if (!node.worldDropped_) {
        DirtyPropagation dropped(*impl_);
        dropped.addPlace(node);
        dropped.run();
    }
    return {};
}

GraphResult Graph::removeParent(Node& node, Node& parent) {
    const auto found = std::find(node.parents_.begin(), node.parents_.end(), &parent);
    if (found == node.parents_.end()) {
        return {node.name() + " is not below " + parent.name()};
    }
    takeFromParent(node, static_cast<std::size_t>(found - node.parents_.begin()));
    DirtyPropagation dropped(*impl_);
    dropped.addPlace(node);
    dropped.run();
    return {};
}

void Graph::takeFromParent(Node& node, std::size_t parentIndex) {
    const auto at = static_cast<std::ptrdiff_t>(parentIndex);
    Node& parent = *node.parents_[parentIndex];
    parent.children_[node.placeInParent_[parentIndex]] = nullptr;
    ++parent.goneChildren_;
    node.parents_.erase(node.parents_.begin() + at);
    node.placeInParent_.erase(node.placeInParent_.begin() + at);
    PathCounter(*this).parentWent(node);
    impl_->lossOfParents = ++Impl::lastLoss;
}

/// Takes a node, and all below it that have no other place, out of the DAG; they are the result.
std::vector<Node*> Graph::takeOutOfDag(Node& node, DirtyPropagation& dropped) {
    while (!node.parents_.empty()) {
        takeFromParent(node, node.parents_.size() - 1);
    }
    std::vector<Node*> gone{&node};
    for (std::size_t next = 0; next < gone.size(); ++next) {
        Node& parent = *gone[next];
        const std::vector<Node*> children = parent.children();
        for (Node* child : children) {
            const auto found = std::find(child->parents_.begin(), child->parents_.end(), &parent);
            takeFromParent(*child, static_cast<std::size_t>(found - child->parents_.begin()));
            if (child->parents_.empty()) {
                gone.push_back(child);
            } else {
                dropped.addPlace(*child);
            }
        }
    }
    return gone;
}

} // namespace host
