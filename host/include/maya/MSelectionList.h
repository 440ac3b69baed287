#pragma once

#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <cstddef>
#include <vector>

/// A list of nodes, DAG paths with or without components, and plugs. Entries whose node is gone fail when asked for.
class MSelectionList {
public:
    enum MergeStrategy { kMergeNormal = 0, kXORWithList, kRemoveFromList };

    MSelectionList();
    MSelectionList(const MSelectionList& other);
    ~MSelectionList();
    MSelectionList& operator=(const MSelectionList& other);

    /// A name as MEL takes it: node, DAG path, plug, component, or a pattern with '*' and '?'. kInvalidParameter when
    /// it matches nothing, or a plain name matches more than one node.
    MStatus add(const MString& matchString);
    MStatus add(const MObject& node, bool mergeWithExisting = false);
    MStatus add(const MDagPath& path, const MObject& component = MObject::kNullObj, bool mergeWithExisting = false);
    MStatus add(const MPlug& plug, bool mergeWithExisting = false);
    MStatus remove(unsigned int index);
    MStatus replace(unsigned int index, const MObject& node);
    MStatus clear();
    MStatus merge(const MSelectionList& other, MergeStrategy strategy = kMergeNormal);

    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    bool isEmpty(MStatus* ReturnStatus = nullptr) const;
    /// The component is null when the whole object is in the list. Fails for entries that are no DAG objects.
    MStatus getDagPath(unsigned int index, MDagPath& path) const;
    MStatus getDagPath(unsigned int index, MDagPath& path, MObject& component) const;
    /// The node of any entry.
    MStatus getDependNode(unsigned int index, MObject& node) const;
    MStatus getPlug(unsigned int index, MPlug& plug) const;
    /// As MEL would print them; appended.
    MStatus getSelectionStrings(MStringArray& strings) const;
    MStatus getSelectionStrings(unsigned int index, MStringArray& strings) const;

    bool hasItem(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    bool hasItem(const MDagPath& path, const MObject& component = MObject::kNullObj,
                 MStatus* ReturnStatus = nullptr) const;
    bool hasItem(const MPlug& plug, MStatus* ReturnStatus = nullptr) const;

private:
    friend class host::ApiAccess;
    struct Entry {
        MObject node; // always: of a DAG path its end, of a plug its node
        MDagPath path;
        MObject component;
        MPlug plug;
    };
    static bool same(const Entry& a, const Entry& b);
    std::size_t find(const Entry& wanted) const; // length() when it is not there
    MStatus addEntry(const Entry& entry, bool mergeWithExisting);

    std::vector<Entry> entries_;
};
