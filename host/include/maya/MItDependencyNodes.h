#pragma once

#include <maya/MFn.h>
#include <maya/MIteratorType.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <cstddef>
#include <vector>

/// All nodes of the scene that have a function set, in the order in which they were made. Nodes that are deleted on the
/// way are skipped; nodes made on the way are not met.
class MItDependencyNodes {
public:
    explicit MItDependencyNodes(MFn::Type filter = MFn::kInvalid, MStatus* ReturnStatus = nullptr);
    explicit MItDependencyNodes(const MIteratorType& info, MStatus* ReturnStatus = nullptr);
    ~MItDependencyNodes();

    MStatus reset(MFn::Type filter = MFn::kInvalid);
    MStatus reset(const MIteratorType& info);
    MStatus next();
    bool isDone(MStatus* ReturnStatus = nullptr) const;
    /// Fail when done.
    MObject thisNode(MStatus* ReturnStatus = nullptr) const;
    MObject item(MStatus* ReturnStatus = nullptr) const;

private:
    MStatus start(const std::vector<MFn::Type>& filter);
    void skipGone();

    std::vector<MObject> nodes_;
    std::size_t at_ = 0;
};
