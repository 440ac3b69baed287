#include "host/graph/DagPath.h"
#include "host/graph/DirtyPropagation.h"
#include "host/graph/Graph.h"
#include "host/graph/GraphImpl.h"
#include "host/graph/PathCounter.h"
#include "host/graph/plugSteps.h"
#include "host/graph/storedValues.h"

#include <algorithm>
#include <limits>

namespace host {

namespace {

bool holdsAnyData(const Attribute& attribute) {
    return attribute.dataKind == DataKind::kNone || attribute.dataKind == DataKind::kOther;
}

/// Whether values of one attribute mean anything to another. Scenes connect numbers of every kind, hand whole compounds
/// and object groups to the message inputs of sets, and generic attributes take anything.
bool areCompatible(const Attribute& source, const Attribute& destination) {
    const auto either = [&](AttrKind kind) { return source.kind == kind || destination.kind == kind; };
    const auto both = [&](AttrKind kind) { return source.kind == kind && destination.kind == kind; };
    if (either(AttrKind::kGeneric) || both(AttrKind::kMessage)) {
        return true;
    }
    if (destination.kind == AttrKind::kMessage) {
        return source.kind == AttrKind::kCompound;
    }
    if (both(AttrKind::kCompound)) {
        return source.children.size() == destination.children.size();
    }
    if (both(AttrKind::kData)) {
        return source.dataKind == destination.dataKind || holdsAnyData(source) || holdsAnyData(destination);
    }
    return source.kind == destination.kind || (isNumeric(source.kind) && isNumeric(destination.kind));
}

/// Whether a plug can be one end of a connection: everything has an index, or nothing but the last array has none.
bool isComplete(const Node& node, const PlugAddress& at) {
    return isOneValue(node, at) || (isWholeArray(node, at) && (at.depth == 0 || isOneValue(node, ownerOf(node, at))));
}

/// The first address in `links` at or below `prefix` among those of attribute `attr`.
template <typename Links>
auto firstBelow(const Links& links, AttrIndex attr, const PlugAddress& prefix) {
    return links.lower_bound({attr, prefix.depth, prefix.index});
}

template <typename Links>
bool hasLinkBelow(const Node& node, const Links& links, const PlugAddress& prefix) {
    if (links.empty()) {
        return false;
    }
    const std::vector<AttrIndex> attrs = withDescendants(node, prefix.attr);
    return std::any_of(attrs.begin(), attrs.end(), [&](AttrIndex attr) {
        const auto link = firstBelow(links, attr, prefix);
        return link != links.end() && link->first.attr == attr && sharesIndices(prefix, link->first);
    });
}

template <typename Links>
void addIndicesBelow(const Node& node, const Links& links, const PlugAddress& array,
                     std::vector<std::int32_t>& indices) {
    const auto level = static_cast<std::size_t>(array.depth);
    for (const AttrIndex attr : withDescendants(node, array.attr)) {
        auto link = firstBelow(links, attr, array);
        for (; link != links.end() && link->first.attr == attr && sharesIndices(array, link->first); ++link) {
            const std::int32_t index = link->first.index[level];
            if (link->first.depth > array.depth && (indices.empty() || indices.back() != index)) {
                indices.push_back(index);
            }
        }
    }
}

void addStoredIndices(const Value* value, std::vector<std::int32_t>& indices) {
    if (value == nullptr) {
        return;
    }
    if (const auto* rows = std::get_if<std::unique_ptr<NumberRows>>(value)) {
        for (std::size_t row = 0; row < (*rows)->rowCount(); ++row) {
            indices.push_back((*rows)->logicalIndex(row));
        }
    } else if (const auto* elements = std::get_if<std::unique_ptr<ElementArray>>(value)) {
        for (const auto& element : (*elements)->elements) {
            indices.push_back(element.first);
        }
    }
}

} // namespace

// --- connecting

GraphResult Graph::checkEnds(const Plug& source, const Plug& destination) const {
    for (const Plug* plug : {&source, &destination}) {
        if (!*plug) {
            return {"There is no such plug to connect"};
        }
        if (!isComplete(*plug->node, plug->at)) {
            return {messageName(*this, *plug) + " names no element of its array"};
        }
    }
    const Attribute& from = source.node->attribute(source.at.attr);
    const Attribute& to = destination.node->attribute(destination.at.attr);
    if (!from.readable) {
        return {messageName(*this, source) + " cannot be the source of a connection"};
    }
    if (!to.writable || source == destination) {
        return {messageName(*this, destination) + " cannot be the destination of this connection"};
    }
    const bool wholeToWhole = isWholeArray(*source.node, source.at) == isWholeArray(*destination.node, destination.at);
    if (!wholeToWhole || !areCompatible(from, to)) {
        return {messageName(*this, source) + " and " + messageName(*this, destination) +
                " hold different kinds of value"};
    }
    return {};
}

GraphResult Graph::connect(const Plug& source, const Plug& destination, bool force) {
    if (GraphResult ends = checkEnds(source, destination); !ends.ok()) {
        return ends;
    }
    Node& node = *destination.node;
    const auto present = node.incoming_.find(destination.at);
    if (present != node.incoming_.end() && present->second == source) {
        return {};
    }
    if (isLocked(destination)) {
        return {messageName(*this, destination) + " is locked"};
    }
    if (present != node.incoming_.end()) {
        if (!force) {
            return {messageName(*this, destination) + " is connected to " + messageName(*this, present->second) +
                    " already"};
        }
        takeConnection(node, destination.at);
    }
    IncomingLink link{source, source.node->outgoing_.emplace(source.at, destination)};
    node.incoming_.emplace(destination.at, link);
    changed(destination);
    return {};
}

GraphResult Graph::disconnect(const Plug& source, const Plug& destination) {
    if (!source || !destination || sourceOf(destination) != source) {
        const std::string from = source ? messageName(*this, source) : "nothing";
        const std::string to = destination ? messageName(*this, destination) : "nothing";
        return {from + " is not connected to " + to};
    }
    takeConnection(*destination.node, destination.at);
    changed(destination);
    return {};
}

void Graph::takeConnection(Node& destinationNode, const PlugAddress& destination) {
    const auto link = destinationNode.incoming_.find(destination);
    const Plug source = link->second;
    source.node->outgoing_.erase(link->second.outgoing);
    destinationNode.incoming_.erase(link);
    noteFreed(source);
    noteFreed({&destinationNode, destination});
}

void Graph::disconnectAll(Node& node, DirtyPropagation& dropped) {
    while (!node.incoming_.empty()) {
        const PlugAddress destination = node.incoming_.begin()->first;
        takeConnection(node, destination);
    }
    while (!node.outgoing_.empty()) {
        const Plug destination = node.outgoing_.begin()->second;
        takeConnection(*destination.node, destination.at);
        dropped.add(destination);
    }
}

// --- asking

Plug Graph::sourceOf(const Plug& destination) const {
    if (!destination) {
        return {};
    }
    const auto found = destination.node->incoming_.find(destination.at);
    return found == destination.node->incoming_.end() ? Plug{} : found->second;
}

Plug Graph::drivingSource(const Plug& destination) const {
    if (!destination || destination.node->incoming_.empty()) {
        return {};
    }
    const Node& node = *destination.node;
    for (PlugAddress at = destination.at; at.attr != kNoAttr; at = ownerOf(node, at)) {
        const auto found = node.incoming_.find(at);
        if (found == node.incoming_.end()) {
            continue;
        }
        if (const Plug match = matchingBelow(node, at, destination.at, found->second)) {
            return match;
        }
    }
    return {};
}

std::vector<Plug> Graph::destinationsOf(const Plug& source) const {
    std::vector<Plug> destinations;
    if (source) {
        const auto [first, last] = source.node->outgoing_.equal_range(source.at);
        for (auto link = first; link != last; ++link) {
            destinations.push_back(link->second);
        }
    }
    return destinations;
}

bool Graph::isDriven(const Plug& plug) const {
    if (!plug || plug.node->incoming_.empty()) {
        return false;
    }
    return hasLinkBelow(*plug.node, plug.node->incoming_, plug.at) || isOwnerConnected(plug);
}

bool Graph::isOwnerConnected(const Plug& plug) const {
    const Node& node = *plug.node;
    for (PlugAddress at = plug.at; at.attr != kNoAttr; at = ownerOf(node, at)) {
        if (node.incoming_.count(at) != 0) {
            return true;
        }
    }
    return false;
}

bool Graph::isLocked(const Plug& plug) const {
    const Node& node = *plug.node;
    if (node.flags_.empty()) {
        return false;
    }
    for (PlugAddress at = plug.at; at.attr != kNoAttr; at = ownerOf(node, at)) {
        const PlugFlags* flags = node.flags(at);
        if (flags != nullptr && flags->locked) {
            return true;
        }
    }
    return false;
}

// --- elements of arrays

bool Graph::isElementUsed(const Plug& element) const {
    const Node& node = *element.node;
    return isElementStored(node, node.values_, element.at) || hasLinkBelow(node, node.incoming_, element.at) ||
           hasLinkBelow(node, node.outgoing_, element.at);
}

/// An element may have become free: remembers it for every array on the way that is being asked about.
void Graph::noteFreed(const Plug& plug) {
    Node& node = *plug.node;
    if (node.freeIndices_.empty()) {
        return;
    }
    for (PlugAddress at = plug.at; at.attr != kNoAttr; at = ownerOf(node, at)) {
        const auto array = node.freeIndices_.find(ownerOf(node, at));
        const std::int32_t index = at.depth > 0 ? at.index[static_cast<std::size_t>(at.depth - 1)] : 0;
        if (array != node.freeIndices_.end() && array->first.attr == at.attr && index < array->second.highWater) {
            array->second.freed.insert(index);
        }
    }
}

std::int32_t Graph::nextAvailableIndex(const Plug& array) const {
    if (!array || !isWholeArray(*array.node, array.at)) {
        return 0;
    }
    FreeIndices& free = array.node->freeIndices_[array.at];
    while (!free.freed.empty()) {
        const std::int32_t index = *free.freed.begin();
        if (!isElementUsed({array.node, array.at.element(index)})) {
            return index;
        }
        free.freed.erase(free.freed.begin());
    }
    while (free.highWater < std::numeric_limits<std::int32_t>::max() &&
           isElementUsed({array.node, array.at.element(free.highWater)})) {
        ++free.highWater;
    }
    return free.highWater;
}

std::vector<std::int32_t> Graph::elementIndices(const Plug& array) const {
    std::vector<std::int32_t> indices;
    if (!array || !isWholeArray(*array.node, array.at)) {
        return indices;
    }
    const Node& node = *array.node;
    addStoredIndices(findStored(node, node.values_, array.at).value, indices);
    addIndicesBelow(node, node.incoming_, array.at, indices);
    addIndicesBelow(node, node.outgoing_, array.at, indices);
    if (node.attribute(array.at.attr).worldSpace && node.isDag()) {
        const std::size_t paths = std::min(PathCounter(*this).count(node), kPathLimit);
        for (std::size_t path = 0; path < paths; ++path) {
            indices.push_back(static_cast<std::int32_t>(path));
        }
    }
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    return indices;
}

} // namespace host
