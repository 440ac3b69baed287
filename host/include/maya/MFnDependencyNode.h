#pragma once

#include <maya/MFnBase.h>
#include <maya/MPlug.h>
#include <maya/MStringArray.h>

class MPlugArray;

/// What every node has: name, type, attributes, plugs, connections.
class MFnDependencyNode : public MFnBase {
public:
    MFnDependencyNode();
    explicit MFnDependencyNode(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnDependencyNode() override;

    MFn::Type type() const override;

    /// Without DAG path, with namespace.
    MString name(MStatus* ReturnStatus = nullptr) const;
    MString absoluteName(MStatus* ReturnStatus = nullptr) const;
    /// Renames; characters that names cannot hold become '_', and a number is added when the name is taken.
    MString setName(const MString& name, MStatus* ReturnStatus = nullptr);
    /// Shortest path that names only this node, as MEL accepts it.
    MString uniqueName(MStatus* ReturnStatus = nullptr) const;
    MString typeName(MStatus* ReturnStatus = nullptr) const;
    /// Without colons at the ends; "" in the root namespace.
    MString parentNamespace(MStatus* ReturnStatus = nullptr) const;
    bool hasUniqueName(MStatus* ReturnStatus = nullptr) const;
    bool isDefaultNode(MStatus* ReturnStatus = nullptr) const;
    bool isFromReferencedFile(MStatus* ReturnStatus = nullptr) const;

    unsigned int attributeCount(MStatus* ReturnStatus = nullptr) const;
    MObject attribute(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MObject attribute(const MString& name, MStatus* ReturnStatus = nullptr) const;
    bool hasAttribute(const MString& name, MStatus* ReturnStatus = nullptr) const;

    /// By long name, short name or alias, children of compounds included ("translateX"), or a path with indices. Fails
    /// with a null plug when there is none. Below an array the plug has no indices yet.
    MPlug findPlug(const MString& name, bool wantNetworkedPlug, MStatus* ReturnStatus = nullptr) const;
    MPlug findPlug(const MObject& attribute, bool wantNetworkedPlug, MStatus* ReturnStatus = nullptr) const;
    MPlug findPlug(const MString& name, MStatus* ReturnStatus = nullptr) const;
    MPlug findPlug(const MObject& attribute, MStatus* ReturnStatus = nullptr) const;

    /// Replaces `plugs` with all plugs of the node that are connected; kFailure when there are none.
    MStatus getConnections(MPlugArray& plugs) const;

    MString plugsAlias(const MPlug& plug, MStatus* ReturnStatus = nullptr) const;
    bool findAlias(const MString& alias, MObject& attribute, MStatus* ReturnStatus = nullptr) const;
    /// Pairs of alias and attribute name; false when there are none.
    bool getAliasList(MStringArray& pairs, MStatus* ReturnStatus = nullptr);
};
