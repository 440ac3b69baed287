#pragma once

#include <maya/MFn.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>

class MDagPathArray;

namespace host {
struct PathLink;
}

/// One way from the world down to a DAG node. Nodes with several parents have several. A path is invalid once a node on
/// it is gone or has been moved elsewhere; then, and when it is empty, every question fails with a status.
class MDagPath {
public:
    MDagPath();
    MDagPath(const MDagPath& other);
    ~MDagPath();
    MDagPath& operator=(const MDagPath& other);

    static MStatus getAPathTo(const MObject& node, MDagPath& path);
    /// In instance order: the order in which the parents were given.
    static MStatus getAllPathsTo(const MObject& node, MDagPathArray& paths);

    bool isValid(MStatus* ReturnStatus = nullptr) const;
    MObject node(MStatus* ReturnStatus = nullptr) const;
    /// The lowest transform of the path.
    MObject transform(MStatus* ReturnStatus = nullptr) const;
    /// Number of nodes below the world.
    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    unsigned int childCount(MStatus* ReturnStatus = nullptr) const;
    MObject child(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    unsigned int pathCount(MStatus* ReturnStatus = nullptr) const;

    MStatus set(const MDagPath& path);
    /// Fails, and changes nothing, when the node is no child of the path's end.
    MStatus push(const MObject& child);
    /// Fails when fewer than `num` nodes are left. Popping the last one leaves the path of the world.
    MStatus pop(unsigned int num = 1);
    /// Steps to the one shape directly below. Fails when the end is no transform or has none or several.
    MStatus extendToShape();
    MStatus extendToShape(unsigned int shapeIndex);
    MStatus extendToShapeDirectlyBelow(unsigned int shapeIndex);
    MStatus numberOfShapesDirectlyBelow(unsigned int& count) const;

    bool isInstanced(MStatus* ReturnStatus = nullptr) const;
    unsigned int instanceNumber(MStatus* ReturnStatus = nullptr) const;

    /// World matrix of the end node, for a shape that of its transform.
    MMatrix inclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix inclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;
    /// World matrix of the node above.
    MMatrix exclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix exclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;

    MFn::Type apiType(MStatus* ReturnStatus = nullptr) const;
    bool hasFn(MFn::Type type, MStatus* ReturnStatus = nullptr) const;
    /// "|a|b|bShape"; "" for the world.
    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    /// The shortest end of the full path that names no other path: "bShape" or "a|bShape".
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;

    /// Whether every node of the path is visible: visibility, overrides and layers, no intermediate shape.
    bool isVisible(MStatus* ReturnStatus = nullptr) const;
    bool isTemplated(MStatus* ReturnStatus = nullptr) const;

    bool operator==(const MDagPath& other) const;
    bool operator!=(const MDagPath& other) const;

private:
    friend class host::ApiAccess;
    std::shared_ptr<const host::PathLink> end_; // null for the world
    bool set_ = false;                          // tells the world's path from none
};
