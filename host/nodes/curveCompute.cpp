#include "host/nodes/curveCompute.h"

#include "host/graph/Data.h"
#include "host/graph/Evaluation.h"
#include "host/graph/Units.h"

#include <cmath>
#include <memory>
#include <utility>

namespace host {

namespace {

struct CurveData final : Data {
    explicit CurveData(AnimCurve ready) : Data(DataKind::kOther), curve(std::move(ready)) {}

    AnimCurve curve;
};

/// Indices of a curve's attributes; the same in all eight types.
struct CurveAttributes {
    explicit CurveAttributes(const NodeType& type)
        : input(type.find("input")), output(type.find("output")), animationCurve(type.find("animationCurve")),
          keyTimeValue(type.find("keyTimeValue")), keyTime(type.find("keyTime")), keyValue(type.find("keyValue")),
          tangentType(type.find("tangentType")), inType(type.find("keyTanInType")), outType(type.find("keyTanOutType")),
          inX(type.find("keyTanInX")), inY(type.find("keyTanInY")), outX(type.find("keyTanOutX")),
          outY(type.find("keyTanOutY")), weighted(type.find("weightedTangents")), before(type.find("preInfinity")),
          after(type.find("postInfinity")) {}

    AttrIndex input, output, animationCurve, keyTimeValue, keyTime, keyValue, tangentType, inType, outType, inX, inY,
        outX, outY, weighted, before, after;
};

const CurveAttributes& curveAttributes(const Node& node) {
    static const CurveAttributes kAttributes(node.type());
    return kAttributes;
}

/// One number per key, where one is stored.
class KeyColumn {
public:
    KeyColumn(const Graph& graph, Node& node, AttrIndex attr, double otherwise)
        : rows_(graph.storedRows({&node, {attr, 0, {}}})), otherwise_(otherwise) {}

    double at(std::int32_t key) const {
        const std::ptrdiff_t row = rows_ == nullptr ? -1 : rows_->findRow(key);
        return row < 0 ? otherwise_ : rows_->value(static_cast<std::size_t>(row), 0);
    }

private:
    const NumberRows* rows_;
    double otherwise_;
};

double unitPerSecond(const Node& node, AttrIndex attr) {
    return node.attribute(attr).kind == AttrKind::kTime ? static_cast<double>(kTicksPerSecond) : 1.0;
}

std::vector<CurveKey> readKeys(Evaluation& evaluation, Node& node) {
    const CurveAttributes& attr = curveAttributes(node);
    const Graph& graph = evaluation.graph();
    const NumberRows* pairs = graph.storedRows({&node, {attr.keyTimeValue, 0, {}}});
    if (pairs == nullptr) {
        return {};
    }
    const double usualType = evaluation.number(node, attr.tangentType);
    const KeyColumn inTypes(graph, node, attr.inType, usualType), outTypes(graph, node, attr.outType, usualType);
    const KeyColumn inX(graph, node, attr.inX, 0), inY(graph, node, attr.inY, 0);
    const KeyColumn outX(graph, node, attr.outX, 0), outY(graph, node, attr.outY, 0);
    const bool isTimed = node.attribute(attr.keyTime).kind == AttrKind::kTime;
    std::vector<CurveKey> keys;
    keys.reserve(pairs->rowCount());
    for (std::size_t row = 0; row < pairs->rowCount(); ++row) {
        const std::int32_t index = pairs->logicalIndex(row);
        CurveKey key;
        key.input = isTimed ? std::round(pairs->value(row, 0)) : pairs->value(row, 0);
        key.value = pairs->value(row, 1);
        key.inType = tangentTypeOf(inTypes.at(index));
        key.outType = tangentTypeOf(outTypes.at(index));
        key.in = {inX.at(index), inY.at(index)};
        key.out = {outX.at(index), outY.at(index)};
        key.index = index;
        keys.push_back(key);
    }
    return keys;
}

CurveDescription readCurve(Evaluation& evaluation, Node& node) {
    const CurveAttributes& attr = curveAttributes(node);
    CurveDescription curve;
    curve.keys = readKeys(evaluation, node);
    curve.weighted = evaluation.number(node, attr.weighted) != 0.0;
    curve.before = curveInfinityOf(evaluation.number(node, attr.before));
    curve.after = curveInfinityOf(evaluation.number(node, attr.after));
    curve.inputPerX = unitPerSecond(node, attr.keyTime);
    curve.valuePerY = unitPerSecond(node, attr.keyValue);
    return curve;
}

} // namespace

void computeAnimCurve(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const CurveAttributes& attr = curveAttributes(node);
    if (output.attr == attr.animationCurve) {
        evaluation.putData(node, output, std::make_shared<CurveData>(AnimCurve(readCurve(evaluation, node))));
        return;
    }
    const DataPtr data = evaluation.data(node, {attr.animationCurve, 0, {}});
    const auto& curve = static_cast<const CurveData&>(*data).curve;
    const double input = evaluation.number(node, attr.input);
    const bool isTimed = node.attribute(attr.input).kind == AttrKind::kTime;
    evaluation.putNumber(node, output, curve.value(isTimed ? std::round(input) : input));
}

std::shared_ptr<const AnimCurve> animCurveOf(Graph& graph, Node& node) {
    const bool isCurve = node.type().isKindOf("animCurve") && node.type().find("keyTimeValue") != kNoAttr;
    const DataPtr data = isCurve ? graph.data({&node, {curveAttributes(node).animationCurve, 0, {}}}) : nullptr;
    return data ? std::shared_ptr<const AnimCurve>(data, &static_cast<const CurveData&>(*data).curve) : nullptr;
}

void fillCurveAffects(NodeType& type) {
    type.affects.assign(type.attributes().size(), {});
    const auto set = [&](const char* name, AttrIndex affected) {
        type.affects[static_cast<std::size_t>(type.find(name))] = {affected};
    };
    set("input", type.find("output"));
    for (const char* name : {"keyTanLocked", "keyWeightLocked", "keyBreakdown", "keyTickDrawSpecial", "curveColor"}) {
        set(name, kNoAttr);
    }
}

} // namespace host
