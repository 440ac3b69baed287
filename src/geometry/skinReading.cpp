#include "geometry/skinReading.h"

#include "common/numberText.h"
#include "geometry/PolygonPrimitives.h"
#include "geometry/clusterReading.h"
#include "geometry/geometryMessages.h"
#include "geometry/guardedInverse.h"
#include "geometry/outerWorld.h"
#include "geometry/skinSource.h"
#include "geometry/skinWeights.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/nodeMatrix.h"

#include <string>

namespace tvk {
namespace {

std::string nameOf(MObject node) {
    return textOf(MFnDependencyNode(node).name());
}

void tellOfLosses(const SkinSource& source, const ShapeRecord& shape) {
    for (const MObject& deformer : source.noEffect) {
        say(kDeformerNotEffective, nameOf(deformer));
    }
    std::string names;
    for (const MObject& deformer : source.ignored) {
        names += (names.empty() ? "" : ", ") + nameOf(deformer);
    }
    if (!names.empty()) {
        say(kDeformerIgnored, names + " -> " + shape.name);
    }
}

MStatus takeInfluences(const SkinSource& source, const NodeLookup& nodes, ShapeRecord& shape) {
    const double magnify = run().options.magnify;
    for (const InfluenceObject& influence : findInfluenceObjects(source)) {
        NodeRecord* const node = influence.path.isValid() ? nodes.find(influence.path) : nullptr;
        if (node == nullptr) {
            say(kInfluenceNotOutput, influence.subject + " -> " + shape.name);
            return MS::kFailure;
        }
        shape.influences.push_back({node, withScaledTranslation(influence.bindInverse, magnify)});
    }
    // The vertices that a cluster moves only in part follow the shape's own node with the rest.
    if (source.kind == DeformerKind::kCluster) {
        shape.influences.push_back({shape.node, guardedInverse(shape.world)});
    }
    return MS::kSuccess;
}

// The frame of whoever reads the model: all influences of a skin count as below the first one's top node.
void takeWorlds(const SkinSource& source, ShapeRecord& shape) {
    MMatrix bound;
    if (source.kind != DeformerKind::kCluster && readBindWorld(source, bound)) {
        shape.bindWorld = withScaledTranslation(bound, run().options.magnify);
    }
    if (!shape.influences.empty()) {
        shape.outerWorld = outerWorldOf(*shape.influences.front().node, run().options.magnify);
    }
}

MStatus bindVertices(const SkinSource& source, const ShapeRecord& shape, VertexBinder& binder) {
    switch (source.kind) {
    case DeformerKind::kSkinCluster:
        return bindToSkin(source.nearest, shape, binder);
    case DeformerKind::kJointCluster:
        return bindToJointClusters(source, shape, binder);
    default:
        return bindToClusters(source, shape, binder);
    }
}

} // namespace

MStatus readSkin(const ShapeHistory& history, const NodeLookup& nodes, MatrixPalette& palette, ShapeRecord& shape) {
    VertexBinder binder(shape, palette, run().scene.vertexMatrices);
    if (run().options.ignoreSkinning()) {
        binder.bindAll(*run().scene.nodes.front());
        return MS::kSuccess;
    }
    const SkinSource source = findSkinSource(history);
    if (!source.exists) {
        binder.bindAll(*shape.node);
        return MS::kSuccess;
    }
    if (!source.isEffective) {
        say(kDeformerNotEffective, nameOf(source.nearest));
        binder.bindAll(*shape.node);
        return MS::kSuccess;
    }
    tellOfLosses(source, shape);
    const MStatus status = takeInfluences(source, nodes, shape);
    if (!status) {
        return status;
    }
    shape.isSkinned = true;
    takeWorlds(source, shape);
    return bindVertices(source, shape, binder);
}

void checkMatrixCount(const SceneData& scene) {
    if (scene.matrices.size() > static_cast<std::size_t>(kMatrixSlotCount)) {
        say(kTooManyMatrices, integerText(static_cast<int64_t>(scene.matrices.size())).view());
    }
}

} // namespace tvk
