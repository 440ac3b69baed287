#include "host/nodes/remapCompute.h"

#include "host/graph/Evaluation.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace host {

namespace {

/// Where a value stands in a range, 0 … 1. A range without length is a step.
double partOf(double value, double low, double high) {
    if (low == high) {
        return value > low ? 1.0 : 0.0;
    }
    const double part = (value - low) / (high - low);
    return std::isnan(part) ? 0.0 : std::clamp(part, 0.0, 1.0);
}

enum class RampInterpolation : int { kNone, kLinear, kSmooth, kSpline };

struct RampPoint {
    double position, value;
    RampInterpolation interpolation; // to the next
};

RampInterpolation interpolationOf(double number) {
    return number >= 0.0 && number <= 3.0 ? static_cast<RampInterpolation>(static_cast<int>(number))
                                          : RampInterpolation::kLinear;
}

struct RampAttributes {
    AttrIndex array, position, value, interpolation;
};

std::vector<RampPoint> readRamp(Evaluation& evaluation, Node& node, const RampAttributes& attr) {
    std::vector<RampPoint> points;
    for (const std::int32_t index : evaluation.graph().elementIndices({&node, {attr.array, 0, {}}})) {
        const auto number = [&](AttrIndex part) {
            return evaluation.number(node, PlugAddress{part, 0, {}}.element(index));
        };
        points.push_back({number(attr.position), number(attr.value), interpolationOf(number(attr.interpolation))});
    }
    if (points.empty()) {
        points = {{0, 0, RampInterpolation::kLinear}, {1, 1, RampInterpolation::kLinear}};
    }
    std::stable_sort(points.begin(), points.end(),
                     [](const RampPoint& a, const RampPoint& b) { return a.position < b.position; });
    return points;
}

/// Slope at a point by its two neighbours; at an end by the only one.
double slopeAt(const std::vector<RampPoint>& points, std::size_t at) {
    const RampPoint& before = points[at > 0 ? at - 1 : at];
    const RampPoint& after = points[std::min(at + 1, points.size() - 1)];
    const double length = after.position - before.position;
    return length > 0.0 ? (after.value - before.value) / length : 0.0;
}

double rampValue(const std::vector<RampPoint>& points, double at) {
    const auto next = std::upper_bound(points.begin(), points.end(), at, [](double position, const RampPoint& point) {
        return position < point.position;
    });
    if (next == points.begin()) {
        return next->value;
    }
    const RampPoint& left = *(next - 1);
    if (next == points.end()) {
        return left.value;
    }
    const double length = next->position - left.position;
    const double u = (at - left.position) / length;
    const double rise = next->value - left.value;
    switch (left.interpolation) {
    case RampInterpolation::kNone:
        return left.value;
    case RampInterpolation::kLinear:
        return left.value + u * rise;
    case RampInterpolation::kSmooth:
        return left.value + u * u * (3.0 - 2.0 * u) * rise;
    case RampInterpolation::kSpline:
        break;
    }
    const auto index = static_cast<std::size_t>(next - points.begin());
    const double start = slopeAt(points, index - 1) * length;
    const double end = slopeAt(points, index) * length;
    return left.value + u * u * (3.0 - 2.0 * u) * rise + u * (1.0 - u) * ((1.0 - u) * start - u * end);
}

} // namespace

void computeClamp(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("inputR");
    static const AttrIndex kMin = node.type().find("minR");
    static const AttrIndex kMax = node.type().find("maxR");
    static const AttrIndex kOutput = node.type().find("outputR");
    const AttrIndex component = output.attr - kOutput;
    const double atLeast =
        std::max(evaluation.number(node, kInput + component), evaluation.number(node, kMin + component));
    evaluation.putNumber(node, output, std::min(atLeast, evaluation.number(node, kMax + component)));
}

void computeSetRange(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kValue = node.type().find("valueX");
    static const AttrIndex kMin = node.type().find("minX");
    static const AttrIndex kMax = node.type().find("maxX");
    static const AttrIndex kOldMin = node.type().find("oldMinX");
    static const AttrIndex kOldMax = node.type().find("oldMaxX");
    static const AttrIndex kOutput = node.type().find("outValueX");
    const AttrIndex axis = output.attr - kOutput;
    const double part = partOf(evaluation.number(node, kValue + axis), evaluation.number(node, kOldMin + axis),
                               evaluation.number(node, kOldMax + axis));
    const double low = evaluation.number(node, kMin + axis);
    evaluation.putNumber(node, output, low + part * (evaluation.number(node, kMax + axis) - low));
}

void computeRemapValue(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("inputValue");
    static const AttrIndex kInputMin = node.type().find("inputMin");
    static const AttrIndex kInputMax = node.type().find("inputMax");
    static const AttrIndex kOutputMin = node.type().find("outputMin");
    static const AttrIndex kOutputMax = node.type().find("outputMax");
    static const AttrIndex kOutValue = node.type().find("outValue");
    static const AttrIndex kOutColor = node.type().find("outColorR");
    static const RampAttributes kValues = {node.type().find("value"), node.type().find("value_Position"),
                                           node.type().find("value_FloatValue"), node.type().find("value_Interp")};
    static const RampAttributes kColors = {node.type().find("color"), node.type().find("color_Position"),
                                           node.type().find("color_ColorR"), node.type().find("color_Interp")};
    const double part =
        partOf(evaluation.number(node, kInput), evaluation.number(node, kInputMin), evaluation.number(node, kInputMax));
    if (output.attr == kOutValue) {
        const double low = evaluation.number(node, kOutputMin);
        const double value = rampValue(readRamp(evaluation, node, kValues), part);
        evaluation.putNumber(node, output, low + value * (evaluation.number(node, kOutputMax) - low));
        return;
    }
    RampAttributes component = kColors;
    component.value += output.attr - kOutColor;
    evaluation.putNumber(node, output, rampValue(readRamp(evaluation, node, component), part));
}

} // namespace host
