#include "host/nodes/deformerCompute.h"

#include "host/nodes/meshRows.h"

#include "host/geometry/LatticeData.h"
#include "host/geometry/meshComponents.h"

#include <algorithm>
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

/// Deforms the points of a lattice as if they were a mesh without faces.
DataPtr deformedLattice(Evaluation& evaluation, Node& node, std::int32_t element, const LatticeData& lattice,
                        DeformFunction deform) {
    const FilterAttributes& attr = filterAttributes(node);
    if (node.type().isKindOf("blendShape")) {
        evaluation.warn(node.name() + ": targets that are lattices are not supported (the lattice keeps its shape)");
    }
    const Points before(lattice.points.begin(), lattice.points.end());
    MeshData mesh;
    mesh.points = std::make_shared<const Points>(before);
    Points after = before;
    deform(evaluation, node, element, mesh, after);
    const double id = evaluation.number(node, inElement(attr.groupId, element));
    const auto group = std::find_if(lattice.groups.begin(), lattice.groups.end(), [id](const ComponentGroup& each) {
        return each.id == static_cast<std::int32_t>(id);
    });
    limitTo(before, group != lattice.groups.end() ? lattice.named(*group->components) : std::vector<bool>(),
            static_cast<float>(evaluation.number(node, attr.envelope)), after);
    auto result = std::make_shared<LatticeData>(lattice);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (after[i] != before[i]) {
            result->points[i] = Imath::V3d(after[i]);
        }
    }
    return result;
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
    const auto envelope = static_cast<float>(evaluation.number(node, attr.envelope));
    const MeshPtr mesh = meshOf(input);
    const LatticePtr lattice = latticeOf(input);
    if ((mesh == nullptr && lattice == nullptr) || envelope == 0.0F || hasNoEffect(evaluation, node)) {
        evaluation.putData(node, output, std::move(input));
        return;
    }
    if (lattice != nullptr) {
        evaluation.putData(node, output, deformedLattice(evaluation, node, element, *lattice, deform));
        return;
    }
    auto deformed = std::make_shared<MeshData>(*mesh);
    auto points = std::make_shared<Points>(*mesh->points);
    deform(evaluation, node, element, *deformed, *points);
    limitTo(*mesh->points, membersOf(evaluation, node, element, *mesh), envelope, *points);
    deformed->points = std::move(points);
    evaluation.putData(node, output, std::move(deformed));
}

bool hasNoMembers(Graph& graph, Node& deformer) {
    Evaluation evaluation(graph);
    const PlugAddress inputs{filterAttributes(deformer).inputGeometry, 0, {}};
    const PlugAddress array{deformer.type().find("input"), 0, {}};
    for (const std::int32_t element : graph.elementIndices({&deformer, array})) {
        const MeshPtr mesh = meshOf(graph.data({&deformer, inputs.element(element)}));
        const std::vector<bool> members =
            mesh != nullptr ? membersOf(evaluation, deformer, element, *mesh) : std::vector<bool>();
        if (members.empty() || std::find(members.begin(), members.end(), true) != members.end()) {
            return false;
        }
    }
    return !graph.elementIndices({&deformer, array}).empty();
}

void computePassingDeformer(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putData(node, output,
                       evaluation.data(node, inElement(filterAttributes(node).inputGeometry, output.index[0])));
}

void computeTweak(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    computeDeformer(evaluation, node, output, applyTweak);
}

} // namespace host
