#include "host/nodes/polyFaceCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/historyCompute.h"
#include "host/nodes/polyModifier.h"

#include "host/geometry/deleteParts.h"
#include "host/geometry/detachment.h"
#include "host/geometry/faceOrder.h"
#include "host/geometry/mergeVertices.h"
#include "host/geometry/meshComponents.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/subdivision.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace host {

namespace {

using Imath::V3d;
using Imath::V3f;

double numberOf(Evaluation& evaluation, Node& node, const char* name) {
    return evaluation.number(node, node.type().find(name));
}

bool isSet(Evaluation& evaluation, Node& node, const char* name) {
    return numberOf(evaluation, node, name) != 0.0;
}

std::vector<bool> chosenFaces(Evaluation& evaluation, Node& node, const MeshData& mesh) {
    return namedFaces(*chosenOf(evaluation, node), *mesh.topology);
}

/// How often to divide: 0 when that would be too much, which is said, and the mesh is empty then.
std::int32_t levelsOf(Evaluation& evaluation, Node& node, MeshData& mesh) {
    constexpr double kMostLevels = 32;
    const auto levels =
        static_cast<std::int32_t>(std::clamp(numberOf(evaluation, node, "divisions"), 0.0, kMostLevels));
    if (isTooMuchToSubdivide(*mesh.topology, levels)) {
        evaluation.warn(node.name() + ": it makes too many faces (its mesh is empty)");
        mesh = MeshData();
        return 0;
    }
    return levels;
}

void subdivideChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    if (const std::int32_t levels = levelsOf(evaluation, node, mesh)) {
        mesh = *subdivideFaces(mesh, chosenFaces(evaluation, node, mesh), levels);
    }
}

void smoothAll(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::vector<bool> chosen = chosenFaces(evaluation, node, mesh);
    if (std::find(chosen.begin(), chosen.end(), true) == chosen.end()) {
        return;
    }
    if (const std::int32_t levels = levelsOf(evaluation, node, mesh)) {
        SmoothRules rules;
        rules.smoothsUvs = isSet(evaluation, node, "smoothUVs");
        rules.keepsHardness = isSet(evaluation, node, "propagateEdgeHardness");
        mesh = *smoothFaces(mesh, levels, rules);
    }
}

/// Two chosen vertices become one however far they are apart, when the node says so.
void mergeChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::vector<bool> chosen = namedVertices(*chosenOf(evaluation, node), *mesh.topology);
    double distance = numberOf(evaluation, node, "distance");
    if (std::count(chosen.begin(), chosen.end(), true) == 2 && isSet(evaluation, node, "alwaysMergeTwoVertices")) {
        distance = std::numeric_limits<float>::max();
    }
    mesh = *mergeVertices(mesh, chosen, distance, workingSpace(evaluation, node));
}

V3d translationOf(Evaluation& evaluation, Node& node) {
    return {numberOf(evaluation, node, "translateX"), numberOf(evaluation, node, "translateY"),
            numberOf(evaluation, node, "translateZ")};
}

/// Moves the points for which `moves` is true by a translation in the space in which the node works.
void translate(Evaluation& evaluation, Node& node, const std::vector<bool>& moves, MeshData& mesh) {
    V3d own;
    workingSpace(evaluation, node).inverse().multDirMatrix(translationOf(evaluation, node), own);
    if (own == V3d(0.0)) {
        return;
    }
    auto points = std::make_shared<Points>(*mesh.points);
    for (std::size_t i = 0; i < points->size(); ++i) {
        (*points)[i] = moves[i] ? V3f(V3d((*points)[i]) + own) : (*points)[i];
    }
    mesh.points = std::move(points);
}

void moveChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    translate(evaluation, node, namedVertices(*chosenOf(evaluation, node), *mesh.topology), mesh);
}

/// Copies, or faces that become apart, move with the translation.
void chipOffChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::vector<bool> chosen = chosenFaces(evaluation, node, mesh);
    const bool together = isSet(evaluation, node, "keepFacesTogether");
    std::vector<bool> moves;
    if (isSet(evaluation, node, "duplicate")) {
        const auto oldCount = static_cast<std::size_t>(mesh.topology->vertexCount());
        mesh = *duplicateFaces(mesh, chosen, together);
        moves.assign(static_cast<std::size_t>(mesh.topology->vertexCount()), true);
        std::fill(moves.begin(), moves.begin() + static_cast<std::ptrdiff_t>(oldCount), false);
    } else {
        mesh = *detachFaces(mesh, chosen, together);
        moves = namedVertices(*chosenOf(evaluation, node), *mesh.topology);
    }
    translate(evaluation, node, moves, mesh);
}

void extrudeChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::vector<bool> chosen = chosenFaces(evaluation, node, mesh);
    mesh = *extrudeFaces(mesh, chosen, extrusionOf(evaluation, node)).mesh;
}

void deleteFaces(const ComponentList& list, MeshData& mesh) {
    std::vector<bool> keeps = namedFaces(list, *mesh.topology);
    keeps.flip();
    mesh = *keepFaces(mesh, keeps);
}

void deleteChosenFaces(Evaluation& evaluation, Node& node, MeshData& mesh) {
    deleteFaces(*chosenOf(evaluation, node), mesh);
}

void deleteChosenEdges(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const bool cleans = isSet(evaluation, node, "cleanVertices");
    mesh = *deleteEdges(mesh, namedEdges(*chosenOf(evaluation, node), *mesh.topology), cleans).mesh;
}

void deleteChosenVertices(Evaluation& evaluation, Node& node, MeshData& mesh) {
    mesh = *deleteVertices(mesh, namedVertices(*chosenOf(evaluation, node), *mesh.topology)).mesh;
}

/// A list names parts of one kind.
void deleteListed(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kComponents = node.type().find("deleteComponents");
    const auto list = componentsOf(evaluation, node, kComponents);
    const ComponentKind kind = list->ranges.empty() ? ComponentKind::kFace : list->ranges.front().kind;
    if (kind == ComponentKind::kEdge) {
        mesh = *deleteEdges(mesh, namedEdges(*list, *mesh.topology), false).mesh;
    } else if (kind == ComponentKind::kVertex) {
        mesh = *deleteVertices(mesh, namedVertices(*list, *mesh.topology)).mesh;
    } else {
        deleteFaces(*list, mesh);
    }
}

void putModified(Evaluation& evaluation, Node& node, const PlugAddress& output, ChangeFunction change) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, change);
}

} // namespace

void computePolySubdFace(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, subdivideChosen);
}

void computePolySmoothFace(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, smoothAll);
}

void computePolyMergeVert(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, mergeChosen);
}

void computePolyChipOff(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, chipOffChosen);
}

Extrusion extrusionOf(Evaluation& evaluation, Node& node) {
    Extrusion how;
    how.together = isSet(evaluation, node, "keepFacesTogether");
    how.translate = translationOf(evaluation, node);
    how.along = numberOf(evaluation, node, "localTranslateZ") + numberOf(evaluation, node, "thickness");
    how.offset = numberOf(evaluation, node, "offset");
    how.smoothingAngle = numberOf(evaluation, node, "smoothingAngle");
    how.matrix = workingSpace(evaluation, node);
    return how;
}

void computePolyExtrudeFace(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, extrudeChosen);
}

void computePolyDelFacet(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, deleteChosenFaces);
}

void computePolyDelEdge(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, deleteChosenEdges);
}

void computePolyDelVertex(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, deleteChosenVertices);
}

void computeDeleteComponent(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, node.type().find("inputGeometry"), output, deleteListed);
}

void computePolyMove(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putModified(evaluation, node, output, moveChosen);
}

void computeUnchanged(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output, evaluation.data(node, address(modifierAttributes(node).input)));
}

void computePolySeparate(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("inputPoly");
    const MeshPtr mesh = meshOf(evaluation.data(node, address(kInput)));
    if (mesh == nullptr) {
        evaluation.putData(node, output, nullptr);
        return;
    }
    const std::vector<std::int32_t> shells = shellsOfFaces(*mesh->topology);
    std::vector<bool> keeps(shells.size());
    std::transform(shells.begin(), shells.end(), keeps.begin(),
                   [&](std::int32_t shell) { return shell == output.index[0]; });
    evaluation.putData(node, output, keepFaces(*mesh, keeps));
}

} // namespace host
