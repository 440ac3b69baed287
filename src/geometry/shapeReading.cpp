#include "geometry/shapeReading.h"

#include "common/numberText.h"
#include "geometry/DeformerGuard.h"
#include "geometry/componentSubjects.h"
#include "geometry/geometryMessages.h"
#include "geometry/nodeReferences.h"
#include "geometry/outerWorld.h"
#include "geometry/skinReading.h"
#include "geometry/skinSource.h"
#include "scene/Run.h"
#include "scene/nodeMatrix.h"
#include "scene/plugReading.h"

#include <maya/MFloatVectorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MPointArray.h>

#include <cmath>
#include <string>

namespace tvk {
namespace {

std::string countsText(const char* indent, int64_t original, int64_t current) {
    return std::string("\n") + indent + "original = " + integerText(original).str() +
           ", current = " + integerText(current).str();
}

MStatus checkVertexCount(const MFnMesh& original, const ShapeRecord& shape) {
    if (original.numVertices() == shape.vertexCount) {
        return MS::kSuccess;
    }
    say(kVertexNumberDiffers, shape.name + countsText("       ", original.numVertices(), shape.vertexCount));
    return MS::kFailure;
}

void checkNormalCount(const MFnMesh& original, const ShapeRecord& shape) {
    const auto count = static_cast<int>(shape.exportedNormals().size());
    if (original.numNormals() != count) {
        say(kNormalNumberDiffers, shape.name + countsText("         ", original.numNormals(), count));
    }
}

bool readPoints(const MFnMesh& mesh, ShapeRecord& shape) {
    MPointArray points;
    if (!mesh.getPoints(points, MSpace::kObject)) {
        return false;
    }
    const double magnify = run().options.magnify;
    const Vector3& pivot = shape.node->pivotOffset;
    shape.points.resize(points.length());
    for (unsigned int i = 0; i < points.length(); ++i) {
        const MPoint& point = points[i];
        shape.points[i] = {magnify * point.x - pivot[0], magnify * point.y - pivot[1], magnify * point.z - pivot[2]};
    }
    return true;
}

bool readNormals(const MFnMesh& mesh, std::vector<FloatVector3>& normals) {
    MFloatVectorArray read;
    if (!mesh.getNormals(read, MSpace::kObject)) {
        return false;
    }
    normals.resize(read.length());
    for (unsigned int i = 0; i < read.length(); ++i) {
        normals[i] = {read[i].x, read[i].y, read[i].z};
    }
    return true;
}

MStatus checkPoints(const ShapeRecord& shape) {
    for (std::size_t i = 0; i < shape.points.size(); ++i) {
        for (const double component : shape.points[i]) {
            if (!std::isfinite(component)) {
                say(kInvalidVertex, vertexSubject(shape.path, static_cast<int64_t>(i)));
                return MS::kFailure;
            }
        }
    }
    return MS::kSuccess;
}

MStatus refuseMesh(const ShapeRecord& shape) {
    say(kInvalidMesh, shape.name);
    return MS::kFailure;
}

// Points and normals as they are exported: of a shape that a skeleton drives, in the pose of its binding. A deformer
// that cannot be switched off is got round by reading what it deforms.
MStatus readGeometry(const MObject& original, ShapeRecord& shape) {
    MFnMesh mesh(shape.path);
    if (!readNormals(mesh, shape.normals)) {
        return refuseMesh(shape);
    }
    if (!run().options.atBindPose() || !shape.isDeformed()) {
        return readPoints(mesh, shape) ? checkPoints(shape) : refuseMesh(shape);
    }
    const DeformerGuard guard(shape.deformers);
    if (!guard.areAllOff() && !original.isNull()) {
        mesh.setObject(original);
    }
    if (!readPoints(mesh, shape) || !readNormals(mesh, shape.undeformedNormals)) {
        return refuseMesh(shape);
    }
    return static_cast<int32_t>(shape.points.size()) == shape.vertexCount ? checkPoints(shape) : refuseMesh(shape);
}

// Neither side is drawn for itself, and the one that the normals point away from counts as the front.
bool hasFlippedSide(const MObject& shape) {
    return attributeOr(shape, "opposite", false) && !attributeOr(shape, "doubleSided", true);
}

void beginShape(NodeRecord& node, ShapeRecord& shape) {
    const double magnify = run().options.magnify;
    const MObject object = node.shape.node();
    shape.node = &node;
    shape.path = node.shape;
    shape.name = textOf(MFnDependencyNode(object).name());
    shape.isFlipped = hasFlippedSide(object);
    shape.world = withScaledTranslation(node.shape.inclusiveMatrix(), magnify);
    shape.bindWorld = shape.world;
    shape.outerWorld = run().options.unite ? MMatrix::identity : outerWorldOf(node, magnify);
    shape.firstVertex = static_cast<int32_t>(run().scene.vertexMatrices.size());
}

MStatus readShape(NodeRecord& node, const NodeLookup& nodes, MatrixPalette& palette, ShapeRecord& shape) {
    beginShape(node, shape);
    MStatus status;
    const MFnMesh mesh(shape.path, &status);
    if (!status) {
        return refuseMesh(shape);
    }
    shape.vertexCount = mesh.numVertices();
    shape.faceCount = mesh.numPolygons();
    if (shape.faceCount <= 0) {
        say(kNoPolygon, shape.name);
        return MS::kFailure;
    }
    const ShapeHistory history = findShapeHistory(shape.path);
    for (const Deformer& deformer : history.deformers) {
        shape.deformers.push_back(deformer.node);
    }
    const MObject original = findOriginalMesh(history, node.originalShape);
    shape.hasOriginalMesh = !original.isNull();
    status = readSkin(history, nodes, palette, shape);
    if (!status) {
        return status;
    }
    const bool isComparable = shape.hasOriginalMesh && !run().options.ignoreSkinning();
    const MFnMesh originalMesh(original);
    if (isComparable && !checkVertexCount(originalMesh, shape)) {
        return MS::kFailure;
    }
    status = readGeometry(original, shape);
    if (status && isComparable) {
        checkNormalCount(originalMesh, shape);
    }
    return status;
}

bool hasEffectiveSkin(const NodeRecord& node) {
    return findSkinSource(findShapeHistory(node.shape)).isEffective;
}

// What uniting freezes is told once, whatever the number of skins.
void informOfBakedPose() {
    for (const auto& node : run().scene.nodes) {
        if (node->kind == NodeKind::kMesh && node->visibility && hasEffectiveSkin(*node)) {
            showInformation("The pose at the start frame is exported, as nodes are united: " + node->name);
            return;
        }
    }
}

bool isLeftOut(const NodeRecord& node) {
    if (!run().options.unite || node.visibility) {
        return false;
    }
    say(kHiddenMesh, textOf(MFnDependencyNode(node.shape.node()).name()));
    return true;
}

} // namespace

MStatus readShapes() {
    SceneData& scene = run().scene;
    if (run().options.ignoreSkinning()) {
        informOfBakedPose();
    }
    const NodeLookup nodes(scene);
    MatrixPalette palette(scene.matrices, scene.envelope);
    for (const auto& node : scene.nodes) {
        if (node->kind != NodeKind::kMesh || isLeftOut(*node)) {
            continue;
        }
        scene.shapes.emplace_back();
        const MStatus status = readShape(*node, nodes, palette, scene.shapes.back());
        if (!status) {
            return status;
        }
    }
    checkMatrixCount(scene);
    markMatrixNodes(scene);
    return MS::kSuccess;
}

} // namespace tvk
