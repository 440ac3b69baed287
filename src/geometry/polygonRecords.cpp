#include "geometry/polygonRecords.h"

#include "common/numberText.h"
#include "geometry/DeformerGuard.h"
#include "geometry/ShapeFaces.h"
#include "geometry/geometryMessages.h"
#include "geometry/shadingGroups.h"
#include "material/materials.h"
#include "scene/Run.h"

#include <optional>
#include <string>
#include <utility>

namespace tvk {
namespace {

// Neither light nor texture asks for the corner's own coordinates when the console makes them from something else.
bool needsTexCoords(const MaterialRecord& material, int32_t textureSource) {
    const bool isGenerated = material.texGenMode == kTexGenNrm || material.texGenMode == kTexGenPos;
    return textureSource >= 0 && !(isGenerated && material.texGenStSrc == 1);
}

void takeFlags(const MaterialRecord& material, PolygonRecord& polygon) {
    polygon.nrmFlag = material.lightingEnabled;
    polygon.texFlag = needsTexCoords(material, polygon.textureSource);
    polygon.resetNormalAfterTexture =
        polygon.nrmFlag && polygon.texFlag && material.texGenMode == kTexGenNrm && material.texGenStSrc == 0;
}

MStatus takeMaterial(const FaceGroupFindings& findings, PolygonRecord& polygon) {
    int material = 0;
    int textureSource = -1;
    int renderPriority = 0;
    const MStatus status = getMaterial(polygon.shadingGroup, findings.hasUvs, material, textureSource, renderPriority);
    if (status) {
        polygon.material = material;
        polygon.textureSource = textureSource;
        polygon.renderPriority = renderPriority;
        takeFlags(run().scene.materials[static_cast<std::size_t>(material)], polygon);
    }
    return status;
}

// The picture's size that texture coordinates count in.
PictureSize pictureOf(const PolygonRecord& polygon) {
    const SceneData& scene = run().scene;
    const TextureSourceRecord& source = scene.textureSources[static_cast<std::size_t>(polygon.textureSource)];
    const MaterialTextureRef& reference = scene.textureRefs[static_cast<std::size_t>(source.textureRef)];
    const TextureRecord& texture = scene.textures[static_cast<std::size_t>(reference.imageIndex)];
    return {texture.originalWidth, texture.originalHeight};
}

PolygonRecord beginPolygon(const ShapeRecord& shape, const MObject& shadingGroup) {
    PolygonRecord polygon;
    polygon.shape = shape.path;
    polygon.shadingGroup = shadingGroup;
    polygon.name = shape.name;
    polygon.node = run().options.unite ? run().scene.nodes.front().get() : shape.node;
    return polygon;
}

void countFaces(const PolygonPart& part, PolygonRecord& polygon) {
    for (const int32_t size : part.faceSizes) {
        polygon.triangleCount += size - 2;
    }
    run().scene.gatheredCorners += static_cast<int64_t>(part.corners.size());
    run().scene.gatheredTriangles += polygon.triangleCount;
    polygon.node->hasFaces = polygon.node->hasFaces || !part.faceSizes.empty();
}

MStatus addPolygon(const ShadingAssignment& assignment, int32_t shapePlace, ShapeFaces& faces) {
    const ShapeRecord& shape = run().scene.shapes[static_cast<std::size_t>(shapePlace)];
    PolygonRecord polygon = beginPolygon(shape, assignment.shadingGroup);
    PolygonPart part;
    part.shape = shapePlace;
    FaceGroupFindings findings;
    MStatus status = faces.read(assignment.component, part, findings);
    if (!status) {
        return status;
    }
    polygon.clrFlag = findings.hasColors;
    countFaces(part, polygon);
    status = takeMaterial(findings, polygon);
    if (!status) {
        return status;
    }
    if (polygon.nrmFlag) {
        faces.checkNormals();
    }
    if (polygon.texFlag) {
        faces.readTexCoords(assignment.component, pictureOf(polygon), part);
    }
    polygon.parts.push_back(std::move(part));
    run().scene.polygons.push_back(std::move(polygon));
    return MS::kSuccess;
}

MStatus addShape(int32_t place) {
    ShapeRecord& shape = run().scene.shapes[static_cast<std::size_t>(place)];
    std::optional<DeformerGuard> guard;
    if (run().options.atBindPose()) {
        guard.emplace(shape.deformers);
    }
    std::vector<ShadingAssignment> assignments;
    MStatus status = findShadingAssignments(shape, assignments);
    if (!status) {
        return status;
    }
    shape.uvSet = readUvSetName(shape.path);
    ShapeFaces faces(shape);
    for (const ShadingAssignment& assignment : assignments) {
        status = addPolygon(assignment, place, faces);
        if (!status) {
            return status;
        }
    }
    const int64_t missing = shape.faceCount - faces.readCount();
    if (missing > 0) {
        say(kFacesWithoutShadingGroup, shape.name + " (" + integerText(missing).str() + ")");
    }
    return MS::kSuccess;
}

} // namespace

MStatus buildPolygonRecords() {
    for (std::size_t i = 0; i < run().scene.shapes.size(); ++i) {
        const MStatus status = addShape(static_cast<int32_t>(i));
        if (!status) {
            return status;
        }
    }
    return MS::kSuccess;
}

} // namespace tvk
