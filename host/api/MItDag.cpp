#include <maya/MItDag.h>

#include "host/api/ApiAccess.h"
#include "host/api/iteratorFilter.h"
#include "host/api/statusResult.h"

#include <maya/MDagPathArray.h>
#include <maya/MFnDagNode.h>

#include <utility>

using host::ApiAccess;
using host::fail;
using host::report;
using host::succeed;

namespace {

MDagPath worldPath() {
    return ApiAccess::path(host::DagPath());
}

} // namespace

MItDag::MItDag(TraversalType type, MFn::Type filter, MStatus* ReturnStatus) {
    report(ReturnStatus, start(worldPath(), type, host::filterOf(filter)));
}

MItDag::MItDag(const MIteratorType& info, TraversalType type, MStatus* ReturnStatus) {
    report(ReturnStatus, start(worldPath(), type, host::filterOf(info)));
}

MItDag::~MItDag() = default;

MStatus MItDag::reset() {
    return start(worldPath(), type_, filter_);
}

MStatus MItDag::reset(const MObject& root, TraversalType type, MFn::Type filter) {
    MDagPath path;
    MDagPath::getAPathTo(root, path);
    return start(path, type, host::filterOf(filter));
}

MStatus MItDag::reset(const MDagPath& root, TraversalType type, MFn::Type filter) {
    return start(root, type, host::filterOf(filter));
}

MStatus MItDag::start(const MDagPath& root, TraversalType type, std::vector<MFn::Type> filter) {
    waiting_.clear();
    done_ = true;
    const bool isOrder = type == kDepthFirst || type == kBreadthFirst;
    if (!root.isValid() || !isOrder) {
        return MStatus::kInvalidParameter;
    }
    type_ = type;
    filter_ = std::move(filter);
    root_ = root;
    done_ = false;
    pruned_ = true; // there is no current item yet whose children wait
    waiting_.push_back({root, 0});
    step();
    return MStatus::kSuccess;
}

/// Moves on until an item passes the filter. Children wait behind the item that they belong to: in front of all others
/// depth first, behind them breadth first.
void MItDag::step() {
    do {
        if (!pruned_) {
            const unsigned int count = current_.path.childCount();
            const auto front = type_ == kDepthFirst ? waiting_.begin() : waiting_.end();
            std::vector<Place> children;
            for (unsigned int i = 0; i < count; ++i) {
                Place child = {current_.path, current_.depth + 1};
                child.path.push(current_.path.child(i));
                children.push_back(std::move(child));
            }
            waiting_.insert(front, std::make_move_iterator(children.begin()), std::make_move_iterator(children.end()));
        }
        pruned_ = false;
        if (waiting_.empty()) {
            done_ = true;
            return;
        }
        current_ = std::move(waiting_.front());
        waiting_.pop_front();
    } while (!host::passes(filter_, current_.path.node()));
}

MStatus MItDag::next() {
    if (done_) {
        return MStatus::kFailure;
    }
    step();
    return MStatus::kSuccess;
}

MStatus MItDag::prune() {
    pruned_ = true;
    return done_ ? MStatus::kFailure : MStatus::kSuccess;
}

bool MItDag::isDone(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, done_);
}

MObject MItDag::currentItem(MStatus* ReturnStatus) const {
    return done_ ? fail<MObject>(ReturnStatus, MStatus::kFailure) : current_.path.node(ReturnStatus);
}

MObject MItDag::item(MStatus* ReturnStatus) const {
    return currentItem(ReturnStatus);
}

MObject MItDag::root(MStatus* ReturnStatus) const {
    return root_.node(ReturnStatus);
}

unsigned int MItDag::depth(MStatus* ReturnStatus) const {
    return done_ ? fail<unsigned int>(ReturnStatus, MStatus::kFailure) : succeed(ReturnStatus, current_.depth);
}

MStatus MItDag::getPath(MDagPath& path) const {
    if (done_) {
        return MStatus::kFailure;
    }
    path = current_.path;
    return MStatus::kSuccess;
}

MStatus MItDag::getAllPaths(MDagPathArray& paths) const {
    return done_ ? MStatus(MStatus::kFailure) : MDagPath::getAllPathsTo(current_.path.node(), paths);
}

MString MItDag::fullPathName(MStatus* ReturnStatus) const {
    return done_ ? fail<MString>(ReturnStatus, MStatus::kFailure) : current_.path.fullPathName(ReturnStatus);
}

MString MItDag::partialPathName(MStatus* ReturnStatus) const {
    return done_ ? fail<MString>(ReturnStatus, MStatus::kFailure) : current_.path.partialPathName(ReturnStatus);
}

bool MItDag::isInstanced(bool indirect, MStatus* ReturnStatus) const {
    return done_ ? fail<bool>(ReturnStatus, MStatus::kFailure)
                 : MFnDagNode(current_.path).isInstanced(indirect, ReturnStatus);
}

unsigned int MItDag::instanceCount(bool total, MStatus* ReturnStatus) const {
    return done_ ? fail<unsigned int>(ReturnStatus, MStatus::kFailure)
                 : MFnDagNode(current_.path).instanceCount(total, ReturnStatus);
}
