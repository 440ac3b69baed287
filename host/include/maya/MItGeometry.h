#pragma once

#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>
#include <maya/detail/MeshWalk.h>

/// Walks the points of a mesh, or those of a component of vertices, faces or edges, ascending. It shows the mesh as it
/// was when the walk began. Questions fail with kFailure when done. For spaces see MFnMesh.
class MItGeometry {
public:
    explicit MItGeometry(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    explicit MItGeometry(const MObject& mesh, MStatus* ReturnStatus = nullptr);
    /// A null component means all points. Fails, and is done, on anything but a mesh and its components.
    MItGeometry(const MDagPath& path, const MObject& component, MStatus* ReturnStatus = nullptr);
    ~MItGeometry();

    MStatus reset();
    MStatus next();
    bool isDone(MStatus* ReturnStatus = nullptr) const;
    int count(MStatus* ReturnStatus = nullptr) const;
    int exactCount(MStatus* ReturnStatus = nullptr) const;
    int index(MStatus* ReturnStatus = nullptr) const;
    /// A component of this one vertex.
    MObject currentItem(MStatus* ReturnStatus = nullptr) const;
    MObject component(MStatus* ReturnStatus = nullptr) const;

    MPoint position(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    /// Of all points of the walk.
    MStatus allPositions(MPointArray& points, MSpace::Space space = MSpace::kObject) const;
    /// Of all faces around the point, in object space.
    MVector normal(MStatus* ReturnStatus = nullptr) const;

private:
    host::api::MeshWalk walk_;
};
