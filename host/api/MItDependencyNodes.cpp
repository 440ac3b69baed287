#include <maya/MItDependencyNodes.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/iteratorFilter.h"
#include "host/api/statusResult.h"

using host::ApiAccess;
using host::Host;
using host::report;

MItDependencyNodes::MItDependencyNodes(MFn::Type filter, MStatus* ReturnStatus) {
    report(ReturnStatus, start(host::filterOf(filter)));
}

MItDependencyNodes::MItDependencyNodes(const MIteratorType& info, MStatus* ReturnStatus) {
    report(ReturnStatus, start(host::filterOf(info)));
}

MItDependencyNodes::~MItDependencyNodes() = default;

MStatus MItDependencyNodes::reset(MFn::Type filter) {
    return start(host::filterOf(filter));
}

MStatus MItDependencyNodes::reset(const MIteratorType& info) {
    return start(host::filterOf(info));
}

MStatus MItDependencyNodes::start(const std::vector<MFn::Type>& filter) {
    nodes_.clear();
    at_ = 0;
    for (const host::Node* node : Host::instance().graph().nodes()) {
        const MObject object = ApiAccess::object(*node);
        if (host::passes(filter, object)) {
            nodes_.push_back(object);
        }
    }
    return MStatus::kSuccess;
}

void MItDependencyNodes::skipGone() {
    while (at_ < nodes_.size() && nodes_[at_].isNull()) {
        ++at_;
    }
}

MStatus MItDependencyNodes::next() {
    if (at_ >= nodes_.size()) {
        return MStatus::kFailure;
    }
    ++at_;
    skipGone();
    return MStatus::kSuccess;
}

bool MItDependencyNodes::isDone(MStatus* ReturnStatus) const {
    return host::succeed(ReturnStatus, at_ >= nodes_.size());
}

MObject MItDependencyNodes::thisNode(MStatus* ReturnStatus) const {
    const bool isHere = at_ < nodes_.size() && !nodes_[at_].isNull();
    return isHere ? host::succeed(ReturnStatus, nodes_[at_]) : host::fail<MObject>(ReturnStatus, MStatus::kFailure);
}

MObject MItDependencyNodes::item(MStatus* ReturnStatus) const {
    return thisNode(ReturnStatus);
}
