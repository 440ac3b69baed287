#include "host/graph/DirtyPropagation.h"
#include "host/graph/Graph.h"
#include "host/graph/numberConversion.h"
#include "host/graph/plugSteps.h"

#include <algorithm>
#include <memory>

namespace host {

namespace {

using Links = std::multimap<PlugAddress, Plug>;

bool hasLink(const Links& links, const PlugAddress& from, const Plug& to) {
    const auto [first, last] = links.equal_range(from);
    return std::any_of(first, last, [&](const auto& link) { return link.second == to; });
}

void dropLinksTo(Links& links, const Node& node) {
    for (auto link = links.begin(); link != links.end();) {
        link = link->second.node == &node ? links.erase(link) : std::next(link);
    }
}

Ties& made(std::unique_ptr<Ties>& ties) {
    if (ties == nullptr) {
        ties = std::make_unique<Ties>();
    }
    return *ties;
}

} // namespace

void Graph::tie(const Plug& cause, const Plug& follower) {
    if (!cause || !follower || cause == follower) {
        return;
    }
    Links& followers = made(cause.node->ties_).followers;
    if (!hasLink(followers, cause.at, follower)) {
        followers.emplace(cause.at, follower);
        made(follower.node->ties_).causes.emplace(follower.at, cause);
        changed(follower);
    }
}

void Graph::overrideValue(const Plug& cause, const Plug& follower) {
    if (!cause || !follower || cause == follower) {
        return;
    }
    if (made(follower.node->ties_).overrides.emplace(follower.at, cause).second) {
        tie(cause, follower);
    }
}

void Graph::untie(Node& node, DirtyPropagation& dropped) {
    if (node.ties_ == nullptr) {
        return;
    }
    const std::unique_ptr<Ties> ties = std::move(node.ties_);
    for (const auto& [at, follower] : ties->followers) {
        if (follower.node == &node) {
            continue;
        }
        dropLinksTo(follower.node->ties_->causes, node);
        auto& overrides = follower.node->ties_->overrides;
        for (auto each = overrides.begin(); each != overrides.end();) {
            each = each->second.node == &node ? overrides.erase(each) : std::next(each);
        }
        dropped.add(follower);
    }
    for (const auto& [at, cause] : ties->causes) {
        if (cause.node != &node) {
            dropLinksTo(cause.node->ties_->followers, node);
        }
    }
}

Plug Graph::valueSource(const Plug& plug) const {
    if (plug && plug.node->ties_ != nullptr) {
        const Node& node = *plug.node;
        const std::map<PlugAddress, Plug>& overrides = node.ties_->overrides;
        for (PlugAddress at = plug.at; at.attr != kNoAttr; at = ownerOf(node, at)) {
            const auto found = overrides.find(at);
            if (found == overrides.end()) {
                continue;
            }
            if (const Plug match = matchingBelow(node, at, plug.at, found->second)) {
                return match;
            }
        }
    }
    return drivingSource(plug);
}

double Graph::numberBeneath(const Plug& plug) {
    if (!plug) {
        return 0.0;
    }
    const Plug source = drivingSource(plug);
    return source ? convertNumber(number(source), plug.node->attribute(plug.at.attr).kind) : numberAt(plug);
}

} // namespace host
