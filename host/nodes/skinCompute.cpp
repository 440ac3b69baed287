#include "host/nodes/skinCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/deformerCompute.h"

#include "host/graph/Evaluation.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

struct SkinAttributes {
    explicit SkinAttributes(const NodeType& type)
        : weightList(type.find("weightList")), weights(type.find("weights")), table(type.find("weightTable")),
          bindPreMatrix(type.find("bindPreMatrix")), geomMatrix(type.find("geomMatrix")), matrix(type.find("matrix")),
          normalizeWeights(type.find("normalizeWeights")), method(type.find("skinningMethod")),
          turnsNormals(type.find("deformUserNormals")) {}

    AttrIndex weightList, weights, table, bindPreMatrix, geomMatrix, matrix, normalizeWeights, method, turnsNormals;
};

const SkinAttributes& skinAttributes(const Node& node) {
    static const SkinAttributes kAttributes(node.type());
    return kAttributes;
}

constexpr double kPostNormalized = 2.0;
// What broken indices may claim at most: so many influences, and so many vertices for each that has weights.
constexpr std::int32_t kMostInfluences = 1 << 16;
constexpr std::int64_t kVerticesPerEntry = 16;
constexpr std::int64_t kVerticesAlways = 65536;

/// Gathers the weights vertex by vertex.
class WeightGatherer {
public:
    WeightGatherer(Graph& graph, Node& node) : graph_(graph), node_(node), attr_(skinAttributes(node)) {}

    std::shared_ptr<const SkinWeights> run() {
        const Value* stored = graph_.stored({&node_, address(attr_.weightList)});
        const auto* elements = stored != nullptr ? std::get_if<std::unique_ptr<ElementArray>>(stored) : nullptr;
        if (graph_.isDriven({&node_, address(attr_.weightList)})) {
            gatherDriven();
        } else if (elements != nullptr && *elements != nullptr) {
            limitTo((*elements)->elements.size());
            for (const auto& [vertex, block] : (*elements)->elements) {
                addStored(vertex, block);
            }
        }
        return std::move(table_);
    }

private:
    void limitTo(std::size_t entries) {
        end_ = static_cast<std::int64_t>(entries) * kVerticesPerEntry + kVerticesAlways;
    }

    /// Vertices come ascending; those in between have no weights.
    bool open(std::int32_t vertex) {
        if (vertex < table_->vertexCount() || vertex >= end_) {
            return false;
        }
        table_->starts.resize(static_cast<std::size_t>(vertex) + 1, table_->weights.size());
        table_->starts.push_back(table_->weights.size());
        return true;
    }

    void add(std::int32_t influence, double weight) {
        if (weight != 0.0 && influence >= 0) {
            table_->influences.push_back(influence);
            table_->weights.push_back(weight);
            table_->starts.back() = table_->weights.size();
        }
    }

    void addStored(std::int32_t vertex, const Block& block) {
        const Value* value = block.find(attr_.weights);
        const auto* held = value != nullptr ? std::get_if<std::unique_ptr<NumberRows>>(value) : nullptr;
        if (held == nullptr || *held == nullptr || !open(vertex)) {
            return;
        }
        for (std::size_t row = 0; row < (*held)->rowCount(); ++row) {
            const std::int32_t influence = (*held)->logicalIndex(row); // asked first: it brings rows into their order
            add(influence, (*held)->value(row, 0));
        }
    }

    void gatherDriven() {
        const std::vector<std::int32_t> vertices = graph_.elementIndices({&node_, address(attr_.weightList)});
        limitTo(vertices.size());
        for (const std::int32_t vertex : vertices) {
            const PlugAddress weights = address(attr_.weights).element(vertex);
            if (!open(vertex)) {
                continue;
            }
            for (const std::int32_t influence : graph_.elementIndices({&node_, weights})) {
                add(influence, graph_.number({&node_, weights.element(influence)}));
            }
        }
    }

    Graph& graph_;
    Node& node_;
    const SkinAttributes& attr_;
    std::int64_t end_ = 0; // of the vertices that may have weights
    std::shared_ptr<SkinWeights> table_ = std::make_shared<SkinWeights>();
};

SkinMatrices readMatrices(Evaluation& evaluation, Node& node) {
    const SkinAttributes& attr = skinAttributes(node);
    const Matrix44 geometry = evaluation.matrix(node, address(attr.geomMatrix));
    SkinMatrices matrices;
    for (const std::int32_t influence : evaluation.graph().elementIndices({&node, address(attr.matrix)})) {
        if (influence < 0 || influence >= kMostInfluences) {
            continue;
        }
        const auto at = static_cast<std::size_t>(influence);
        matrices.influences.resize(std::max(matrices.influences.size(), at + 1));
        matrices.influences[at].exists = true;
        matrices.influences[at].matrix = geometry *
                                         evaluation.matrix(node, address(attr.bindPreMatrix).element(influence)) *
                                         evaluation.matrix(node, address(attr.matrix).element(influence));
    }
    matrices.fromGeometry = geometry.inverse();
    matrices.normalizes = evaluation.number(node, attr.normalizeWeights) == kPostNormalized;
    return matrices;
}

void applySkin(Evaluation& evaluation, Node& node, std::int32_t, MeshData& mesh, Points& points) {
    const SkinAttributes& attr = skinAttributes(node);
    if (evaluation.number(node, attr.method) != 0.0) {
        evaluation.warn(node.name() + ": its skinning method is not supported (classic linear is used)");
    }
    const auto weights = skinWeights(evaluation.graph(), node);
    const SkinMatrices matrices = readMatrices(evaluation, node);
    skinPoints(*weights, matrices, points);
    if (mesh.userNormals != nullptr && evaluation.number(node, attr.turnsNormals) != 0.0) {
        mesh.userNormals = std::make_shared<const Points>(skinNormals(*weights, matrices, mesh));
    }
}

} // namespace

void computeSkinCluster(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    if (output.attr == skinAttributes(node).table) {
        evaluation.putData(node, output, WeightGatherer(evaluation.graph(), node).run());
    } else {
        computeDeformer(evaluation, node, output, applySkin);
    }
}

void fillSkinAffects(NodeType& type) {
    const AttrIndex points = type.find("outputGeometry");
    type.affects.assign(type.attributes().size(), {});
    for (std::size_t i = 0; i < type.attributes().size(); ++i) {
        if (type.attributes()[i].parent == kNoAttr) {
            type.affects[i] = {points};
        }
    }
    type.affects[static_cast<std::size_t>(type.find("weightList"))] = {points, type.find("weightTable")};
}

std::shared_ptr<const SkinWeights> skinWeights(Graph& graph, Node& skinCluster) {
    const DataPtr table = graph.data({&skinCluster, address(skinAttributes(skinCluster).table)});
    // Within a cycle the table cannot be had.
    return table != nullptr ? std::static_pointer_cast<const SkinWeights>(table) : std::make_shared<SkinWeights>();
}

} // namespace host
