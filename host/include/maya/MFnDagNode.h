#pragma once

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MMatrix.h>

/// What every DAG node has. Attached to a node it cannot tell its instances apart; what depends on the instance fails
/// then unless there is only one.
class MFnDagNode : public MFnDependencyNode {
public:
    MFnDagNode();
    explicit MFnDagNode(const MObject& object, MStatus* ReturnStatus = nullptr);
    explicit MFnDagNode(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    ~MFnDagNode() override;

    MFn::Type type() const override;
    MStatus setObject(const MObject& object) override;
    virtual MStatus setObject(const MDagPath& path);

    /// Shapes, intermediate ones too, and transforms, in DAG order.
    unsigned int childCount(MStatus* ReturnStatus = nullptr) const;
    MObject child(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    /// The world counts: 1 for a top node.
    unsigned int parentCount(MStatus* ReturnStatus = nullptr) const;
    MObject parent(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    bool hasParent(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    bool hasChild(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    /// Directly or further down / up.
    bool isChildOf(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    bool isParentOf(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    MObject dagRoot(MStatus* ReturnStatus = nullptr) const;

    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;
    /// The attached path, else the first of the node's.
    MStatus getPath(MDagPath& path) const;
    /// Fails unless attached to a path.
    MDagPath dagPath(MStatus* ReturnStatus = nullptr) const;
    MStatus getAllPaths(MDagPathArray& paths) const;

    bool isIntermediateObject(MStatus* ReturnStatus = nullptr) const;
    /// `indirect`: also when only a node above has several parents.
    bool isInstanced(bool indirect = true, MStatus* ReturnStatus = nullptr) const;
    /// Number of paths (total) or of parents.
    unsigned int instanceCount(bool total, MStatus* ReturnStatus = nullptr) const;
    /// Whether the node stands in the world.
    bool inModel(MStatus* ReturnStatus = nullptr) const;
    /// Local matrix of a transform; the identity for shapes.
    MMatrix transformationMatrix(MStatus* ReturnStatus = nullptr) const;

protected:
    MDagPath path_; // invalid when attached to a node
};
