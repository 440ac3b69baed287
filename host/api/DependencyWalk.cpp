#include "host/api/DependencyWalk.h"

#include "host/api/ApiAccess.h"
#include "host/api/iteratorFilter.h"

#include <algorithm>

namespace host {

namespace {

/// Whether a change at `input` shows at `output` (both on `node`), as far as the type tells.
bool affects(const Node& node, AttrIndex input, AttrIndex output) {
    const NodeType& type = node.type();
    const auto row = static_cast<std::size_t>(input);
    if (row >= type.affects.size() || type.affects[row].empty()) {
        return node.attribute(output).computed || input == output;
    }
    const std::vector<AttrIndex>& outputs = type.affects[row];
    return input == output || std::find(outputs.begin(), outputs.end(), output) != outputs.end();
}

} // namespace

MStatus DependencyWalk::begin(const MObject& node, const MPlug& plug, const Order& wanted) {
    steps_.clear();
    waiting_.clear();
    met_.clear();
    done_ = true;
    pruned = false;
    rootNode = node;
    rootPlug = plug;
    order = wanted;
    if (ApiAccess::node(node) == nullptr || (wanted.byPlug && plug.isNull())) {
        return MStatus::kInvalidParameter;
    }
    steps_.push_back({node, plug, MPlug(), 0});
    met_.insert({ApiAccess::node(node), wanted.byPlug ? ApiAccess::plug(plug).at : PlugAddress{}});
    waiting_.push_back(0);
    done_ = false;
    advance();
    return done_ ? MStatus::kFailure : MStatus::kSuccess;
}

bool DependencyWalk::next() {
    if (done_) {
        return false;
    }
    if (!pruned) {
        follow(at_);
    }
    advance();
    return true;
}

/// Takes the next waiting item that passes the filter; what does not pass is walked through, unless it prunes.
void DependencyWalk::advance() {
    pruned = false;
    while (!waiting_.empty()) {
        at_ = waiting_.front();
        waiting_.pop_front();
        if (passes(filter, steps_[at_].node)) {
            return;
        }
        if (!pruneOnFilter || at_ == 0) {
            follow(at_);
        }
    }
    done_ = true;
}

void DependencyWalk::follow(std::size_t from) {
    Node* node = ApiAccess::node(steps_[from].node);
    if (node == nullptr) {
        return;
    }
    const Plug arrival = ApiAccess::plug(steps_[from].arrival);
    std::vector<std::size_t> found;
    const auto isReached = [&](AttrIndex attr) {
        const bool anyPlug = !arrival || (!order.byPlug && from != 0); // a root plug narrows a walk over nodes, too
        if (anyPlug || attr == arrival.at.attr) {
            return true;
        }
        return order.upstream ? affects(*node, attr, arrival.at.attr) : affects(*node, arrival.at.attr, attr);
    };
    const auto go = [&](const PlugAddress& here, const Plug& there) {
        if (isReached(here.attr)) {
            meet(from, ApiAccess::plug(there), ApiAccess::plug(Plug{node, here}), found);
        }
    };
    if (order.upstream) {
        for (const auto& [here, there] : node->incoming()) {
            go(here, there);
        }
    } else {
        for (const auto& [here, there] : node->outgoing()) {
            go(here, there);
        }
    }
    const auto place = order.breadthFirst ? waiting_.end() : waiting_.begin();
    waiting_.insert(place, found.begin(), found.end());
}

/// Node by node a node counts once; plug by plug, each of its plugs.
void DependencyWalk::meet(std::size_t from, const MPlug& arrival, const MPlug& departure,
                          std::vector<std::size_t>& found) {
    const Plug place = ApiAccess::plug(arrival);
    const PlugAddress key = order.byPlug ? place.at : PlugAddress{};
    if (!met_.insert({place.node, key}).second) {
        return;
    }
    found.push_back(steps_.size());
    steps_.push_back({arrival.node(), arrival, departure, from});
}

} // namespace host
