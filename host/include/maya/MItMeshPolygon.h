#pragma once

#include <maya/MColor.h>
#include <maya/MColorArray.h>
#include <maya/MDagPath.h>
#include <maya/MFloatArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>
#include <maya/detail/MeshWalk.h>

/// Walks the faces of a mesh, or those of a component, ascending. It shows the mesh as it was when the walk began.
/// Questions fail with kFailure when done, and with kInvalidParameter for a corner that the face does not have; corners
/// of holes follow those of the outer loop. For spaces and sets see MFnMesh.
class MItMeshPolygon {
public:
    explicit MItMeshPolygon(const MObject& mesh, MStatus* ReturnStatus = nullptr);
    /// A null component means all faces. Fails, and is done, on anything but a mesh and its faces.
    explicit MItMeshPolygon(const MDagPath& path, const MObject& component = MObject::kNullObj,
                            MStatus* ReturnStatus = nullptr);
    ~MItMeshPolygon();

    MStatus reset();
    MStatus reset(const MObject& mesh);
    MStatus reset(const MDagPath& path, const MObject& component = MObject::kNullObj);
    MStatus next();
    bool isDone(MStatus* ReturnStatus = nullptr) const;
    unsigned int count(MStatus* ReturnStatus = nullptr) const;
    unsigned int index(MStatus* ReturnStatus = nullptr) const;
    /// Goes to a face of the walk and tells which it was at. Fails, and stays, for any other.
    MStatus setIndex(int index, int& previousIndex);
    /// A component of this one face.
    MObject currentItem(MStatus* ReturnStatus = nullptr) const;
    MObject polygon(MStatus* ReturnStatus = nullptr) const;

    // --- corners
    unsigned int polygonVertexCount(MStatus* ReturnStatus = nullptr) const;
    int vertexIndex(int index, MStatus* ReturnStatus = nullptr) const;
    MStatus getVertices(MIntArray& vertices) const;
    MPoint point(int index, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    void getPoints(MPointArray& points, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    /// Mean of the points of the outer loop.
    MPoint center(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    MStatus getEdges(MIntArray& edges) const;

    // --- normals
    unsigned int normalIndex(int index, MStatus* ReturnStatus = nullptr) const;
    /// Of the face.
    MStatus getNormal(MVector& normal, MSpace::Space space = MSpace::kObject) const;
    /// Of a corner.
    MStatus getNormal(unsigned int index, MVector& normal, MSpace::Space space = MSpace::kObject) const;
    MStatus getNormals(MVectorArray& normals, MSpace::Space space = MSpace::kObject) const;

    // --- texture coordinates. A face that has none in the set fails with kFailure.
    bool hasUVs(MStatus* ReturnStatus = nullptr) const;
    bool hasUVs(const MString& uvSet, MStatus* ReturnStatus = nullptr) const;
    MStatus getUV(int index, float2& uv, const MString* uvSet = nullptr) const;
    MStatus getUVIndex(int index, int& uvIndex, const MString* uvSet = nullptr) const;
    MStatus getUVIndex(int index, int& uvIndex, float& u, float& v, const MString* uvSet = nullptr) const;
    MStatus getUVs(MFloatArray& u, MFloatArray& v, const MString* uvSet = nullptr) const;
    /// The sets in which the face has any.
    MStatus getUVSetNames(MStringArray& names) const;

    // --- colours
    /// Whether any corner has one in the current set.
    bool hasColor(MStatus* ReturnStatus = nullptr) const;
    bool hasColor(int index, MStatus* ReturnStatus = nullptr) const;
    /// Of a corner; all of it -1 when it has none.
    MStatus getColor(MColor& color, int index) const;
    /// Mean of the corners that have one; kFailure when none has.
    MStatus getColor(MColor& color, const MString* colorSet = nullptr) const;
    MStatus getColors(MColorArray& colors, const MString* colorSet = nullptr) const;
    MStatus getColorIndex(int index, int& colorIndex, const MString* colorSet = nullptr) const;

    // --- shape
    bool isHoled(MStatus* ReturnStatus = nullptr) const;
    bool isConvex(MStatus* ReturnStatus = nullptr) const;
    bool isPlanar(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    /// Whether another face has the same edges.
    bool isLamina(MStatus* ReturnStatus = nullptr) const;
    bool zeroArea(MStatus* ReturnStatus = nullptr) const;
    MStatus getArea(double& area, MSpace::Space space = MSpace::kObject) const;
    /// Whether an edge of it has no other face.
    bool onBoundary(MStatus* ReturnStatus = nullptr) const;
    MStatus getConnectedFaces(MIntArray& faces) const;
    bool hasValidTriangulation(MStatus* ReturnStatus = nullptr) const;
    MStatus numTriangles(int& count) const;
    MStatus getTriangle(int index, MPointArray& points, MIntArray& vertices,
                        MSpace::Space space = MSpace::kObject) const;
    /// Three points and vertices for each.
    MStatus getTriangles(MPointArray& points, MIntArray& vertices, MSpace::Space space = MSpace::kObject) const;

private:
    host::api::MeshWalk walk_;
};
