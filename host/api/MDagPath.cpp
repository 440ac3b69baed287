#include <maya/MDagPath.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/PathLink.h"
#include "host/api/dagQueries.h"
#include "host/api/statusResult.h"
#include "host/api/values/imathConversions.h"

#include <maya/MDagPathArray.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

using host::ApiAccess;
using host::DagPath;
using host::fail;
using host::Host;
using host::Node;
using host::succeed;
using host::api::fromImath;

MDagPath::MDagPath() = default;
MDagPath::MDagPath(const MDagPath& other) = default;
MDagPath::~MDagPath() = default;
MDagPath& MDagPath::operator=(const MDagPath& other) = default;

namespace {

/// Answers a question to a path when it is valid.
template <class T, class Answer>
T ask(const MDagPath& path, MStatus* status, Answer answer) {
    const std::optional<DagPath> nodes = ApiAccess::path(path);
    return nodes ? succeed<T>(status, answer(*nodes)) : fail<T>(status, MStatus::kFailure);
}

/// Answers a question that only the end of a path matters to.
template <class T, class Answer>
T askEnd(const MDagPath& path, MStatus* status, Answer answer) {
    Node* const end = ApiAccess::end(path);
    return end != nullptr ? succeed<T>(status, answer(*end)) : fail<T>(status, MStatus::kFailure);
}

DagPath above(DagPath path) {
    if (!path.nodes.empty()) {
        path.nodes.pop_back();
    }
    return path;
}

std::vector<Node*> shapesBelow(const Node& end) {
    std::vector<Node*> shapes;
    const std::vector<Node*>& children = end.children();
    std::copy_if(children.begin(), children.end(), std::back_inserter(shapes),
                 [](const Node* child) { return host::isShape(*child); });
    return shapes;
}

MStatus extend(MDagPath& path, unsigned int shapeIndex) {
    const Node* const end = ApiAccess::end(path);
    if (end == nullptr) {
        return MStatus::kFailure;
    }
    const std::vector<Node*> shapes = shapesBelow(*end);
    if (shapeIndex >= shapes.size()) {
        return MStatus::kInvalidParameter;
    }
    return path.push(ApiAccess::object(shapes[shapeIndex]));
}

} // namespace

MStatus MDagPath::getAPathTo(const MObject& node, MDagPath& path) {
    const Node* target = ApiAccess::node(node);
    if (target == nullptr || !target->isDag()) {
        return MStatus::kInvalidParameter;
    }
    path = ApiAccess::path(host::firstPath(*target));
    return MStatus::kSuccess;
}

MStatus MDagPath::getAllPathsTo(const MObject& node, MDagPathArray& paths) {
    const Node* target = ApiAccess::node(node);
    if (target == nullptr || !target->isDag()) {
        return MStatus::kInvalidParameter;
    }
    paths.clear();
    for (const DagPath& path : host::allPaths(Host::instance().graph(), *target)) {
        paths.append(ApiAccess::path(path));
    }
    return MStatus::kSuccess;
}

bool MDagPath::isValid(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, ApiAccess::end(*this) != nullptr);
}

MObject MDagPath::node(MStatus* ReturnStatus) const {
    return askEnd<MObject>(*this, ReturnStatus, [](const Node& end) { return ApiAccess::object(end); });
}

MObject MDagPath::transform(MStatus* ReturnStatus) const {
    const host::PathLink* link = ApiAccess::end(*this) == nullptr ? nullptr : end_.get();
    for (; link != nullptr; link = link->above.get()) {
        if (host::isTransform(*ApiAccess::node(link->node))) {
            return succeed(ReturnStatus, link->node);
        }
    }
    return fail<MObject>(ReturnStatus, MStatus::kFailure);
}

unsigned int MDagPath::length(MStatus* ReturnStatus) const {
    return askEnd<unsigned int>(*this, ReturnStatus,
                                [&](const Node&) { return end_ ? static_cast<unsigned int>(end_->length) : 0U; });
}

unsigned int MDagPath::childCount(MStatus* ReturnStatus) const {
    return askEnd<unsigned int>(*this, ReturnStatus,
                                [](const Node& end) { return static_cast<unsigned int>(end.children().size()); });
}

MObject MDagPath::child(unsigned int index, MStatus* ReturnStatus) const {
    const Node* const end = ApiAccess::end(*this);
    if (end == nullptr || index >= end->children().size()) {
        return fail<MObject>(ReturnStatus, end != nullptr ? MStatus::kInvalidParameter : MStatus::kFailure);
    }
    return succeed(ReturnStatus, ApiAccess::object(end->children()[index]));
}

unsigned int MDagPath::pathCount(MStatus* ReturnStatus) const {
    return askEnd<unsigned int>(*this, ReturnStatus, [](const Node&) { return 1U; });
}

MStatus MDagPath::set(const MDagPath& path) {
    *this = path;
    return isValid() ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MDagPath::push(const MObject& child) {
    const Node* const end = ApiAccess::end(*this);
    const Node* const node = ApiAccess::node(child);
    if (end == nullptr || node == nullptr) {
        return MStatus::kInvalidParameter;
    }
    const std::vector<Node*>& parents = node->parents();
    if (std::find(parents.begin(), parents.end(), end) == parents.end()) {
        return MStatus::kInvalidParameter;
    }
    end_ = std::make_shared<host::PathLink>(child, std::move(end_));
    return MStatus::kSuccess;
}

MStatus MDagPath::pop(unsigned int num) {
    if (!set_ || num > (end_ ? end_->length : 0)) {
        return MStatus::kFailure;
    }
    for (; num != 0; --num) {
        end_ = std::shared_ptr<const host::PathLink>(end_->above);
    }
    return MStatus::kSuccess;
}

MStatus MDagPath::extendToShape() {
    unsigned int count = 0;
    const MStatus status = numberOfShapesDirectlyBelow(count);
    if (status != MStatus::kSuccess || count != 1) {
        return MStatus::kFailure;
    }
    return extend(*this, 0);
}

MStatus MDagPath::extendToShape(unsigned int shapeIndex) {
    return extend(*this, shapeIndex);
}

MStatus MDagPath::extendToShapeDirectlyBelow(unsigned int shapeIndex) {
    return extend(*this, shapeIndex);
}

MStatus MDagPath::numberOfShapesDirectlyBelow(unsigned int& count) const {
    const Node* const end = ApiAccess::end(*this);
    if (end == nullptr) {
        return MStatus::kFailure;
    }
    count = static_cast<unsigned int>(shapesBelow(*end).size());
    return MStatus::kSuccess;
}

bool MDagPath::isInstanced(MStatus* ReturnStatus) const {
    const Node& world = Host::instance().graph().world();
    return askEnd<bool>(*this, ReturnStatus,
                        [&](const Node& end) { return &end != &world && host::isInstanced(end, true); });
}

unsigned int MDagPath::instanceNumber(MStatus* ReturnStatus) const {
    return ask<unsigned int>(*this, ReturnStatus,
                             [](const DagPath& path) { return static_cast<unsigned int>(host::instanceOf(path)); });
}

MMatrix MDagPath::inclusiveMatrix(MStatus* ReturnStatus) const {
    return ask<MMatrix>(*this, ReturnStatus, [](const DagPath& path) { return fromImath(host::worldMatrix(path)); });
}

MMatrix MDagPath::inclusiveMatrixInverse(MStatus* ReturnStatus) const {
    return inclusiveMatrix(ReturnStatus).inverse();
}

MMatrix MDagPath::exclusiveMatrix(MStatus* ReturnStatus) const {
    return ask<MMatrix>(*this, ReturnStatus,
                        [](const DagPath& path) { return fromImath(host::worldMatrix(above(path))); });
}

MMatrix MDagPath::exclusiveMatrixInverse(MStatus* ReturnStatus) const {
    return exclusiveMatrix(ReturnStatus).inverse();
}

MFn::Type MDagPath::apiType(MStatus* ReturnStatus) const {
    return askEnd<MFn::Type>(*this, ReturnStatus, [](const Node& end) { return ApiAccess::object(end).apiType(); });
}

bool MDagPath::hasFn(MFn::Type type, MStatus* ReturnStatus) const {
    return askEnd<bool>(*this, ReturnStatus, [&](const Node& end) { return ApiAccess::object(end).hasFn(type); });
}

MString MDagPath::fullPathName(MStatus* ReturnStatus) const {
    return ask<MString>(*this, ReturnStatus,
                        [](const DagPath& path) { return MString(host::fullPathName(path).c_str()); });
}

MString MDagPath::partialPathName(MStatus* ReturnStatus) const {
    return ask<MString>(*this, ReturnStatus, [](const DagPath& path) {
        return path.nodes.empty() ? MString() : MString(Host::instance().scene().names().shortestName(path).c_str());
    });
}

bool MDagPath::isVisible(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const DagPath& path) { return host::isVisible(path); });
}

bool MDagPath::isTemplated(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const DagPath& path) { return host::isTemplated(path); });
}

bool MDagPath::operator==(const MDagPath& other) const {
    return set_ == other.set_ && host::isSameWay(end_.get(), other.end_.get());
}

bool MDagPath::operator!=(const MDagPath& other) const {
    return !(*this == other);
}
