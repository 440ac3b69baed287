#include <maya/MDagPath.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/dagQueries.h"
#include "host/api/statusResult.h"
#include "host/api/values/imathConversions.h"

#include <maya/MDagPathArray.h>

#include <algorithm>
#include <iterator>

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

Node& endOf(const DagPath& path) {
    return path.end() != nullptr ? *path.end() : Host::instance().graph().world();
}

DagPath above(DagPath path) {
    if (!path.nodes.empty()) {
        path.nodes.pop_back();
    }
    return path;
}

std::vector<Node*> shapesBelow(const DagPath& path) {
    std::vector<Node*> shapes;
    const std::vector<Node*>& children = endOf(path).children();
    std::copy_if(children.begin(), children.end(), std::back_inserter(shapes),
                 [](const Node* child) { return host::isShape(*child); });
    return shapes;
}

MStatus extend(MDagPath& path, const std::optional<DagPath>& nodes, unsigned int shapeIndex) {
    if (!nodes) {
        return MStatus::kFailure;
    }
    const std::vector<Node*> shapes = shapesBelow(*nodes);
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
    return succeed(ReturnStatus, ApiAccess::path(*this).has_value());
}

MObject MDagPath::node(MStatus* ReturnStatus) const {
    return ask<MObject>(*this, ReturnStatus, [](const DagPath& path) { return ApiAccess::object(endOf(path)); });
}

MObject MDagPath::transform(MStatus* ReturnStatus) const {
    const std::optional<DagPath> path = ApiAccess::path(*this);
    if (path) {
        const auto lowest = std::find_if(path->nodes.rbegin(), path->nodes.rend(),
                                         [](const Node* node) { return host::isTransform(*node); });
        if (lowest != path->nodes.rend()) {
            return succeed(ReturnStatus, ApiAccess::object(**lowest));
        }
    }
    return fail<MObject>(ReturnStatus, MStatus::kFailure);
}

unsigned int MDagPath::length(MStatus* ReturnStatus) const {
    return ask<unsigned int>(*this, ReturnStatus,
                             [](const DagPath& path) { return static_cast<unsigned int>(path.nodes.size()); });
}

unsigned int MDagPath::childCount(MStatus* ReturnStatus) const {
    return ask<unsigned int>(*this, ReturnStatus, [](const DagPath& path) {
        return static_cast<unsigned int>(endOf(path).children().size());
    });
}

MObject MDagPath::child(unsigned int index, MStatus* ReturnStatus) const {
    const std::optional<DagPath> path = ApiAccess::path(*this);
    if (!path || index >= endOf(*path).children().size()) {
        return fail<MObject>(ReturnStatus, path ? MStatus::kInvalidParameter : MStatus::kFailure);
    }
    return succeed(ReturnStatus, ApiAccess::object(endOf(*path).children()[index]));
}

unsigned int MDagPath::pathCount(MStatus* ReturnStatus) const {
    return ask<unsigned int>(*this, ReturnStatus, [](const DagPath&) { return 1U; });
}

MStatus MDagPath::set(const MDagPath& path) {
    *this = path;
    return isValid() ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MDagPath::push(const MObject& child) {
    const std::optional<DagPath> path = ApiAccess::path(*this);
    const Node* node = ApiAccess::node(child);
    if (!path || node == nullptr) {
        return MStatus::kInvalidParameter;
    }
    const std::vector<Node*>& children = endOf(*path).children();
    if (std::find(children.begin(), children.end(), node) == children.end()) {
        return MStatus::kInvalidParameter;
    }
    nodes_.push_back(child);
    return MStatus::kSuccess;
}

MStatus MDagPath::pop(unsigned int num) {
    if (!set_ || num > nodes_.size()) {
        return MStatus::kFailure;
    }
    nodes_.resize(nodes_.size() - num);
    return MStatus::kSuccess;
}

MStatus MDagPath::extendToShape() {
    unsigned int count = 0;
    const MStatus status = numberOfShapesDirectlyBelow(count);
    if (status != MStatus::kSuccess || count != 1) {
        return MStatus::kFailure;
    }
    return extend(*this, ApiAccess::path(*this), 0);
}

MStatus MDagPath::extendToShape(unsigned int shapeIndex) {
    return extend(*this, ApiAccess::path(*this), shapeIndex);
}

MStatus MDagPath::extendToShapeDirectlyBelow(unsigned int shapeIndex) {
    return extend(*this, ApiAccess::path(*this), shapeIndex);
}

MStatus MDagPath::numberOfShapesDirectlyBelow(unsigned int& count) const {
    const std::optional<DagPath> path = ApiAccess::path(*this);
    if (!path) {
        return MStatus::kFailure;
    }
    count = static_cast<unsigned int>(shapesBelow(*path).size());
    return MStatus::kSuccess;
}

bool MDagPath::isInstanced(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus,
                     [](const DagPath& path) { return path.end() != nullptr && host::isInstanced(*path.end(), true); });
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
    return ask<MFn::Type>(*this, ReturnStatus,
                          [](const DagPath& path) { return ApiAccess::object(endOf(path)).apiType(); });
}

bool MDagPath::hasFn(MFn::Type type, MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus,
                     [&](const DagPath& path) { return ApiAccess::object(endOf(path)).hasFn(type); });
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
    return set_ == other.set_ && nodes_ == other.nodes_;
}

bool MDagPath::operator!=(const MDagPath& other) const {
    return !(*this == other);
}
