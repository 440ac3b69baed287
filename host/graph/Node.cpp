#include "host/graph/Node.h"

#include <algorithm>
#include <utility>

namespace host {

Node::Node(NodeId id, const NodeType& type, std::string name) : id_(id), type_(&type), name_(std::move(name)) {}

AttrIndex Node::attributeCount() const {
    return static_cast<AttrIndex>(type_->attributes().size() + dynamic_.size());
}

const Attribute& Node::attribute(AttrIndex attr) const {
    const auto index = static_cast<std::size_t>(attr);
    const std::size_t ofType = type_->attributes().size();
    return index < ofType ? type_->attributes()[index] : dynamic_[index - ofType];
}

AttrIndex Node::findAttribute(std::string_view attrName) const {
    const AttrIndex ofType = type_->find(attrName);
    if (ofType != kNoAttr || attrName.empty() || (dynamicByName_.empty() && aliases_.empty())) {
        return ofType;
    }
    const std::string key(attrName);
    if (const auto found = dynamicByName_.find(key); found != dynamicByName_.end()) {
        return found->second;
    }
    const auto alias = aliases_.find(key);
    return alias == aliases_.end() ? kNoAttr : alias->second.attr;
}

AttrIndex Node::addAttribute(Attribute attribute) {
    const bool namesFree = !attribute.longName.empty() && findAttribute(attribute.longName) == kNoAttr &&
                           (attribute.shortName.empty() || findAttribute(attribute.shortName) == kNoAttr);
    const auto ofType = static_cast<AttrIndex>(type_->attributes().size());
    const bool hasParent = attribute.parent != kNoAttr;
    if (!namesFree || (hasParent && (attribute.parent < ofType || attribute.parent >= attributeCount()))) {
        return kNoAttr;
    }
    Attribute* parent = hasParent ? &dynamic_[static_cast<std::size_t>(attribute.parent - ofType)] : nullptr;
    attribute.dynamic = true;
    placeAttribute(attribute, parent);
    if ((parent != nullptr && parent->kind != AttrKind::kCompound) || attribute.arrayDepth > PlugAddress::kMaxDepth) {
        return kNoAttr;
    }
    const AttrIndex index = attributeCount();
    if (parent != nullptr) {
        joinCompound(*parent, attribute, index);
        dropStoredArray(attribute.parent);
    }
    dynamicByName_.emplace(attribute.longName, index);
    if (!attribute.shortName.empty()) {
        dynamicByName_.emplace(attribute.shortName, index);
    }
    dynamic_.push_back(std::move(attribute));
    return index;
}

void Node::dropStoredArray(AttrIndex compound) {
    AttrIndex outermost = kNoAttr;
    for (AttrIndex at = compound; at != kNoAttr; at = attribute(at).parent) {
        outermost = attribute(at).array ? at : outermost;
    }
    if (outermost != kNoAttr) {
        values_.erase(outermost);
    }
}

const PlugFlags* Node::flags(const PlugAddress& at) const {
    const auto found = flags_.find(at);
    return found == flags_.end() ? nullptr : &found->second;
}

void Node::closeChildGaps() const {
    std::uint32_t place = 0;
    for (Node* child : children_) {
        if (child == nullptr) {
            continue;
        }
        const auto here = std::find(child->parents_.begin(), child->parents_.end(), this) - child->parents_.begin();
        child->placeInParent_[static_cast<std::size_t>(here)] = place;
        children_[place++] = child;
    }
    children_.resize(place);
    goneChildren_ = 0;
}

} // namespace host
