#include "host/nodes/polyCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/deformerCompute.h"
#include "host/nodes/historyCompute.h"
#include "host/nodes/meshRows.h"
#include "host/nodes/paintCorners.h"
#include "host/nodes/polyModifier.h"

#include "host/geometry/detachment.h"
#include "host/geometry/faceOrder.h"
#include "host/geometry/meshComponents.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/quadrangulation.h"
#include "host/geometry/triangulation.h"

#include <memory>
#include <string>
#include <utility>

namespace host {

namespace {

void tweakPoints(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kTweak = node.type().find("tweak");
    auto points = std::make_shared<Points>(*mesh.points);
    addVectors(evaluation.graph(), {&node, address(kTweak)}, *points);
    mesh.points = std::move(points);
}

/// The UV set that a node works on; null when there is none.
UvSet* uvSetOf(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const std::string name = evaluation.string(node, address(node.type().find("uvSetName")));
    const UvSet* found = mesh.findUvSet(name);
    return found != nullptr ? &mesh.uvSets[static_cast<std::size_t>(found - mesh.uvSets.data())] : nullptr;
}

void tweakUvs(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kTweak = node.type().find("uvTweak");
    UvSet* set = uvSetOf(evaluation, node, mesh);
    const NumberRows* rows = evaluation.graph().storedRows({&node, address(kTweak)});
    if (set == nullptr || rows == nullptr) {
        return;
    }
    auto points = std::make_shared<std::vector<Imath::V2f>>(*set->points);
    for (std::size_t row = 0; row < rows->rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(rows->logicalIndex(row));
        if (at < points->size()) {
            (*points)[at] +=
                Imath::V2f(static_cast<float>(rows->value(row, 0)), static_cast<float>(rows->value(row, 1)));
        }
    }
    set->points = std::move(points);
}

void softenChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kAngle = node.type().find("angle");
    mesh = *softenEdges(mesh, namedEdges(*chosenOf(evaluation, node), *mesh.topology), evaluation.number(node, kAngle),
                        workingSpace(evaluation, node));
}

/// The faces that a normal mode turns round, by its number.
std::vector<bool> reversedFaces(double mode, const MeshTopology& topology, const std::vector<bool>& chosen) {
    constexpr double kPropagate = 1;
    constexpr double kConform = 2;
    constexpr double kReverseAndPropagate = 4;
    return mode == kPropagate             ? facesToReverse(topology, chosen, WindingRule::kAsChosen)
           : mode == kConform             ? facesToReverse(topology, chosen, WindingRule::kAsMost)
           : mode == kReverseAndPropagate ? facesToReverse(topology, chosen, WindingRule::kUnlikeChosen)
                                          : chosen;
}

void reverseChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kMode = node.type().find("normalMode");
    static const AttrIndex kUserNormals = node.type().find("userNormalMode");
    constexpr double kReverseAndCut = 3;
    const double mode = evaluation.number(node, kMode);
    const std::vector<bool> chosen = namedFaces(*chosenOf(evaluation, node), *mesh.topology);
    if (mode == kReverseAndCut) {
        mesh = *detachFaces(mesh, chosen, true);
    }
    mesh =
        *reverseFaces(mesh, reversedFaces(mode, *mesh.topology, chosen), evaluation.number(node, kUserNormals) != 0.0);
}

void triangulateChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    mesh = *triangulateFaces(mesh, namedFaces(*chosenOf(evaluation, node), *mesh.topology));
}

void quadrangulateChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    const auto isSet = [&](const char* name) { return evaluation.number(node, node.type().find(name)) != 0.0; };
    QuadRules rules;
    rules.angle = evaluation.number(node, node.type().find("angle"));
    rules.keepsGroupBorders = isSet("keepGroupBorder");
    rules.keepsUvBorders = isSet("keepTextureBorders");
    rules.keepsHardEdges = isSet("keepHardEdges");
    rules.matrix = workingSpace(evaluation, node);
    mesh = *quadrangulateFaces(mesh, namedFaces(*chosenOf(evaluation, node), *mesh.topology), rules);
}

void unmapChosen(Evaluation& evaluation, Node& node, MeshData& mesh) {
    if (UvSet* set = uvSetOf(evaluation, node, mesh)) {
        *set = withoutFaces(*set, namedFaces(*chosenOf(evaluation, node), *mesh.topology));
    }
}

} // namespace

void computeNoMesh(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output, nullptr);
}

void computeRefusedModifier(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const PlugAddress input = address(modifierAttributes(node).input);
    evaluation.putData(node, output, hasNoEffect(evaluation, node) ? evaluation.data(node, input) : nullptr);
}

void computePolyTweak(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, tweakPoints);
}

void computePolyTweakUv(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, tweakUvs);
}

void computePolySoftEdge(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, softenChosen);
}

void computePolyNormal(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, reverseChosen);
}

void computePolyTriangulate(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, triangulateChosen);
}

void computePolyQuad(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, quadrangulateChosen);
}

void computePolyMapDel(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, unmapChosen);
}

void computePolyColorPerVertex(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, modifierAttributes(node).input, output, paintCorners);
}

void computePolyUnite(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kMeshes = node.type().find("inputPoly");
    static const AttrIndex kMatrices = node.type().find("inputMat");
    constexpr std::int64_t kMostCorners = 1 << 25; // nodes behind each other may double a mesh again and again
    std::vector<std::pair<MeshPtr, Matrix44>> meshes;
    std::int64_t corners = 0;
    for (const std::int32_t element : evaluation.graph().elementIndices({&node, address(kMeshes)})) {
        if (MeshPtr mesh = meshOf(evaluation.data(node, address(kMeshes).element(element)))) {
            corners += mesh->topology->cornerCount();
            meshes.emplace_back(std::move(mesh), evaluation.matrix(node, address(kMatrices).element(element)));
        }
    }
    if (corners > kMostCorners) {
        evaluation.warn(node.name() + ": it has too many faces (its mesh is empty)");
        meshes.clear();
    }
    evaluation.putData(node, output, uniteMeshes(meshes));
}

} // namespace host
