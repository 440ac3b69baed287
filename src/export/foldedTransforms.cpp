#include "export/foldedTransforms.h"

#include "export/exportMessages.h"
#include "scene/decomposition.h"
#include "scene/messages.h"
#include "scene/nodeMatrix.h"
#include "scene/plugDriver.h"
#include "scene/plugReading.h"

#include <maya/MFnDependencyNode.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace tvk {
namespace {

// From a removed node's space to that of its nearest remaining ancestor.
using FoldedMatrices = std::unordered_map<const NodeRecord*, MMatrix>;

FoldedMatrices foldedMatrices(const SceneData& scene) {
    FoldedMatrices matrices;
    for (const auto& node : scene.nodes) {
        if (node->removed) {
            const bool goesOn = node->foldedCount > 0;
            matrices[node.get()] = goesOn ? node->local * matrices[node->scene.parent] : node->local;
        }
    }
    return matrices;
}

void writeMatrix(NodeRecord& node, const MMatrix& matrix) {
    const Decomposition found = decompose(matrix, node.own.rotate);
    node.written = found.parts;
    std::transform(node.written.rotate.begin(), node.written.rotate.end(), node.written.rotate.begin(),
                   normalisedAngle);
    node.writesCompensation = false;
    const bool sheared = std::any_of(found.shear.begin(), found.shear.end(),
                                     [](double part) { return !(std::abs(part) <= kLargestIgnoredShear); });
    if (sheared && !node.shearTold) {
        node.shearTold = true;
        say(kShear, node.name);
    }
}

bool hasMovingScale(const NodeRecord& node) {
    constexpr std::array<const char*, 3> kParts{"scaleX", "scaleY", "scaleZ"};
    MStatus status;
    const MFnDependencyNode function(node.path.node(), &status);
    return status && std::any_of(kParts.begin(), kParts.end(),
                                 [&](const char* part) { return findDriver(findPlug(function, part)).isAnimated(); });
}

// Whether some frame's folded ancestors may bring a scale along, though those of the static pose do not.
bool foldsMovingScale(const NodeRecord& node) {
    const NodeRecord* above = &node;
    for (int32_t left = node.foldedCount; left > 0; --left) {
        above = above->scene.parent;
        const bool undoesOne = above->scaleCompensate && hasMovingScale(*above->scene.parent);
        if (undoesOne || hasMovingScale(*above)) {
            return true;
        }
    }
    return false;
}

bool writesOtherScale(const NodeRecord& node) {
    return quantised(node.written).scale != quantised(node.own).scale || foldsMovingScale(node);
}

void findExportedWorld(NodeRecord& node) {
    const NodeRecord* const parent = node.output.parent;
    const Vector3 parentScale = parent == nullptr ? Vector3{1.0, 1.0, 1.0} : quantised(parent->written).scale;
    const MMatrix local = localMatrix(quantised(node.written), node.writesCompensation, parentScale);
    node.exportedWorld = parent == nullptr ? local : local * parent->exportedWorld;
}

} // namespace

void foldTransforms(SceneData& scene) {
    const FoldedMatrices folded = foldedMatrices(scene);
    for (NodeRecord* node : scene.outputNodes) {
        if (node->foldedCount > 0) {
            writeMatrix(*node, node->local * folded.at(node->scene.parent));
        } else if (node->writesCompensation && writesOtherScale(*node->scene.parent)) {
            writeMatrix(*node, node->local);
        }
        findExportedWorld(*node);
    }
}

} // namespace tvk
