#include "host/graph/PathCounter.h"

#include "host/graph/GraphImpl.h"

#include <limits>
#include <vector>

namespace host {

namespace {

constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
/// From so many parents on, sums over a node's parents are kept instead of added up again for every path.
constexpr std::size_t kManyParents = 16;

std::size_t addUp(std::size_t a, std::size_t b) {
    return a > kMost - b ? kMost : a + b;
}

} // namespace

bool PathCounter::isKnown(const Node& node) const {
    return node.pathVersion_ == graph_.impl_->dagVersion;
}

void PathCounter::know(const Node& node, std::size_t count) const {
    node.pathCount_ = count;
    node.pathVersion_ = graph_.impl_->dagVersion;
}

void PathCounter::sumUp(const Node& node) const {
    std::size_t sum = node.parents_.empty() ? 1 : 0;
    for (const Node* parent : node.parents_) {
        sum = addUp(sum, parent->pathCount_);
    }
    know(node, sum);
}

std::size_t PathCounter::count(const Node& node) const {
    std::vector<const Node*> open{&node};
    while (!open.empty()) {
        const Node& next = *open.back();
        const std::size_t before = open.size();
        if (!isKnown(next)) {
            for (const Node* parent : next.parents_) {
                if (!isKnown(*parent)) {
                    open.push_back(parent);
                }
            }
        }
        if (open.size() != before) {
            continue; // its parents first
        }
        if (!isKnown(next)) {
            sumUp(next);
        }
        open.pop_back();
    }
    return node.pathCount_;
}

std::size_t PathCounter::before(const Node& node, const Node& parent) const {
    count(node); // makes every parent's count known
    if (node.parents_.size() < kManyParents) {
        std::size_t sum = 0;
        for (const Node* each : node.parents_) {
            if (each == &parent) {
                return sum;
            }
            sum = addUp(sum, each->pathCount_);
        }
        return kMost;
    }
    Graph::Impl::PathsBefore& kept = graph_.impl_->pathsBefore[&node];
    if (kept.version != graph_.impl_->dagVersion) {
        kept = {graph_.impl_->dagVersion, {}};
        std::size_t sum = 0;
        for (const Node* each : node.parents_) {
            kept.count[each] = sum;
            sum = addUp(sum, each->pathCount_);
        }
    }
    const auto found = kept.count.find(&parent);
    return found == kept.count.end() ? kMost : found->second;
}

void PathCounter::parentComes(Node& node, const Node& parent) const {
    graph_.impl_->pathsBefore.erase(&node);
    if (!node.children().empty()) {
        ++graph_.impl_->dagVersion;
    } else if (node.parents_.empty() && isKnown(parent)) {
        know(node, parent.pathCount_);
    } else if (isKnown(node) && isKnown(parent)) {
        know(node, addUp(node.pathCount_, parent.pathCount_));
    } else {
        node.pathVersion_ = 0;
    }
}

void PathCounter::parentWent(Node& node) const {
    graph_.impl_->pathsBefore.erase(&node);
    if (node.children().empty()) {
        node.pathVersion_ = 0;
    } else {
        ++graph_.impl_->dagVersion;
    }
}

} // namespace host
