#pragma once

#include "host/graph/PlugAddress.h"

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>

#include <cstddef>
#include <deque>
#include <set>
#include <utility>
#include <vector>

namespace host {

/// The walk of MItDependencyGraph: each node (or plug) once, from a root along connections and, plug by plug, along
/// what attributes of a node affect others.
struct DependencyWalk {
    struct Order {
        bool upstream = false;
        bool breadthFirst = false;
        bool byPlug = false;
    };

    /// One item. `arrival` is the plug of the node at which the walk came, `departure` the one at the other end of that
    /// connection; both are null for a root that is a node.
    struct Step {
        MObject node;
        MPlug arrival, departure;
        std::size_t before = 0; // position in `steps` of the item that led here; the own one for the root
    };

    std::vector<MFn::Type> filter;
    Order order;
    MObject rootNode;
    MPlug rootPlug;
    bool pruneOnFilter = false;
    bool pruned = false;

    /// kInvalidParameter for a null root, kFailure when nothing passes the filter.
    MStatus begin(const MObject& node, const MPlug& plug, const Order& wanted);
    /// False when it was done already.
    bool next();
    const Step* current() const { return done_ ? nullptr : &steps_[at_]; }
    const Step* before(const Step& step) const { return &step == &steps_.front() ? nullptr : &steps_[step.before]; }

private:
    void advance();
    void follow(std::size_t from);
    void meet(std::size_t from, const MPlug& arrival, const MPlug& departure, std::vector<std::size_t>& found);

    std::deque<Step> steps_; // all items met, at fixed addresses
    std::deque<std::size_t> waiting_;
    std::set<std::pair<const Node*, PlugAddress>> met_; // compared, never followed
    std::size_t at_ = 0;
    bool done_ = true;
};

} // namespace host
