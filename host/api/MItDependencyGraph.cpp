#include <maya/MItDependencyGraph.h>

#include "host/api/ApiAccess.h"
#include "host/api/DependencyWalk.h"
#include "host/api/iteratorFilter.h"
#include "host/api/statusResult.h"

#include <maya/MObjectArray.h>

using host::ApiAccess;
using host::DependencyWalk;
using host::fail;
using host::report;
using host::succeed;

struct MItDependencyGraph::Walk : DependencyWalk {};

namespace {

DependencyWalk::Order orderOf(MItDependencyGraph::Direction direction, MItDependencyGraph::Traversal traversal,
                              MItDependencyGraph::Level level) {
    return {direction == MItDependencyGraph::kUpstream, traversal == MItDependencyGraph::kBreadthFirst,
            level == MItDependencyGraph::kPlugLevel};
}

} // namespace

MItDependencyGraph::MItDependencyGraph(const MObject& rootNode, MFn::Type filter, Direction direction,
                                       Traversal traversal, Level level, MStatus* ReturnStatus)
    : walk_(std::make_unique<Walk>()) {
    report(ReturnStatus, resetTo(rootNode, filter, direction, traversal, level));
}

MItDependencyGraph::MItDependencyGraph(const MPlug& rootPlug, MFn::Type filter, Direction direction,
                                       Traversal traversal, Level level, MStatus* ReturnStatus)
    : walk_(std::make_unique<Walk>()) {
    report(ReturnStatus, resetTo(rootPlug, filter, direction, traversal, level));
}

MItDependencyGraph::MItDependencyGraph(const MObject& rootNode, const MIteratorType& info, Direction direction,
                                       Traversal traversal, Level level, MStatus* ReturnStatus)
    : walk_(std::make_unique<Walk>()) {
    walk_->filter = host::filterOf(info);
    report(ReturnStatus, walk_->begin(rootNode, MPlug(), orderOf(direction, traversal, level)));
}

MItDependencyGraph::MItDependencyGraph(const MPlug& rootPlug, const MIteratorType& info, Direction direction,
                                       Traversal traversal, Level level, MStatus* ReturnStatus)
    : walk_(std::make_unique<Walk>()) {
    walk_->filter = host::filterOf(info);
    report(ReturnStatus, walk_->begin(rootPlug.node(), rootPlug, orderOf(direction, traversal, level)));
}

MItDependencyGraph::~MItDependencyGraph() = default;

MStatus MItDependencyGraph::reset() {
    return walk_->begin(walk_->rootNode, walk_->rootPlug, walk_->order);
}

MStatus MItDependencyGraph::resetTo(const MObject& rootNode, MFn::Type filter, Direction direction, Traversal traversal,
                                    Level level) {
    walk_->filter = host::filterOf(filter);
    return walk_->begin(rootNode, MPlug(), orderOf(direction, traversal, level));
}

MStatus MItDependencyGraph::resetTo(const MPlug& rootPlug, MFn::Type filter, Direction direction, Traversal traversal,
                                    Level level) {
    walk_->filter = host::filterOf(filter);
    return walk_->begin(rootPlug.node(), rootPlug, orderOf(direction, traversal, level));
}

MStatus MItDependencyGraph::next() {
    return walk_->next() ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MItDependencyGraph::prune() {
    walk_->pruned = true;
    return walk_->current() != nullptr ? MStatus::kSuccess : MStatus::kFailure;
}

bool MItDependencyGraph::isDone(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_->current() == nullptr);
}

MObject MItDependencyGraph::currentItem(MStatus* ReturnStatus) const {
    const DependencyWalk::Step* step = walk_->current();
    return step != nullptr && !step->node.isNull() ? succeed(ReturnStatus, step->node)
                                                   : fail<MObject>(ReturnStatus, MStatus::kFailure);
}

MObject MItDependencyGraph::thisNode(MStatus* ReturnStatus) const {
    return currentItem(ReturnStatus);
}

MPlug MItDependencyGraph::thisPlug(MStatus* ReturnStatus) const {
    const DependencyWalk::Step* step = walk_->current();
    return step != nullptr && !step->arrival.isNull() ? succeed(ReturnStatus, step->arrival)
                                                      : fail<MPlug>(ReturnStatus, MStatus::kFailure);
}

MPlug MItDependencyGraph::previousPlug(MStatus* ReturnStatus) const {
    const DependencyWalk::Step* step = walk_->current();
    return step != nullptr && !step->departure.isNull() ? succeed(ReturnStatus, step->departure)
                                                        : fail<MPlug>(ReturnStatus, MStatus::kFailure);
}

MStatus MItDependencyGraph::getNodePath(MObjectArray& path) const {
    path.clear();
    if (walk_->current() == nullptr) {
        return MStatus::kFailure;
    }
    for (const DependencyWalk::Step* step = walk_->current(); step != nullptr; step = walk_->before(*step)) {
        path.append(step->node);
    }
    return MStatus::kSuccess;
}

MObject MItDependencyGraph::rootNode(MStatus* ReturnStatus) const {
    return walk_->rootNode.isNull() ? fail<MObject>(ReturnStatus, MStatus::kFailure)
                                    : succeed(ReturnStatus, walk_->rootNode);
}

MPlug MItDependencyGraph::rootPlug(MStatus* ReturnStatus) const {
    return walk_->rootPlug.isNull() ? fail<MPlug>(ReturnStatus, MStatus::kFailure)
                                    : succeed(ReturnStatus, walk_->rootPlug);
}

MStatus MItDependencyGraph::enablePruningOnFilter() {
    walk_->pruneOnFilter = true;
    return MStatus::kSuccess;
}

MStatus MItDependencyGraph::disablePruningOnFilter() {
    walk_->pruneOnFilter = false;
    return MStatus::kSuccess;
}

bool MItDependencyGraph::isPruningOnFilter(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, walk_->pruneOnFilter);
}
