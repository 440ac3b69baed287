#include "export/nodeShapes.h"

#include "export/exportMessages.h"
#include "scene/Run.h"
#include "scene/nodeTests.h"
#include "scene/plugReading.h"

#include <maya/MFn.h>

#include <algorithm>
#include <array>
#include <string>

namespace tvk {
namespace {

struct UnsupportedShape {
    MFn::Type type;
    const Message& warning;
};

const std::array<UnsupportedShape, 3> kUnsupportedShapes{{
    {MFn::kNurbsCurve, kNurbsCurve},
    {MFn::kNurbsSurface, kNurbsSurface},
    {MFn::kSubdiv, kSubdivSurface},
}};

constexpr std::array<MFn::Type, 3> kViewTypes{MFn::kCamera, MFn::kLight, MFn::kSketchPlane};

bool servesTheView(const MObject& shape) {
    return std::any_of(kViewTypes.begin(), kViewTypes.end(), [&](MFn::Type type) { return shape.hasFn(type); });
}

std::string nodeName(MObject node) {
    return textOf(MFnDependencyNode(node).name());
}

// A shape that a deformer history starts from: the host calls it so, and its mesh goes somewhere.
bool isOriginal(MObject shape) {
    const MFnDependencyNode function(shape);
    if (textOf(function.name()).find("Orig") == std::string::npos) {
        return false;
    }
    const MPlug worldMesh = findPlug(function, "worldMesh");
    return !worldMesh.isNull() && worldMesh.elementByLogicalIndex(0).isConnected();
}

void reportUnsupported(const MObject& shape, const MDagPath& transform) {
    for (const UnsupportedShape& unsupported : kUnsupportedShapes) {
        if (shape.hasFn(unsupported.type) && isShown(shape)) {
            say(unsupported.warning, nodeName(transform.node()));
        }
    }
}

struct MeshCounts {
    int kept = 0;
    int shownOriginals = 0;
};

void readMesh(const MDagPath& path, NodeShapes& shapes, MeshCounts& counts) {
    const MObject shape = path.node();
    const bool shown = isNodeEffective(shape) && isShown(shape);
    // Originals are intermediate objects, so they must be recognised before asking what is shown.
    if (isOriginal(shape)) {
        shapes.original = path;
        counts.shownOriginals += shown ? 1 : 0;
    } else if (shown) {
        shapes.kept = path;
        ++counts.kept;
    }
}

void judgeMeshes(const MDagPath& transform, const MeshCounts& counts, NodeShapes& shapes) {
    if (counts.kept >= 2 && !run().options.quietTextureWarnings) {
        say(kTooManyShapes, nodeName(transform.node()));
    }
    if (counts.kept == 0 && counts.shownOriginals > 0) {
        say(kNoEffectiveShape, nodeName(transform.node()));
        shapes.status = MS::kFailure;
    }
}

} // namespace

NodeShapes readNodeShapes(const MDagPath& transform) {
    NodeShapes shapes;
    MeshCounts counts;
    for (unsigned int i = 0; i < transform.childCount(); ++i) {
        const MObject child = transform.child(i);
        if (child.hasFn(MFn::kTransform)) {
            continue;
        }
        ++shapes.shapeCount;
        if (servesTheView(child)) {
            ++shapes.viewShapeCount;
        } else if (child.hasFn(MFn::kMesh)) {
            MDagPath path = transform;
            path.push(child);
            readMesh(path, shapes, counts);
        } else {
            reportUnsupported(child, transform);
        }
    }
    judgeMeshes(transform, counts, shapes);
    return shapes;
}

} // namespace tvk
