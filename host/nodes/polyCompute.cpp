#include "host/nodes/polyCompute.h"

#include "host/nodes/historyCompute.h"
#include "host/nodes/meshRows.h"

#include <memory>
#include <utility>

namespace host {

namespace {

PlugAddress address(AttrIndex attr) {
    return {attr, 0, {}};
}

/// The same in all modifiers, since a type's own attributes come after those that it inherits.
AttrIndex inputOf(const Node& node) {
    static const AttrIndex kInput = node.type().find("inputPolymesh");
    return kInput;
}

void tweakPoints(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const AttrIndex kTweak = node.type().find("tweak");
    auto points = std::make_shared<Points>(*mesh.points);
    addVectors(evaluation.graph(), {&node, address(kTweak)}, *points);
    mesh.points = std::move(points);
}

} // namespace

void computeNoMesh(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output, nullptr);
}

void computePassingModifier(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output, evaluation.data(node, address(inputOf(node))));
}

void computePolyTweak(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    putChanged(evaluation, node, inputOf(node), output, tweakPoints);
}

} // namespace host
