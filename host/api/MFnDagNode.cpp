#include <maya/MFnDagNode.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/dagQueries.h"
#include "host/api/statusResult.h"
#include "host/api/values/imathConversions.h"

#include <maya/MDagPathArray.h>

#include <algorithm>

using host::ApiAccess;
using host::fail;
using host::Host;
using host::Node;
using host::report;
using host::succeed;

MFnDagNode::MFnDagNode() = default;
MFnDagNode::~MFnDagNode() = default;

MFnDagNode::MFnDagNode(const MObject& object, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnDagNode::setObject(object));
}

MFnDagNode::MFnDagNode(const MDagPath& path, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnDagNode::setObject(path));
}

namespace {

/// Answers a question to the attached node when it is there.
template <class T, class Answer>
T ask(const MObject& object, MStatus* status, Answer answer) {
    const Node* node = ApiAccess::node(object);
    return node != nullptr ? succeed<T>(status, answer(*node)) : fail<T>(status, MStatus::kFailure);
}

bool contains(const std::vector<Node*>& nodes, const MObject& wanted) {
    return std::find(nodes.begin(), nodes.end(), ApiAccess::node(wanted)) != nodes.end();
}

/// The n-th of the nodes around one, `nodes` a member of Node.
template <class Nodes>
MObject nth(const MObject& object, unsigned int index, Nodes nodes, MStatus* status) {
    const Node* node = ApiAccess::node(object);
    if (node == nullptr || index >= (node->*nodes)().size()) {
        return fail<MObject>(status, node == nullptr ? MStatus::kFailure : MStatus::kInvalidParameter);
    }
    return succeed(status, ApiAccess::object((node->*nodes)()[index]));
}

} // namespace

MFn::Type MFnDagNode::type() const {
    return MFn::kDagNode;
}

MStatus MFnDagNode::setObject(const MObject& object) {
    const MStatus status = MFnBase::setObject(object);
    if (status == MStatus::kSuccess) {
        path_ = MDagPath();
    }
    return status;
}

MStatus MFnDagNode::setObject(const MDagPath& path) {
    const MObject node = path.node();
    const MStatus status = MFnBase::setObject(node);
    if (status == MStatus::kSuccess) {
        path_ = path;
    }
    return status;
}

unsigned int MFnDagNode::childCount(MStatus* ReturnStatus) const {
    return ask<unsigned int>(object_, ReturnStatus,
                             [](const Node& node) { return static_cast<unsigned int>(node.children().size()); });
}

MObject MFnDagNode::child(unsigned int index, MStatus* ReturnStatus) const {
    return nth(object_, index, &Node::children, ReturnStatus);
}

unsigned int MFnDagNode::parentCount(MStatus* ReturnStatus) const {
    return ask<unsigned int>(object_, ReturnStatus,
                             [](const Node& node) { return static_cast<unsigned int>(node.parents().size()); });
}

MObject MFnDagNode::parent(unsigned int index, MStatus* ReturnStatus) const {
    return nth(object_, index, &Node::parents, ReturnStatus);
}

bool MFnDagNode::hasParent(const MObject& node, MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [&](const Node& own) { return contains(own.parents(), node); });
}

bool MFnDagNode::hasChild(const MObject& node, MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [&](const Node& own) { return contains(own.children(), node); });
}

bool MFnDagNode::isChildOf(const MObject& node, MStatus* ReturnStatus) const {
    const Node* other = ApiAccess::node(node);
    return ask<bool>(object_, ReturnStatus, [&](const Node& own) {
        return other != nullptr && other->isDag() && other != &own && Host::instance().graph().isAncestor(*other, own);
    });
}

bool MFnDagNode::isParentOf(const MObject& node, MStatus* ReturnStatus) const {
    const Node* other = ApiAccess::node(node);
    return ask<bool>(object_, ReturnStatus, [&](const Node& own) {
        return other != nullptr && other->isDag() && other != &own && Host::instance().graph().isAncestor(own, *other);
    });
}

MObject MFnDagNode::dagRoot(MStatus* ReturnStatus) const {
    return ask<MObject>(object_, ReturnStatus,
                        [](const Node&) { return ApiAccess::object(Host::instance().graph().world()); });
}

MString MFnDagNode::fullPathName(MStatus* ReturnStatus) const {
    MDagPath path;
    return getPath(path) == MStatus::kSuccess ? path.fullPathName(ReturnStatus)
                                              : fail<MString>(ReturnStatus, MStatus::kFailure);
}

MString MFnDagNode::partialPathName(MStatus* ReturnStatus) const {
    MDagPath path;
    return getPath(path) == MStatus::kSuccess ? path.partialPathName(ReturnStatus)
                                              : fail<MString>(ReturnStatus, MStatus::kFailure);
}

MStatus MFnDagNode::getPath(MDagPath& path) const {
    if (path_.isValid()) {
        path = path_;
        return MStatus::kSuccess;
    }
    return MDagPath::getAPathTo(object_, path) == MStatus::kSuccess ? MStatus::kSuccess : MStatus::kFailure;
}

MDagPath MFnDagNode::dagPath(MStatus* ReturnStatus) const {
    return path_.isValid() ? succeed(ReturnStatus, path_) : fail<MDagPath>(ReturnStatus, MStatus::kFailure);
}

MStatus MFnDagNode::getAllPaths(MDagPathArray& paths) const {
    return MDagPath::getAllPathsTo(object_, paths) == MStatus::kSuccess ? MStatus::kSuccess : MStatus::kFailure;
}

bool MFnDagNode::isIntermediateObject(MStatus* ReturnStatus) const {
    Node* node = ApiAccess::node(object_);
    return node == nullptr ? fail<bool>(ReturnStatus, MStatus::kFailure)
                           : succeed(ReturnStatus, host::numberOf(*node, "intermediateObject").value_or(0.0) != 0.0);
}

bool MFnDagNode::isInstanced(bool indirect, MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [&](const Node& node) { return host::isInstanced(node, indirect); });
}

unsigned int MFnDagNode::instanceCount(bool total, MStatus* ReturnStatus) const {
    return ask<unsigned int>(object_, ReturnStatus, [&](const Node& node) {
        return static_cast<unsigned int>(total ? host::pathCount(Host::instance().graph(), node)
                                               : node.parents().size());
    });
}

bool MFnDagNode::inModel(MStatus* ReturnStatus) const {
    return ask<bool>(object_, ReturnStatus, [](const Node& node) {
        const Node& world = Host::instance().graph().world();
        return &node == &world || Host::instance().graph().isAncestor(world, node);
    });
}

MMatrix MFnDagNode::transformationMatrix(MStatus* ReturnStatus) const {
    Node* node = ApiAccess::node(object_);
    if (node == nullptr) {
        return fail<MMatrix>(ReturnStatus, MStatus::kFailure);
    }
    const host::AttrIndex matrix = host::isTransform(*node) ? node->findAttribute("matrix") : host::kNoAttr;
    if (matrix == host::kNoAttr) {
        return succeed(ReturnStatus, MMatrix());
    }
    return succeed(ReturnStatus, host::api::fromImath(Host::instance().graph().matrix({node, {matrix, 0, {}}})));
}
