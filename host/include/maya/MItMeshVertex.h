#pragma once

#include <maya/MColor.h>
#include <maya/MDagPath.h>
#include <maya/MFloatArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>
#include <maya/detail/MeshWalk.h>

/// Walks the vertices of a mesh, or those of a component, ascending. It shows the mesh as it was when the walk began.
/// Questions fail with kFailure when done. For spaces and sets see MFnMesh.
class MItMeshVertex {
public:
    explicit MItMeshVertex(const MObject& mesh, MStatus* ReturnStatus = nullptr);
    /// A null component means all vertices. Fails, and is done, on anything but a mesh and its vertices.
    explicit MItMeshVertex(const MDagPath& path, const MObject& component = MObject::kNullObj,
                           MStatus* ReturnStatus = nullptr);
    ~MItMeshVertex();

    MStatus reset();
    MStatus reset(const MObject& mesh);
    MStatus reset(const MDagPath& path, const MObject& component = MObject::kNullObj);
    MStatus next();
    bool isDone(MStatus* ReturnStatus = nullptr) const;
    unsigned int count(MStatus* ReturnStatus = nullptr) const;
    int index(MStatus* ReturnStatus = nullptr) const;
    MStatus setIndex(int index, int& previousIndex);
    MObject currentItem(MStatus* ReturnStatus = nullptr) const;
    MObject vertex(MStatus* ReturnStatus = nullptr) const;

    MPoint position(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    /// Of all faces around it.
    MStatus getNormal(MVector& normal, MSpace::Space space = MSpace::kObject) const;
    /// Of its corner of a face. kInvalidParameter for a face that does not have it.
    MStatus getNormal(MVector& normal, int faceIndex, MSpace::Space space = MSpace::kObject) const;
    /// By corner, faces ascending.
    MStatus getNormals(MVectorArray& normals, MSpace::Space space = MSpace::kObject) const;

    /// Ascending, each once.
    MStatus getConnectedFaces(MIntArray& faces) const;
    MStatus getConnectedEdges(MIntArray& edges) const;
    MStatus getConnectedVertices(MIntArray& vertices) const;
    MStatus numConnectedFaces(int& count) const;
    MStatus numConnectedEdges(int& count) const;
    bool connectedToFace(int faceIndex, MStatus* ReturnStatus = nullptr) const;
    bool connectedToEdge(int edgeIndex, MStatus* ReturnStatus = nullptr) const;
    bool onBoundary(MStatus* ReturnStatus = nullptr) const;

    /// Of the first corner that has any; kFailure when none has.
    MStatus getUV(float2& uv, const MString* uvSet = nullptr) const;
    /// By corner that has any, with its face.
    MStatus getUVs(MFloatArray& u, MFloatArray& v, MIntArray& faces, const MString* uvSet = nullptr) const;
    /// Whether any corner has a colour in the current set.
    bool hasColor(MStatus* ReturnStatus = nullptr) const;
    /// Mean of the corners that have one; kFailure when none has.
    MStatus getColor(MColor& color, const MString* colorSet = nullptr) const;

private:
    host::api::MeshWalk walk_;
};
