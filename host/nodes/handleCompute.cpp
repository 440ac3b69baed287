#include "host/nodes/handleCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/deformerCompute.h"
#include "host/nodes/pointWeights.h"

#include "host/geometry/handleDeform.h"

#include "host/graph/Evaluation.h"

#include <functional>
#include <memory>

namespace host {

namespace {

using Imath::V3d;

struct HandleData final : Data {
    HandleData() : Data(DataKind::kOther) {}

    std::function<V3d(const V3d&)> move; // in the space of the handle; empty: nothing moves
};

double numberOf(Evaluation& evaluation, Node& handle, const char* attribute) {
    return evaluation.number(handle, handle.type().find(attribute));
}

HandleBounds boundsOf(Evaluation& evaluation, Node& handle) {
    return {numberOf(evaluation, handle, "lowBound"), numberOf(evaluation, handle, "highBound")};
}

std::function<V3d(const V3d&)> bend(Evaluation& evaluation, Node& handle) {
    const HandleBounds bounds = boundsOf(evaluation, handle);
    const double curvature = numberOf(evaluation, handle, "curvature");
    return [=](const V3d& point) { return bentPoint(point, curvature, bounds); };
}

std::function<V3d(const V3d&)> twist(Evaluation& evaluation, Node& handle) {
    const HandleBounds bounds = boundsOf(evaluation, handle);
    const double start = numberOf(evaluation, handle, "startAngle");
    const double end = numberOf(evaluation, handle, "endAngle");
    if (start != 0.0 || end != 0.0) {
        evaluation.warn(handle.name() + ": a twist is taken to turn as rotateY does; compare it with Maya");
    }
    return [=](const V3d& point) { return twistedPoint(point, start, end, bounds); };
}

std::function<V3d(const V3d&)> flare(Evaluation& evaluation, Node& handle) {
    const HandleBounds bounds = boundsOf(evaluation, handle);
    const FlareFactors factors{numberOf(evaluation, handle, "startFlareX"), numberOf(evaluation, handle, "startFlareZ"),
                               numberOf(evaluation, handle, "endFlareX"), numberOf(evaluation, handle, "endFlareZ")};
    return [=](const V3d& point) { return flaredPoint(point, factors, bounds); };
}

struct HandleKind {
    const char* type;
    std::function<V3d(const V3d&)> (*read)(Evaluation& evaluation, Node& handle);
};
constexpr HandleKind kHandleKinds[] = {{"deformBend", bend}, {"deformTwist", twist}, {"deformFlare", flare}};

const HandleKind* kindOf(const Node& handle) {
    for (const HandleKind& kind : kHandleKinds) {
        if (handle.type().isKindOf(kind.type)) {
            return &kind;
        }
    }
    return nullptr;
}

struct NonLinearAttributes {
    explicit NonLinearAttributes(const NodeType& type)
        : deformerData(type.find("deformerData")), matrix(type.find("matrix")), shapeSpace(type.find("shapeSpace")),
          weights(type.find("weights")) {}

    AttrIndex deformerData, matrix, shapeSpace, weights;
};

const NonLinearAttributes& nonLinearAttributes(const Node& node) {
    static const NonLinearAttributes kAttributes(node.type());
    return kAttributes;
}

void applyHandle(Evaluation& evaluation, Node& node, std::int32_t element, MeshData&, Points& points) {
    const NonLinearAttributes& attr = nonLinearAttributes(node);
    const auto handle = std::dynamic_pointer_cast<const HandleData>(evaluation.data(node, address(attr.deformerData)));
    if (handle == nullptr || !handle->move) {
        return;
    }
    const Matrix44 toHandle = evaluation.matrix(node, address(attr.shapeSpace).element(element)) *
                              evaluation.matrix(node, address(attr.matrix)).inverse();
    const Matrix44 fromHandle = toHandle.inverse();
    const PointWeights weights(evaluation, node, address(attr.weights).element(element));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const V3d point(points[i]);
        const V3d moved = handle->move(point * toHandle) * fromHandle;
        points[i] = Imath::V3f(point + (moved - point) * weights.of(i));
    }
}

} // namespace

void computeDeformHandle(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kData = node.type().find("deformerData");
    if (output.attr != kData) {
        computeDagMatrices(evaluation, node, output);
        return;
    }
    auto data = std::make_shared<HandleData>();
    if (const HandleKind* kind = kindOf(node)) {
        data->move = kind->read(evaluation, node);
    }
    evaluation.putData(node, output, std::move(data));
}

void fillDeformHandleAffects(NodeType& type) {
    fillOwnAffects(type, "deformerData");
}

void computeNonLinear(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    computeDeformer(evaluation, node, output, applyHandle);
}

std::string limitOfNonLinear(Graph& graph, Node& node) {
    const Plug source = graph.sourceOf({&node, address(nonLinearAttributes(node).deformerData)});
    if (!source) {
        return {};
    }
    if (kindOf(*source.node) == nullptr) {
        return " with a handle of type '" + source.node->type().name() + "'";
    }
    const Plug curve{source.node, graph.findPlug(*source.node, "curve")};
    return curve && (graph.isDriven(curve) || graph.number(curve) != 0.0) ? " with a curved flare" : "";
}

} // namespace host
