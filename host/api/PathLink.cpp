#include "host/api/PathLink.h"

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace host {

namespace {

bool isParent(const Node& parent, const Node& child) {
    const std::vector<Node*>& parents = child.parents();
    return std::find(parents.begin(), parents.end(), &parent) != parents.end();
}

bool isBelow(const PathLink& link) {
    const Node* node = ApiAccess::node(link.node);
    const Node* parent = link.above ? ApiAccess::node(link.above->node) : &Host::instance().graph().world();
    return node != nullptr && parent != nullptr && isParent(*parent, *node);
}

} // namespace

PathLink::PathLink(const MObject& end, std::shared_ptr<const PathLink> way)
    : node(end), above(std::move(way)), length(above ? above->length + 1 : 1) {}

// A loop: the links of a deep path, each freeing the next, would not fit the stack.
PathLink::~PathLink() {
    std::shared_ptr<const PathLink> next = std::move(above);
    while (next && next.use_count() == 1) {
        next = std::shared_ptr<const PathLink>(std::move(next->above));
    }
}

bool isSameWay(const PathLink* a, const PathLink* b) {
    while (a != b) {
        if (a == nullptr || b == nullptr || a->length != b->length || a->node != b->node) {
            return false;
        }
        a = a->above.get();
        b = b->above.get();
    }
    return true;
}

bool isWhole(const PathLink& end) {
    const std::uint64_t now = Host::instance().graph().lossOfParents();
    for (const PathLink* link = &end; link != nullptr && link->foundWhole != now; link = link->above.get()) {
        if (!isBelow(*link)) {
            return false;
        }
    }
    for (const PathLink* link = &end; link != nullptr && link->foundWhole != now; link = link->above.get()) {
        link->foundWhole = now;
    }
    return true;
}

} // namespace host
