#pragma once

#include <maya/MFnDependencyNode.h>
#include <maya/MSelectionList.h>

/// Sets and shading groups.
class MFnSet : public MFnDependencyNode {
public:
    enum Restriction {
        kNone = 0,
        kVerticesOnly,
        kEdgesOnly,
        kFacetsOnly,
        kEditPointsOnly,
        kRenderableOnly = 5,
    };

    MFnSet();
    explicit MFnSet(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnSet() override;

    MFn::Type type() const override;

    /// Replaces `members`: DAG paths, with the component when only a part of the shape belongs to the set, and nodes.
    /// `flatten` puts the members of member sets in their place.
    MStatus getMembers(MSelectionList& members, bool flatten) const;
    bool isMember(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    bool isMember(const MDagPath& path, const MObject& component = MObject::kNullObj,
                  MStatus* ReturnStatus = nullptr) const;
    Restriction restriction(MStatus* ReturnStatus = nullptr) const;
};
