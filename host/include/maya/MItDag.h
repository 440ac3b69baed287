#pragma once

#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MIteratorType.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <deque>
#include <vector>

class MDagPathArray;

/// Walks the DAG from a root: pre-order or level by level, children in DAG order, an instanced node once per path.
/// With a filter only nodes that have that function set are stopped at; the walk passes through the others.
/// Without a root it starts at the world, which is itself the first item when there is no filter.
class MItDag {
public:
    enum TraversalType { kInvalidType = 0, kDepthFirst = 1, kBreadthFirst = 2 };

    explicit MItDag(TraversalType type = kDepthFirst, MFn::Type filter = MFn::kInvalid,
                    MStatus* ReturnStatus = nullptr);
    explicit MItDag(const MIteratorType& info, TraversalType type = kDepthFirst, MStatus* ReturnStatus = nullptr);
    ~MItDag();

    /// Starts over at the world.
    MStatus reset();
    /// Fail when the root is no DAG node (path); the iterator is done then.
    MStatus reset(const MObject& root, TraversalType type = kDepthFirst, MFn::Type filter = MFn::kInvalid);
    MStatus reset(const MDagPath& root, TraversalType type = kDepthFirst, MFn::Type filter = MFn::kInvalid);

    MStatus next();
    /// The walk goes on without what is below the current item.
    MStatus prune();
    bool isDone(MStatus* ReturnStatus = nullptr) const;

    /// These fail when done.
    MObject currentItem(MStatus* ReturnStatus = nullptr) const;
    MObject item(MStatus* ReturnStatus = nullptr) const;
    MObject root(MStatus* ReturnStatus = nullptr) const;
    /// Levels below the root of the walk.
    unsigned int depth(MStatus* ReturnStatus = nullptr) const;
    MStatus getPath(MDagPath& path) const;
    MStatus getAllPaths(MDagPathArray& paths) const;
    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;
    bool isInstanced(bool indirect = true, MStatus* ReturnStatus = nullptr) const;
    unsigned int instanceCount(bool total, MStatus* ReturnStatus = nullptr) const;

private:
    struct Place {
        MDagPath path;
        unsigned int depth = 0;
    };
    MStatus start(const MDagPath& root, TraversalType type, std::vector<MFn::Type> filter);
    void step();

    TraversalType type_ = kDepthFirst;
    std::vector<MFn::Type> filter_; // empty: everything
    MDagPath root_;
    std::deque<Place> waiting_; // the next one in front
    Place current_;
    bool done_ = true;
    bool pruned_ = false; // nothing below the current item is to be visited
};
