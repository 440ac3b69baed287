#include "host/graph/Graph.h"

#include "host/graph/DirtyPropagation.h"
#include "host/graph/GraphImpl.h"
#include "host/graph/parsePlugPath.h"
#include "host/graph/plugSteps.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

/// Attributes of a time node that hold the current time.
constexpr const char* kTimeOutputs[] = {"outTime", "unwarpedTime"};

} // namespace

Graph::Graph(NodeTypeRegistry& types) : types_(types), impl_(std::make_unique<Impl>()) {
    const NodeType* type = types.find("world");
    if (type == nullptr) {
        impl_->worldType = std::make_unique<NodeType>("world", nullptr, 0);
        impl_->worldType->dagRole = DagRole::kWorld;
        type = impl_->worldType.get();
    }
    impl_->slots.emplace_back();
    impl_->slots[0].node = std::make_unique<Node>(NodeId{0, impl_->slots[0].generation}, *type, "world");
}

Graph::~Graph() = default;

// --- nodes

Node& Graph::create(const NodeType& type, std::string name) {
    std::uint32_t slot = 0;
    if (impl_->freeSlots.empty()) {
        slot = static_cast<std::uint32_t>(impl_->slots.size());
        impl_->slots.emplace_back();
    } else {
        slot = impl_->freeSlots.back();
        impl_->freeSlots.pop_back();
    }
    Impl::Slot& place = impl_->slots[slot];
    place.node = std::make_unique<Node>(NodeId{slot, place.generation}, type, std::move(name));
    place.place = impl_->order.size();
    Node& node = *place.node;
    impl_->order.push_back(&node);
    if (type.timeDriven) {
        impl_->timeDriven.insert(&node);
    }
    if (type.isKindOf("time")) {
        impl_->timeNodes.insert(&node);
        storeTime(node);
    }
    return node;
}

void Graph::destroy(Node& node) {
    if (&node == &world()) {
        return;
    }
    DirtyPropagation dropped(*impl_);
    const std::vector<Node*> gone = takeOutOfDag(node, dropped);
    for (Node* each : gone) {
        disconnectAll(*each, dropped);
        untie(*each, dropped);
    }
    dropped.run();
    for (Node* each : gone) {
        release(*each);
    }
}

void Graph::release(Node& node) {
    Impl::Slot& slot = impl_->slots[node.id().slot];
    impl_->cachedCount -= node.cache_.size();
    impl_->timeDriven.erase(&node);
    impl_->timeNodes.erase(&node);
    impl_->pathsBefore.erase(&node);
    impl_->order[slot.place] = nullptr;
    ++impl_->goneNodes;
    impl_->freeSlots.push_back(node.id().slot);
    ++slot.generation;
    slot.node.reset();
}

void Graph::rename(Node& node, std::string name) {
    node.name_ = std::move(name);
}

Node* Graph::node(NodeId id) const {
    const bool known = id.slot < impl_->slots.size() && impl_->slots[id.slot].generation == id.generation;
    return known ? impl_->slots[id.slot].node.get() : nullptr;
}

const std::vector<Node*>& Graph::nodes() const {
    std::vector<Node*>& order = impl_->order;
    if (impl_->goneNodes != 0) {
        order.erase(std::remove(order.begin(), order.end(), nullptr), order.end());
        for (std::size_t place = 0; place < order.size(); ++place) {
            impl_->slots[order[place]->id().slot].place = place;
        }
        impl_->goneNodes = 0;
    }
    return order;
}

Node& Graph::world() const {
    return *impl_->slots[0].node;
}

// --- names

PlugAddress Graph::findPlug(const Node& node, std::string_view path, std::int32_t instance) const {
    const PlugRange found = findPlugRange(node, path, instance);
    return found.isRange ? PlugAddress{} : found.at;
}

std::string Graph::plugName(const Node& node, const PlugAddress& at, bool longNames) const {
    std::vector<AttrIndex> shown;
    for (AttrIndex attr = at.attr; attr != kNoAttr; attr = node.attribute(attr).parent) {
        if (attr == at.attr || node.attribute(attr).array) {
            shown.push_back(attr);
        }
    }
    std::string name;
    int level = 0;
    for (auto attr = shown.rbegin(); attr != shown.rend(); ++attr) {
        const Attribute& attribute = node.attribute(*attr);
        name += name.empty() ? "" : ".";
        name += longNames || attribute.shortName.empty() ? attribute.longName : attribute.shortName;
        if (attribute.array && level < at.depth) {
            name += "[" + std::to_string(at.index[static_cast<std::size_t>(level++)]) + "]";
        }
    }
    return name;
}

std::string messageName(const Graph& graph, const Plug& plug) {
    return plug.node->name() + "." + graph.plugName(*plug.node, plug.at, true);
}

void Graph::setFlags(const Plug& plug, const PlugFlags& flags) {
    if (!flags.locked && !flags.keyable && !flags.channelBox) {
        plug.node->flags_.erase(plug.at);
    } else {
        plug.node->flags_[plug.at] = flags;
    }
}

void Graph::setAlias(Node& node, std::string alias, const PlugAddress& at) {
    node.aliases_[std::move(alias)] = at;
}

// --- change and time

void Graph::changed(const Plug& plug) {
    if (impl_->cachedCount == 0) {
        return;
    }
    DirtyPropagation dropped(*impl_);
    dropped.add(plug);
    dropped.run();
}

void Graph::storeTime(Node& timeNode) {
    for (const char* name : kTimeOutputs) {
        const AttrIndex attr = timeNode.type().find(name);
        if (attr != kNoAttr) {
            timeNode.values_.at(attr) = static_cast<double>(time_);
        }
    }
}

void Graph::setTime(Ticks time) {
    if (time == time_) {
        return;
    }
    time_ = time;
    for (Node* node : impl_->timeNodes) {
        storeTime(*node);
    }
    dropTimeDriven();
}

void Graph::setFramesPerSecond(double frames) {
    if (frames != framesPerSecond_) {
        framesPerSecond_ = frames;
        dropTimeDriven();
    }
}

void Graph::dropTimeDriven() {
    if (impl_->cachedCount == 0) {
        return;
    }
    DirtyPropagation dropped(*impl_);
    for (Node* node : impl_->timeNodes) {
        for (const char* name : kTimeOutputs) {
            dropped.add({node, {node->type().find(name), 0, {}}});
        }
    }
    for (Node* node : impl_->timeDriven) {
        const Plug input{node, {node->type().timeInput, 0, {}}};
        if (!drivingSource(input)) {
            dropped.add(input);
        }
    }
    dropped.run();
}

// --- reporting

void Graph::warn(const std::string& text) const {
    if (impl_->said.insert(text).second && onWarning) {
        onWarning(text);
    }
}

void Graph::forgetWarnings() {
    impl_->said.clear();
}

std::size_t Graph::computeCount() const {
    return impl_->computeCount;
}

std::size_t Graph::dropCount() const {
    return impl_->dropCount;
}

bool Graph::isCached(const Plug& output) const {
    return output && output.node->cache_.count(output.at) != 0;
}

} // namespace host
