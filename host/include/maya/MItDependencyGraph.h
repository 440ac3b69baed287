#pragma once

#include <maya/MFn.h>
#include <maya/MIteratorType.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>

#include <memory>
#include <vector>

class MObjectArray;

/// Walks connections from a node or plug, up- or downstream, node by node or plug by plug; each once. The root comes
/// first when it passes the filter. When nothing passes, construction fails and the iterator is done.
class MItDependencyGraph {
public:
    enum Direction { kDownstream = 0, kUpstream = 1 };
    enum Traversal { kDepthFirst = 0, kBreadthFirst = 1 };
    enum Level { kNodeLevel = 0, kPlugLevel = 1 };

    explicit MItDependencyGraph(const MObject& rootNode, MFn::Type filter = MFn::kInvalid,
                                Direction direction = kDownstream, Traversal traversal = kDepthFirst,
                                Level level = kNodeLevel, MStatus* ReturnStatus = nullptr);
    explicit MItDependencyGraph(const MPlug& rootPlug, MFn::Type filter = MFn::kInvalid,
                                Direction direction = kDownstream, Traversal traversal = kDepthFirst,
                                Level level = kPlugLevel, MStatus* ReturnStatus = nullptr);
    MItDependencyGraph(const MObject& rootNode, const MIteratorType& info, Direction direction = kDownstream,
                       Traversal traversal = kDepthFirst, Level level = kNodeLevel, MStatus* ReturnStatus = nullptr);
    MItDependencyGraph(const MPlug& rootPlug, const MIteratorType& info, Direction direction = kDownstream,
                       Traversal traversal = kDepthFirst, Level level = kPlugLevel, MStatus* ReturnStatus = nullptr);
    ~MItDependencyGraph();
    MItDependencyGraph(const MItDependencyGraph&) = delete;
    MItDependencyGraph& operator=(const MItDependencyGraph&) = delete;

    /// Starts over at the same root.
    MStatus reset();
    MStatus resetTo(const MObject& rootNode, MFn::Type filter = MFn::kInvalid, Direction direction = kDownstream,
                    Traversal traversal = kDepthFirst, Level level = kNodeLevel);
    MStatus resetTo(const MPlug& rootPlug, MFn::Type filter = MFn::kInvalid, Direction direction = kDownstream,
                    Traversal traversal = kDepthFirst, Level level = kPlugLevel);

    MStatus next();
    /// The walk goes on without what is only reached through the current item.
    MStatus prune();
    bool isDone(MStatus* ReturnStatus = nullptr) const;

    /// These fail when done.
    MObject currentItem(MStatus* ReturnStatus = nullptr) const;
    MObject thisNode(MStatus* ReturnStatus = nullptr) const;
    /// The plug at which the walk came to the current item (downstream: its input, upstream: its output); the root plug
    /// for the root. Fails for a root that is a node.
    MPlug thisPlug(MStatus* ReturnStatus = nullptr) const;
    /// The plug at the other end of the connection by which the walk came.
    MPlug previousPlug(MStatus* ReturnStatus = nullptr) const;
    /// From the current item back to the root.
    MStatus getNodePath(MObjectArray& path) const;
    MObject rootNode(MStatus* ReturnStatus = nullptr) const;
    MPlug rootPlug(MStatus* ReturnStatus = nullptr) const;

    /// With pruning, the walk goes not beyond items that the filter refuses. Off by default.
    MStatus enablePruningOnFilter();
    MStatus disablePruningOnFilter();
    bool isPruningOnFilter(MStatus* ReturnStatus = nullptr) const;

private:
    struct Walk;
    std::unique_ptr<Walk> walk_;
};
