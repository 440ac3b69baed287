#pragma once

#include "scene/SceneData.h"

#include <maya/MFnMesh.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <string>
#include <vector>

namespace tvk {

/// What the faces of one shading group have.
struct FaceGroupFindings {
    bool hasColors = false; // some corner does
    bool hasUvs = false;    // some face does, in the shape's UV set
};

/// In pixels.
struct PictureSize {
    int32_t width = 0;
    int32_t height = 0;
};

/// The name of a shape's first UV set, whichever is the current one; "map1" when it has none or one without a name.
std::string readUvSetName(const MDagPath& shape);

/// Reads the faces of one shape, shading group by shading group. What is said once per shape is said once in the
/// lifetime of this.
class ShapeFaces {
public:
    /// The shape must outlive this; its UV set is known.
    explicit ShapeFaces(const ShapeRecord& shapeRecord);

    /// Appends the faces of a component (null: all) to the part, with vertices, normals and colours. Fails, with a
    /// message, on a face with holes.
    MStatus read(MObject component, PolygonPart& part, FaceGroupFindings& findings);

    /// Sets the texture coordinates of all corners of a part that was read from the same component. Warns of corners
    /// without any, which get those of (0, 0), and of such that are too large for the file.
    void readTexCoords(MObject component, const PictureSize& picture, PolygonPart& part);

    /// Warns of normals without length. Looks once, however many groups the shape has.
    void checkNormals();

    /// Faces that were read, each counted once.
    int64_t readCount() const { return facesRead; }

private:
    bool readFace(MItMeshPolygon& face, PolygonPart& part, FaceGroupFindings& findings);
    CornerSource readCorner(MItMeshPolygon& face, int corner, bool faceHasColors) const;
    FixedTexCoord readTexCoord(int face, int corner, const PictureSize& picture);

    const ShapeRecord& shape;
    const MFnMesh mesh;
    const MString uvSet;
    std::vector<bool> wasRead; // per face
    int64_t facesRead = 0;
    bool normalsChecked = false;
    bool toldOfMissingUv = false;
    bool toldOfUvRange = false;
};

} // namespace tvk
