#include <maya/MFnDependencyNode.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/plugNames.h"
#include "host/api/statusResult.h"

#include <maya/MPlugArray.h>

#include <set>

using host::ApiAccess;
using host::AttrIndex;
using host::fail;
using host::Host;
using host::kNoAttr;
using host::Node;
using host::Plug;
using host::PlugAddress;
using host::succeed;

MFnDependencyNode::MFnDependencyNode() = default;
MFnDependencyNode::~MFnDependencyNode() = default;

MFnDependencyNode::MFnDependencyNode(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnDependencyNode::setObject(object));
}

namespace {

/// Answers a question to the attached node when it is there.
template <class T, class Answer>
T ask(const MObject& object, MStatus* status, Answer answer) {
    Node* node = ApiAccess::node(object);
    return node != nullptr ? succeed<T>(status, answer(*node)) : fail<T>(status, MStatus::kFailure);
}

MString text(const std::string& value) {
    return MString(value.c_str());
}

/// An attribute of the node by name: alone, an alias, or at the end of a path.
PlugAddress findAddress(const Node& node, const MString& name) {
    const std::string path = name.asChar();
    const auto alias = node.aliases().find(path);
    if (alias != node.aliases().end()) {
        return alias->second;
    }
    if (path.find_first_of(".[") != std::string::npos) {
        return Host::instance().graph().findPlug(node, path);
    }
    return {node.findAttribute(path), 0, {}};
}

MPlug plugAt(Node* node, const PlugAddress& at, MStatus* status) {
    return at.attr == kNoAttr ? fail<MPlug>(status, MStatus::kInvalidParameter)
                              : succeed(status, ApiAccess::plug(Plug{node, at}));
}

} // namespace

MFn::Type MFnDependencyNode::type() const {
    return MFn::kDependencyNode;
}

MString MFnDependencyNode::name(MStatus* ReturnStatus) const {
    return ask<MString>(object_, ReturnStatus, [](const Node& node) { return text(node.name()); });
}

MString MFnDependencyNode::absoluteName(MStatus* ReturnStatus) const {
    return ask<MString>(object_, ReturnStatus, [](const Node& node) { return text(":" + node.name()); });
}

MString MFnDependencyNode::setName(const MString& name, MStatus* ReturnStatus) {
    Node* node = ApiAccess::node(object_);
    if (node == nullptr || !Host::instance().scene().renameNode(*node, name.asChar()).ok()) {
        return fail<MString>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, text(node->name()));
}

MString MFnDependencyNode::uniqueName(MStatus* ReturnStatus) const {
    return ask<MString>(object_, ReturnStatus,
                        [](const Node& node) { return text(Host::instance().scene().names().shortestName(node)); });
}

MString MFnDependencyNode::typeName(MStatus* ReturnStatus) const {
    return ask<MString>(object_, ReturnStatus, [](const Node& node) { return text(node.type().name()); });
}

MString MFnDependencyNode::parentNamespace(MStatus* ReturnStatus) const {
    return ask<MString>(object_, ReturnStatus, [](const Node& node) {
        const std::size_t colon = node.name().rfind(':');
        return colon == std::string::npos ? MString() : text(node.name().substr(0, colon));
    });
}

bool MFnDependencyNode::hasUniqueName(MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [](const Node& node) {
        return Host::instance().scene().names().nodesNamed(node.name()).size() == 1;
    });
}

bool MFnDependencyNode::isDefaultNode(MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [](const Node& node) { return node.isDefault; });
}

bool MFnDependencyNode::isFromReferencedFile(MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [](const Node& node) { return node.isFromReference; });
}

unsigned int MFnDependencyNode::attributeCount(MStatus* ReturnStatus) const {
    return ask<unsigned int>(object_, ReturnStatus,
                             [](const Node& node) { return static_cast<unsigned int>(node.attributeCount()); });
}

MObject MFnDependencyNode::attribute(unsigned int index, MStatus* ReturnStatus) const {
    const Node* node = ApiAccess::node(object_);
    if (node == nullptr || index >= static_cast<unsigned int>(node->attributeCount())) {
        return fail<MObject>(ReturnStatus, MStatus::kInvalidParameter);
    }
    return succeed(ReturnStatus, ApiAccess::attributeObject(*node, static_cast<AttrIndex>(index)));
}

MObject MFnDependencyNode::attribute(const MString& name, MStatus* ReturnStatus) const {
    const Node* node = ApiAccess::node(object_);
    const AttrIndex attr = node != nullptr ? findAddress(*node, name).attr : kNoAttr;
    return attr == kNoAttr ? fail<MObject>(ReturnStatus, MStatus::kInvalidParameter)
                           : succeed(ReturnStatus, ApiAccess::attributeObject(*node, attr));
}

bool MFnDependencyNode::hasAttribute(const MString& name, MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus,
                     [&](const Node& node) { return node.findAttribute(name.asChar()) != kNoAttr; });
}

MPlug MFnDependencyNode::findPlug(const MString& name, bool, MStatus* ReturnStatus) const {
    Node* node = ApiAccess::node(object_);
    return node == nullptr ? fail<MPlug>(ReturnStatus, MStatus::kFailure)
                           : plugAt(node, findAddress(*node, name), ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MObject& attribute, bool, MStatus* ReturnStatus) const {
    Node* node = ApiAccess::node(object_);
    return node == nullptr ? fail<MPlug>(ReturnStatus, MStatus::kFailure)
                           : plugAt(node, PlugAddress{ApiAccess::attributeOn(*node, attribute), 0, {}}, ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MString& name, MStatus* ReturnStatus) const {
    return findPlug(name, true, ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MObject& attribute, MStatus* ReturnStatus) const {
    return findPlug(attribute, true, ReturnStatus);
}

MStatus MFnDependencyNode::getConnections(MPlugArray& plugs) const {
    plugs.clear();
    Node* node = ApiAccess::node(object_);
    if (node == nullptr) {
        return MStatus::kFailure;
    }
    std::set<PlugAddress> connected;
    for (const auto& [at, source] : node->incoming()) {
        connected.insert(at);
    }
    for (const auto& [at, destination] : node->outgoing()) {
        connected.insert(at);
    }
    for (const PlugAddress& at : connected) {
        plugs.append(ApiAccess::plug(Plug{node, at}));
    }
    return connected.empty() ? MStatus::kFailure : MStatus::kSuccess;
}

MString MFnDependencyNode::plugsAlias(const MPlug& plug, MStatus* ReturnStatus) const {
    const Node* node = ApiAccess::node(object_);
    const Plug place = ApiAccess::plug(plug);
    if (node == nullptr || place.node != node) {
        return fail<MString>(ReturnStatus, MStatus::kInvalidParameter);
    }
    for (const auto& [alias, at] : node->aliases()) {
        if (at == place.at) {
            return succeed(ReturnStatus, text(alias));
        }
    }
    return succeed(ReturnStatus, MString());
}

bool MFnDependencyNode::findAlias(const MString& alias, MObject& attribute, MStatus* ReturnStatus) const {
    const Node* node = ApiAccess::node(object_);
    if (node == nullptr) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    const auto found = node->aliases().find(alias.asChar());
    if (found == node->aliases().end()) {
        return succeed(ReturnStatus, false);
    }
    attribute = ApiAccess::attributeObject(*node, found->second.attr);
    return succeed(ReturnStatus, true);
}

bool MFnDependencyNode::getAliasList(MStringArray& pairs, MStatus* ReturnStatus) {
    pairs.clear();
    return ask<bool>(object_, ReturnStatus, [&](const Node& node) {
        for (const auto& [alias, at] : node.aliases()) {
            pairs.append(text(alias));
            pairs.append(text(host::plugPath(node, at, {true, false, true, false})));
        }
        return pairs.length() != 0;
    });
}
