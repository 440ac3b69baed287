#include "geometry/bindPose.h"

#include "geometry/NodeLookup.h"
#include "geometry/geometryMessages.h"
#include "geometry/guardedInverse.h"
#include "geometry/skinSource.h"
#include "scene/Run.h"
#include "scene/plugReading.h"

#include <maya/MFnMatrixData.h>
#include <maya/MPlugArray.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace tvk {
namespace {

constexpr std::array<std::string_view, 3> kBindingTypes{"skinCluster", "jointCluster", "cluster"};

bool shapesSomething(const MFnDependencyNode& deformer) {
    const MPlug outputs = findPlug(deformer, "outputGeometry");
    return !outputs.isNull() && (outputs.isArray() ? outputs.numConnectedElements() > 0 : outputs.isConnected());
}

// Whether the plug takes the world matrix of a driver, of a deformer that shapes something.
bool isDriverPlug(const MPlug& plug) {
    const MObject object = plug.node();
    const MFnDependencyNode node(object);
    const std::string type = textOf(node.typeName());
    if (std::find(kBindingTypes.begin(), kBindingTypes.end(), type) == kBindingTypes.end()) {
        return false;
    }
    const MPlug matrix = findPlug(node, "matrix");
    return !matrix.isNull() && plug.attribute() == matrix.attribute() && shapesSomething(node);
}

MPlug bindPlugOf(const MPlug& driverPlug) {
    const MObject object = driverPlug.node();
    const MPlug plug = findPlug(MFnDependencyNode(object), "bindPreMatrix");
    return !plug.isNull() && plug.isArray() && driverPlug.isElement()
               ? plug.elementByLogicalIndex(driverPlug.logicalIndex())
               : plug;
}

} // namespace

void markInfluences(SceneData& scene) {
    if (!run().options.atBindPose()) {
        return;
    }
    const NodeLookup nodes(scene);
    for (const auto& node : scene.nodes) {
        if (node->kind != NodeKind::kMesh || !node->shape.isValid()) {
            continue;
        }
        const SkinSource source = findSkinSource(findShapeHistory(node->shape));
        if (!source.exists || !source.isEffective) {
            continue;
        }
        for (const InfluenceObject& influence : findInfluenceObjects(source)) {
            NodeRecord* const driver = influence.path.isValid() ? nodes.find(influence.path) : nullptr;
            if (driver != nullptr) {
                driver->bindPoseExempt = false;
            }
        }
    }
}

std::optional<MMatrix> readBindMatrix(const MPlug& bindPreMatrix) {
    MObject data;
    MStatus status = MS::kFailure;
    if (readPlug(bindPreMatrix, data)) {
        const MFnMatrixData function(data, &status);
        if (status) {
            return guardedInverse(function.matrix());
        }
    }
    say(kBindPreMatrixFailed, textOf(bindPreMatrix.name()));
    return std::nullopt;
}

std::optional<MMatrix> findBindMatrix(const NodeRecord& node) {
    const MObject object = node.path.node();
    const MPlug worlds = findPlug(MFnDependencyNode(object), "worldMatrix");
    MPlugArray driven;
    if (worlds.isNull() || !worlds.elementByLogicalIndex(0).connectedTo(driven, false, true)) {
        return std::nullopt;
    }
    for (unsigned int i = 0; i < driven.length(); ++i) {
        if (isDriverPlug(driven[i])) {
            return readBindMatrix(bindPlugOf(driven[i]));
        }
    }
    return std::nullopt;
}

} // namespace tvk
