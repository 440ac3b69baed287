#include "host/api/ApiAccess.h"

#include "host/api/Host.h"
#include "host/api/PathLink.h"
#include "host/api/componentKinds.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

template <class T>
T* payloadOf(const std::shared_ptr<ObjectPayload>& payload) {
    return payload ? std::get_if<T>(&payload->what) : nullptr;
}

/// The topmost type of the chain that has the attribute already: attributes keep their places in derived types.
const NodeType& declaringType(const NodeType& type, AttrIndex attr) {
    const NodeType* found = &type;
    while (found->parent() != nullptr && static_cast<std::size_t>(attr) < found->parent()->attributes().size()) {
        found = found->parent();
    }
    return *found;
}

} // namespace

MObject ApiAccess::object(const Node& node) {
    MObject result;
    result.slot_ = node.id().slot;
    result.generation_ = node.id().generation;
    return result;
}

MObject ApiAccess::object(const Node* node) {
    return node == nullptr ? MObject() : object(*node);
}

Node* ApiAccess::node(const MObject& object) {
    if (object.payload_ || (object.slot_ == 0 && object.generation_ == 0)) {
        return nullptr;
    }
    return Host::instance().graph().node({object.slot_, object.generation_});
}

MObject ApiAccess::object(ObjectPayload payload) {
    MObject result;
    result.payload_ = std::make_shared<ObjectPayload>(std::move(payload));
    return result;
}

const AttributeObject* ApiAccess::attribute(const MObject& object) {
    return payloadOf<AttributeObject>(object.payload_);
}

DataObject* ApiAccess::data(const MObject& object) {
    return payloadOf<DataObject>(object.payload_);
}

ComponentObject* ApiAccess::component(const MObject& object) {
    return payloadOf<ComponentObject>(object.payload_);
}

PluginObject* ApiAccess::plugin(const MObject& object) {
    return payloadOf<PluginObject>(object.payload_);
}

MObject ApiAccess::attributeObject(const Node& node, AttrIndex attr) {
    AttributeObject attribute;
    attribute.attr = attr;
    if (node.attribute(attr).dynamic) {
        attribute.node = node.id();
    } else {
        attribute.type = &declaringType(node.type(), attr);
    }
    return object(ObjectPayload{attribute});
}

AttrIndex ApiAccess::attributeOn(const Node& node, const MObject& object) {
    const AttributeObject* attribute = ApiAccess::attribute(object);
    if (attribute == nullptr || attribute->attr >= node.attributeCount()) {
        return kNoAttr;
    }
    const bool has = attribute->type != nullptr ? node.type().isKindOf(*attribute->type) : attribute->node == node.id();
    return has ? attribute->attr : kNoAttr;
}

const Attribute* ApiAccess::attributeRow(const MObject& object) {
    const AttributeObject* attribute = ApiAccess::attribute(object);
    if (attribute == nullptr) {
        return nullptr;
    }
    if (attribute->type != nullptr) {
        return &attribute->type->attributes()[static_cast<std::size_t>(attribute->attr)];
    }
    const Node* node = Host::instance().graph().node(attribute->node);
    return node != nullptr && attribute->attr < node->attributeCount() ? &node->attribute(attribute->attr) : nullptr;
}

MPlug ApiAccess::plug(const Plug& plug) {
    MPlug result;
    if (plug) {
        result.node_ = object(*plug.node);
        result.attribute_ = plug.at.attr;
        result.depth_ = plug.at.depth;
        result.index_ = plug.at.index;
    }
    return result;
}

Plug ApiAccess::plug(const MPlug& plug) {
    Node* node = ApiAccess::node(plug.node_);
    if (node == nullptr || plug.attribute_ < 0 || plug.attribute_ >= node->attributeCount()) {
        return {};
    }
    return {node, PlugAddress{plug.attribute_, plug.depth_, plug.index_}};
}

MDagPath ApiAccess::path(const DagPath& path) {
    MDagPath result;
    result.set_ = true;
    for (const Node* node : path.nodes) {
        result.end_ = std::make_shared<PathLink>(object(*node), std::move(result.end_));
    }
    return result;
}

std::optional<DagPath> ApiAccess::path(const MDagPath& path) {
    if (end(path) == nullptr) {
        return std::nullopt;
    }
    DagPath result;
    result.nodes.resize(path.end_ ? path.end_->length : 0);
    const PathLink* link = path.end_.get();
    for (auto place = result.nodes.rbegin(); place != result.nodes.rend(); ++place) {
        *place = node(link->node);
        link = link->above.get();
    }
    return result;
}

Node* ApiAccess::end(const MDagPath& path) {
    if (!path.set_ || (path.end_ && !isWhole(*path.end_))) {
        return nullptr;
    }
    return path.end_ ? node(path.end_->node) : &Host::instance().graph().world();
}

void ApiAccess::append(MSelectionList& list, const SelectionItem& item) {
    MSelectionList::Entry entry;
    entry.node = object(item.node);
    if (item.node->isDag()) {
        entry.path = path(item.path);
    }
    if (item.plug.attr != kNoAttr) {
        entry.plug = plug({item.node, item.plug});
    }
    if (item.components.empty()) {
        list.entries_.push_back(entry);
        return;
    }
    for (ComponentObject& component : componentsByKind(item.components, *item.node)) {
        entry.component = object(ObjectPayload{std::move(component)});
        list.entries_.push_back(entry);
    }
}

std::vector<SelectionItem> ApiAccess::items(const MSelectionList& list) {
    std::vector<SelectionItem> items;
    for (const MSelectionList::Entry& entry : list.entries_) {
        SelectionItem item;
        item.node = node(entry.node);
        const std::optional<DagPath> dagPath = path(entry.path);
        if (item.node == nullptr || (item.node->isDag() && !dagPath)) {
            continue;
        }
        item.path = dagPath.value_or(DagPath());
        item.plug = plug(entry.plug).at;
        if (const ComponentObject* component = ApiAccess::component(entry.component)) {
            item.components = componentTexts(*component);
        }
        items.push_back(std::move(item));
    }
    return items;
}

void ApiAccess::setValue(MCommandResult& result, mel::Value value) {
    *result.value_ = std::move(value);
}

} // namespace host
