#include "geometry/ShapeFaces.h"

#include "common/numberText.h"
#include "geometry/componentSubjects.h"
#include "geometry/geometryMessages.h"
#include "geometry/texelCoordinates.h"
#include "scene/plugReading.h"

#include <maya/MColor.h>

#include <algorithm>

namespace tvk {
namespace {

bool hasZero(const std::vector<FloatVector3>& normals) {
    return std::any_of(normals.begin(), normals.end(),
                       [](const FloatVector3& n) { return n[0] == 0.0F && n[1] == 0.0F && n[2] == 0.0F; });
}

ColorWord readColor(MItMeshPolygon& face, int corner) {
    MColor color;
    if (!face.hasColor(corner) || !face.getColor(color, corner)) {
        return 0;
    }
    return colorWordOf(color.r, color.g, color.b);
}

} // namespace

std::string readUvSetName(const MDagPath& shape) {
    const MObject object = shape.node();
    const MPlug sets = findPlug(MFnDependencyNode(object), "uvSet");
    MString name;
    const bool isNamed = !sets.isNull() && sets.numElements() > 0 &&
                         readPlug(sets.elementByPhysicalIndex(0).child(0), name) && name.length() > 0;
    return isNamed ? textOf(name) : "map1";
}

ShapeFaces::ShapeFaces(const ShapeRecord& shapeRecord)
    : shape(shapeRecord), mesh(shapeRecord.path), uvSet(hostText(shapeRecord.uvSet)),
      wasRead(static_cast<std::size_t>(shapeRecord.faceCount)) {}

MStatus ShapeFaces::read(MObject component, PolygonPart& part, FaceGroupFindings& findings) {
    MStatus status;
    MItMeshPolygon face(shape.path, component, &status);
    constexpr std::size_t kUsualCorners = 4;
    const std::size_t count = status ? face.count() : 0;
    part.faceSizes.reserve(count);
    part.corners.reserve(count * kUsualCorners);
    for (; status && !face.isDone(); face.next()) {
        if (!readFace(face, part, findings)) {
            return MS::kFailure;
        }
    }
    return MS::kSuccess;
}

bool ShapeFaces::readFace(MItMeshPolygon& face, PolygonPart& part, FaceGroupFindings& findings) {
    const auto index = static_cast<std::size_t>(face.index());
    if (face.isHoled()) {
        say(kHoledPolygon, componentSubject(shape.name, "f", static_cast<int64_t>(index)));
        return false;
    }
    if (index < wasRead.size() && !wasRead[index]) {
        wasRead[index] = true;
        ++facesRead;
    }
    const bool hasColors = face.hasColor();
    findings.hasColors = findings.hasColors || hasColors;
    findings.hasUvs = findings.hasUvs || face.hasUVs(uvSet);
    const auto count = static_cast<int>(face.polygonVertexCount());
    part.faceSizes.push_back(count);
    for (int k = 0; k < count; ++k) {
        part.corners.push_back(readCorner(face, k, hasColors));
    }
    return true;
}

CornerSource ShapeFaces::readCorner(MItMeshPolygon& face, int corner, bool faceHasColors) const {
    CornerSource source;
    source.vertex = face.vertexIndex(corner);
    source.normal = static_cast<int32_t>(face.normalIndex(corner));
    source.color = faceHasColors ? readColor(face, corner) : ColorWord{0};
    return source;
}

void ShapeFaces::readTexCoords(MObject component, const PictureSize& picture, PolygonPart& part) {
    MStatus status;
    MItMeshPolygon face(shape.path, component, &status);
    auto source = part.corners.begin();
    for (const int32_t size : part.faceSizes) {
        const auto index = static_cast<int>(face.index());
        for (int k = 0; k < size; ++k, ++source) {
            source->texCoord = readTexCoord(index, k, picture);
        }
        face.next();
    }
}

FixedTexCoord ShapeFaces::readTexCoord(int face, int corner, const PictureSize& picture) {
    float u = 0.0F;
    float v = 0.0F;
    if (!mesh.getPolygonUV(face, corner, u, v, &uvSet)) {
        u = v = 0.0F;
        if (!toldOfMissingUv) {
            say(kCantGetUv, faceSubject(shape.path, face));
            toldOfMissingUv = true;
        }
    }
    const TexelPoint texels = texelPointOf(u, v, picture.width, picture.height);
    if (!toldOfUvRange && !isInTexelRange(texels)) {
        say(kUvRangeOver, faceSubject(shape.path, face) + " (" + realText(texels.s) + ", " + realText(texels.t) + ")");
        toldOfUvRange = true;
    }
    return fixedTexCoordOf(texels);
}

void ShapeFaces::checkNormals() {
    if (!normalsChecked && (hasZero(shape.normals) || hasZero(shape.undeformedNormals))) {
        say(kZeroNormal, shape.name);
    }
    normalsChecked = true;
}

} // namespace tvk
