#include "host/graph/NodeType.h"

#include <algorithm>
#include <utility>

namespace host {

void placeAttribute(Attribute& attribute, const Attribute* parent) {
    attribute.arrayDepth = (parent != nullptr ? parent->arrayDepth : 0) + (attribute.array ? 1 : 0);
    attribute.rows = attribute.array && isNumeric(attribute.kind);
    attribute.computed = attribute.computed || (parent != nullptr && parent->computed);
}

void joinCompound(Attribute& compound, const Attribute& child, AttrIndex childIndex) {
    const bool plainNumber = isNumeric(child.kind) && !child.array;
    compound.rows = compound.array && plainNumber && (compound.children.empty() || compound.rows);
    compound.children.push_back(childIndex);
}

NodeType::NodeType(std::string name, const NodeType* parent, int apiType)
    : name_(std::move(name)), parent_(parent), apiType_(apiType) {
    if (parent == nullptr) {
        return;
    }
    compute = parent->compute;
    dagRole = parent->dagRole;
    timeDriven = parent->timeDriven;
    timeInput = parent->timeInput;
    affects = parent->affects;
    attributes_ = parent->attributes_;
    byName_ = parent->byName_;
    outputs_ = parent->outputs_;
    worldOutputs_ = parent->worldOutputs_;
}

AttrIndex NodeType::add(Attribute attribute) {
    const auto index = static_cast<AttrIndex>(attributes_.size());
    Attribute* parent =
        attribute.parent == kNoAttr ? nullptr : &attributes_[static_cast<std::size_t>(attribute.parent)];
    placeAttribute(attribute, parent);
    if (parent != nullptr) {
        joinCompound(*parent, attribute, index);
    }
    if (attribute.computed && (parent == nullptr || !parent->computed)) {
        outputs_.push_back(index);
        if (attribute.worldSpace) {
            worldOutputs_.push_back(index);
        }
    }
    byName_.emplace(attribute.longName, index);
    byName_.emplace(attribute.shortName, index);
    attributes_.push_back(std::move(attribute));
    return index;
}

bool NodeType::isKindOf(const NodeType& other) const {
    for (const NodeType* type = this; type != nullptr; type = type->parent_) {
        if (type == &other) {
            return true;
        }
    }
    return false;
}

bool NodeType::isKindOf(std::string_view typeName) const {
    for (const NodeType* type = this; type != nullptr; type = type->parent_) {
        if (type->name_ == typeName) {
            return true;
        }
    }
    return false;
}

AttrIndex NodeType::find(std::string_view name) const {
    const auto found = name.empty() ? byName_.end() : byName_.find(std::string(name));
    return found == byName_.end() ? kNoAttr : found->second;
}

const std::vector<AttrIndex>& NodeType::outputsAffectedBy(AttrIndex input) const {
    static const std::vector<AttrIndex> kNone;
    if (compute == nullptr || static_cast<std::size_t>(input) >= attributes_.size()) {
        return kNone;
    }
    for (AttrIndex at = input; at != kNoAttr; at = attributes_[static_cast<std::size_t>(at)].parent) {
        const auto entry = static_cast<std::size_t>(at);
        if (entry < affects.size() && !affects[entry].empty()) {
            return affects[entry].front() == kNoAttr ? kNone : affects[entry];
        }
    }
    return outputs_;
}

NodeType& NodeTypeRegistry::add(std::unique_ptr<NodeType> type) {
    types_.push_back(std::move(type));
    NodeType& added = *types_.back();
    byName_.emplace(added.name(), &added);
    return added;
}

const NodeType* NodeTypeRegistry::find(std::string_view name) const {
    const auto found = byName_.find(std::string(name));
    return found == byName_.end() ? nullptr : found->second;
}

const NodeType& NodeTypeRegistry::addUnknown(std::string_view name, std::string_view parent) {
    if (const NodeType* present = find(name)) {
        return *present;
    }
    const NodeType* base = find(parent);
    auto type = std::make_unique<NodeType>(std::string(name), base, base != nullptr ? base->apiType() : 0);
    type->known = false;
    return add(std::move(type));
}

} // namespace host
