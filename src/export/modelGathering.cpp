#include "export/modelGathering.h"

#include "export/foldedTransforms.h"
#include "export/materialPass.h"
#include "export/nodeCompression.h"
#include "export/nodeTransforms.h"
#include "export/nodeTree.h"
#include "geometry/bindPose.h"
#include "geometry/modelTables.h"
#include "geometry/nodeReferences.h"
#include "geometry/polygonCombining.h"
#include "geometry/polygonRecords.h"
#include "geometry/shapeReading.h"
#include "geometry/vertexPlacement.h"
#include "scene/Run.h"

#include <algorithm>
#include <array>

namespace tvk {
namespace {

// Who is exported as it was bound must be known before any transform is read.
MStatus readTransforms() {
    markInfluences(run().scene);
    return readNodeTransforms(findBindMatrix);
}

constexpr std::array<MStatus (*)(), 5> kSteps{buildNodeTree, readTransforms, readShapes, buildPolygonRecords,
                                              settleMaterials};

void settleScalingRule(SceneData& scene) {
    scene.scalingRuleIsMaya = std::any_of(scene.outputNodes.begin(), scene.outputNodes.end(),
                                          [](const NodeRecord* node) { return node->writesCompensation; });
}

// The root draws everything, if there is anything.
void settleUnitedRoot(SceneData& scene) {
    const bool draws = std::any_of(scene.polygons.begin(), scene.polygons.end(),
                                   [](const PolygonRecord& polygon) { return !polygon.dropped; });
    scene.outputNodes.front()->kind = draws ? NodeKind::kMesh : NodeKind::kNull;
}

} // namespace

MStatus readModel() {
    for (const auto& step : kSteps) {
        const MStatus status = step();
        if (!status) {
            return status;
        }
    }
    return MS::kSuccess;
}

// Vertices are placed by the nodes' final world matrices. Polygons are combined before the tables are filled, so that
// nothing in these is without a user.
void settleModel() {
    SceneData& scene = run().scene;
    const ExportOptions& options = run().options;
    markKeptNodes(scene);
    compressNodes(scene, options.optimizeNode);
    foldTransforms(scene);
    settleScalingRule(scene);
    resolveNodeReferences(scene);
    placeVertices(scene, options.unite);
    if (options.uniteCombine) {
        combinePolygons(scene);
    }
    fillTables(scene, options.unite);
    if (options.unite) {
        settleUnitedRoot(scene);
    }
}

} // namespace tvk
