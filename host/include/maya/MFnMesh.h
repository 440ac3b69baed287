#pragma once

#include <maya/MColor.h>
#include <maya/MColorArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MFnDagNode.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPointArray.h>
#include <maya/MSpace.h>
#include <maya/MVector.h>

/// Polygon meshes: a mesh node (what it evaluates to now, tweaks included), a path that ends in one, or mesh data.
///
/// Faces, vertices, edges, normals, texture coordinates and colours are numbered from 0. A number that does not exist
/// fails with kInvalidParameter, and outputs stay as they were. Getters of arrays replace them.
/// Object space is that of the shape, in centimetres. World space needs a path: kFailure without one. kPostTransform is
/// world space too; kTransform counts as object space.
/// A null name means the current set of texture coordinates or colours; a set that is not there fails with kFailure.
class MFnMesh : public MFnDagNode {
public:
    enum MColorRepresentation { kAlpha = 1, kRGB = 3, kRGBA = 4 };

    MFnMesh();
    explicit MFnMesh(const MObject& object, MStatus* ReturnStatus = nullptr);
    explicit MFnMesh(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    ~MFnMesh() override;

    MFn::Type type() const override;
    MStatus setObject(const MObject& object) override;
    MStatus setObject(const MDagPath& path) override;

    // --- counts
    int numVertices(MStatus* ReturnStatus = nullptr) const;
    int numEdges(MStatus* ReturnStatus = nullptr) const;
    int numPolygons(MStatus* ReturnStatus = nullptr) const;
    /// Corners of all faces, those of holes too.
    int numFaceVertices(MStatus* ReturnStatus = nullptr) const;
    int numNormals(MStatus* ReturnStatus = nullptr) const;
    int numUVs(MStatus* ReturnStatus = nullptr) const;
    int numUVs(const MString& uvSet, MStatus* ReturnStatus = nullptr) const;
    int numUVSets(MStatus* ReturnStatus = nullptr) const;
    int numColors(MStatus* ReturnStatus = nullptr) const;
    int numColors(const MString& colorSet, MStatus* ReturnStatus = nullptr) const;
    int numColorSets(MStatus* ReturnStatus = nullptr) const;
    /// Holes' corners included.
    int polygonVertexCount(int polygonId, MStatus* ReturnStatus = nullptr) const;

    // --- points
    MStatus getPoints(MPointArray& points, MSpace::Space space = MSpace::kObject) const;
    MStatus getPoints(MFloatPointArray& points, MSpace::Space space = MSpace::kObject) const;
    MStatus getPoint(int vertexId, MPoint& point, MSpace::Space space = MSpace::kObject) const;

    // --- faces and edges
    /// The outer loop, then holes.
    MStatus getPolygonVertices(int polygonId, MIntArray& vertices) const;
    /// Per face its number of corners; the vertices of all faces on end.
    MStatus getVertices(MIntArray& vertexCounts, MIntArray& vertices) const;
    MStatus getEdgeVertices(int edgeId, int2& vertices) const;
    bool isEdgeSmooth(int edgeId, MStatus* ReturnStatus = nullptr) const;
    /// Whether the outer loop is plane enough to be seen from one side, and turns one way only; false with holes.
    bool isPolygonConvex(int polygonId, MStatus* ReturnStatus = nullptr) const;
    /// Returns the number of holes; three numbers for each: its face, how many vertices it has, and where they begin in
    /// `holeVertices`.
    int getHoles(MIntArray& holeInfo, MIntArray& holeVertices, MStatus* ReturnStatus = nullptr) const;
    /// Per face its number of triangles; three vertices for each triangle.
    MStatus getTriangles(MIntArray& triangleCounts, MIntArray& triangleVertices) const;

    // --- normals: unit length, 0 0 0 where all faces are degenerate
    /// The list of normals, one for each group of corners that share it; see getNormalIds.
    MStatus getNormals(MFloatVectorArray& normals, MSpace::Space space = MSpace::kObject) const;
    /// Per face its number of corners; the numbers of their normals, all faces on end.
    MStatus getNormalIds(MIntArray& counts, MIntArray& normalIds) const;
    MStatus getFaceNormalIds(int polygonId, MIntArray& normalIds) const;
    MStatus getFaceVertexNormals(int polygonId, MFloatVectorArray& normals,
                                 MSpace::Space space = MSpace::kObject) const;
    /// Of the vertex with this number in the mesh. Fails when the face does not have it.
    MStatus getFaceVertexNormal(int polygonId, int vertexId, MVector& normal,
                                MSpace::Space space = MSpace::kObject) const;
    /// Of all faces around a vertex, hard edges or not.
    MStatus getVertexNormal(int vertexId, bool angleWeighted, MVector& normal,
                            MSpace::Space space = MSpace::kObject) const;
    MStatus getVertexNormal(int vertexId, MVector& normal, MSpace::Space space = MSpace::kObject) const;
    MStatus getVertexNormals(bool angleWeighted, MFloatVectorArray& normals,
                             MSpace::Space space = MSpace::kObject) const;
    MStatus getPolygonNormal(int polygonId, MVector& normal, MSpace::Space space = MSpace::kObject) const;
    /// Whether a user set this normal.
    bool isNormalLocked(int normalId, MStatus* ReturnStatus = nullptr) const;

    // --- texture coordinates
    MStatus getUVs(MFloatArray& u, MFloatArray& v, const MString* uvSet = nullptr) const;
    MStatus getUV(int uvId, float& u, float& v, const MString* uvSet = nullptr) const;
    /// `vertexIndex` counts the corners of the face. kFailure for a face that has none in this set.
    MStatus getPolygonUV(int polygonId, int vertexIndex, float& u, float& v, const MString* uvSet = nullptr) const;
    MStatus getPolygonUVid(int polygonId, int vertexIndex, int& uvId, const MString* uvSet = nullptr) const;
    /// Per face how many it has, 0 or as many as corners; the numbers of all faces on end.
    MStatus getAssignedUVs(MIntArray& uvCounts, MIntArray& uvIds, const MString* uvSet = nullptr) const;
    MStatus getUVSetNames(MStringArray& names) const;
    /// The first set's when none was chosen; "" without sets.
    MString currentUVSetName(MStatus* ReturnStatus = nullptr, int instance = -1) const;
    MStatus getCurrentUVSetName(MString& name, int instance = -1) const;
    /// The sets in which a face has any.
    MStatus getFaceUVSetNames(int polygonId, MStringArray& names) const;

    // --- colours. One that is not set is `defaultUnsetColor`, else all of it is -1.
    MStatus getColors(MColorArray& colors, const MString* colorSet = nullptr,
                      const MColor* defaultUnsetColor = nullptr) const;
    MStatus getColor(int colorId, MColor& color, const MString* colorSet = nullptr) const;
    /// By corner, faces on end.
    MStatus getFaceVertexColors(MColorArray& colors, const MString* colorSet = nullptr,
                                const MColor* defaultUnsetColor = nullptr) const;
    /// By vertex, the mean of its corners that have one.
    MStatus getVertexColors(MColorArray& colors, const MString* colorSet = nullptr,
                            const MColor* defaultUnsetColor = nullptr) const;
    /// -1 when the corner has none.
    MStatus getColorIndex(int polygonId, int vertexIndex, int& colorId, const MString* colorSet = nullptr) const;
    MStatus getColorSetNames(MStringArray& names) const;
    MString currentColorSetName(MStatus* ReturnStatus = nullptr, int instance = -1) const;
    MStatus getCurrentColorSetName(MString& name, int instance = -1) const;
    MColorRepresentation getColorRepresentation(const MString& colorSet, MStatus* ReturnStatus = nullptr) const;
    bool isColorClamped(const MString& colorSet, MStatus* ReturnStatus = nullptr) const;

    // --- sets
    /// Replaces both arrays with an entry per set that has this instance, or some of its components: the set, and the
    /// components; a null object when the instance itself is a member, else as many elements as there are, also none.
    /// Sets that have it whole come first, then in the order of the instance's groups; a set stands once for each kind
    /// of component. `renderableSetsOnly`: shading groups only. Fails on an instance that does not exist.
    MStatus getConnectedSetsAndMembers(unsigned int instanceNumber, MObjectArray& sets, MObjectArray& components,
                                       bool renderableSetsOnly) const;
    /// The shading groups of an instance, and per face the place of its group among them, -1 for a face in none. A
    /// group that has the face itself counts before one that has the whole instance, the later before the earlier; a
    /// group connected to compInstObjGroups gets the faces that no other has.
    MStatus getConnectedShaders(unsigned int instanceNumber, MObjectArray& shaders, MIntArray& indices) const;
};
