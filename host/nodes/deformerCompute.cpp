#include "host/nodes/deformerCompute.h"

#include "host/nodes/meshRows.h"

#include "host/geometry/meshComponents.h"

#include <memory>
#include <utility>

namespace host {

namespace {

/// The same in all deformers, since a type's own attributes come after those that it inherits.
struct FilterAttributes {
    explicit FilterAttributes(const NodeType& type)
        : envelope(type.find("envelope")), inputGeometry(type.find("inputGeometry")), groupId(type.find("groupId")),
          tags(type.find("componentTagExpression")) {}

    AttrIndex envelope, inputGeometry, groupId, tags;
};

const FilterAttributes& filterAttributes(const Node& node) {
    static const FilterAttributes kAttributes(node.type());
    return kAttributes;
}

struct TweakAttributes {
    explicit TweakAttributes(const NodeType& type)
        : isRelative(type.find("relativeTweak")), controlPoints(type.find("controlPoints")),
          vertices(type.find("vertex")) {}

    AttrIndex isRelative, controlPoints, vertices;
};

PlugAddress inElement(AttrIndex attr, std::int32_t element) {
    return PlugAddress{attr, 0, {}}.element(element);
}

constexpr double kHasNoEffect = 1.0;
constexpr double kBlocking = 2.0;
constexpr double kWaitingHasNoEffect = 4.0;
constexpr double kWaitingBlocking = 5.0;

/// Per vertex, whether it belongs to the deformer; empty when all do. A group that history gives goes before tags.
std::vector<bool> membersOf(Evaluation& evaluation, Node& node, std::int32_t element, const MeshData& mesh) {
    const FilterAttributes& attr = filterAttributes(node);
    const double id = evaluation.number(node, inElement(attr.groupId, element));
    if (const ComponentGroup* group = mesh.findGroup(static_cast<std::int32_t>(id))) {
        return namedVertices(*group->components, *mesh.topology);
    }
    const std::string tag = evaluation.string(node, inElement(attr.tags, element));
    if (tag.empty() || tag == "*") {
        return {};
    }
    if (const ComponentTag* found = mesh.findTag(tag)) {
        return namedVertices(*found->components, *mesh.topology);
    }
    evaluation.warn(node.name() + ": the component tags '" + tag + "' are not supported (all points are deformed)");
    return {};
}

void limitTo(const Points& before, const std::vector<bool>& members, float envelope, Points& points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!members.empty() && !members[i]) {
            points[i] = before[i];
        } else if (envelope != 1.0F) {
            points[i] = before[i] + (points[i] - before[i]) * envelope;
        }
    }
}

/// A tweak that is not relative says where its points are.
void clearDriven(const NumberRows* rows, Points& points) {
    for (std::size_t row = 0; rows != nullptr && row < rows->rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(rows->logicalIndex(row));
        if (at < points.size()) {
            points[at] = Imath::V3f(0.0F);
        }
    }
}

void applyTweak(Evaluation& evaluation, Node& node, std::int32_t element, MeshData&, Points& points) {
    static const TweakAttributes kAttributes(node.type());
    Graph& graph = evaluation.graph();
    const bool isRelative = evaluation.number(node, kAttributes.isRelative) != 0.0;
    for (const AttrIndex attr : {kAttributes.controlPoints, kAttributes.vertices}) {
        const Plug array{&node, inElement(attr, element)};
        if (!isRelative) {
            clearDriven(graph.storedRows(array), points);
        }
        addVectors(graph, array, points);
    }
}

} // namespace

bool hasNoEffect(Evaluation& evaluation, Node& node) {
    static const AttrIndex kNodeState = node.type().find("nodeState"); // the same in all types
    const double state = evaluation.number(node, kNodeState);
    return state == kHasNoEffect || state == kBlocking || state == kWaitingHasNoEffect || state == kWaitingBlocking;
}

void computeDeformer(Evaluation& evaluation, Node& node, const PlugAddress& output, DeformFunction deform) {
    const FilterAttributes& attr = filterAttributes(node);
    const std::int32_t element = output.index[0];
    DataPtr input = evaluation.data(node, inElement(attr.inputGeometry, element));
    const MeshPtr mesh = meshOf(input);
    const auto envelope = static_cast<float>(evaluation.number(node, attr.envelope));
    if (mesh == nullptr || envelope == 0.0F || hasNoEffect(evaluation, node)) {
        evaluation.putData(node, output, std::move(input));
        return;
    }
    auto deformed = std::make_shared<MeshData>(*mesh);
    auto points = std::make_shared<Points>(*mesh->points);
    deform(evaluation, node, element, *deformed, *points);
    limitTo(*mesh->points, membersOf(evaluation, node, element, *mesh), envelope, *points);
    deformed->points = std::move(points);
    evaluation.putData(node, output, std::move(deformed));
}

void computePassingDeformer(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output,
                       evaluation.data(node, inElement(filterAttributes(node).inputGeometry, output.index[0])));
}

void computeTweak(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    computeDeformer(evaluation, node, output, applyTweak);
}

} // namespace host
