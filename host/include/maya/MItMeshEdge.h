#pragma once

#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/detail/MeshWalk.h>

/// Walks the edges of a mesh, or those of a component, ascending. It shows the mesh as it was when the walk began.
/// Questions fail with kFailure when done, and with kInvalidParameter for an end other than 0 and 1. For spaces see
/// MFnMesh.
class MItMeshEdge {
public:
    explicit MItMeshEdge(const MObject& mesh, MStatus* ReturnStatus = nullptr);
    /// A null component means all edges. Fails, and is done, on anything but a mesh and its edges.
    explicit MItMeshEdge(const MDagPath& path, const MObject& component = MObject::kNullObj,
                         MStatus* ReturnStatus = nullptr);
    ~MItMeshEdge();

    MStatus reset();
    MStatus reset(const MObject& mesh);
    MStatus reset(const MDagPath& path, const MObject& component = MObject::kNullObj);
    MStatus next();
    bool isDone(MStatus* ReturnStatus = nullptr) const;
    unsigned int count(MStatus* ReturnStatus = nullptr) const;
    int index(MStatus* ReturnStatus = nullptr) const;
    /// The vertex at an end.
    int index(int vertexNum, MStatus* ReturnStatus = nullptr) const;
    MStatus setIndex(int index, int& previousIndex);
    MObject currentItem(MStatus* ReturnStatus = nullptr) const;
    MObject edge(MStatus* ReturnStatus = nullptr) const;

    MPoint point(int vertexNum, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    MPoint center(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    MStatus getLength(double& length, MSpace::Space space = MSpace::kObject) const;
    bool isSmooth(MStatus* ReturnStatus = nullptr) const;
    /// Whether it has one face, or none.
    bool onBoundary(MStatus* ReturnStatus = nullptr) const;

    MStatus numConnectedFaces(int& count) const;
    /// Returns the number of faces, ascending, each once.
    int getConnectedFaces(MIntArray& faces, MStatus* ReturnStatus = nullptr) const;
    MStatus numConnectedEdges(int& count) const;
    /// Edges that share a vertex with it, ascending.
    MStatus getConnectedEdges(MIntArray& edges) const;
    bool connectedToFace(int faceIndex, MStatus* ReturnStatus = nullptr) const;

private:
    host::api::MeshWalk walk_;
};
