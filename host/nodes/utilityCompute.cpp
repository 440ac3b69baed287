#include "host/nodes/utilityCompute.h"

#include "host/graph/Evaluation.h"
#include "host/graph/Units.h"

namespace host {

namespace {

/// The two node types declare the same attributes in the same order.
struct PairAttributes {
    explicit PairAttributes(const NodeType& type) : input1(type.find("input1")), input2(type.find("input2")) {}

    AttrIndex input1, input2;
};

const PairAttributes& pairAttributes(const Node& node) {
    static const PairAttributes kAttributes(node.type());
    return kAttributes;
}

/// Scenes that convert between time and numbers were written when a second had 6000 ticks; their factors (0.004 for
/// film frames) still are in these.
constexpr double kTicksPerConversionTick = static_cast<double>(kTicksPerSecond) / 6000.0;

struct ConversionAttributes {
    explicit ConversionAttributes(const NodeType& type)
        : factor(type.find("conversionFactor")), input(type.find("input")) {}

    AttrIndex factor, input;
};

/// The three conversions declare the same attributes in the same order.
double convertedInput(Evaluation& evaluation, Node& node) {
    static const ConversionAttributes kAttributes(node.type());
    return evaluation.number(node, kAttributes.input) * evaluation.number(node, kAttributes.factor);
}

} // namespace

void computeReverse(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInputX = node.type().find("inputX");
    static const AttrIndex kOutputX = node.type().find("outputX");
    evaluation.putNumber(node, output, 1.0 - evaluation.number(node, kInputX + (output.attr - kOutputX)));
}

void computeAddDoubleLinear(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const PairAttributes& attr = pairAttributes(node);
    evaluation.putNumber(node, output, evaluation.number(node, attr.input1) + evaluation.number(node, attr.input2));
}

void computeMultDoubleLinear(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const PairAttributes& attr = pairAttributes(node);
    evaluation.putNumber(node, output, evaluation.number(node, attr.input1) * evaluation.number(node, attr.input2));
}

void computeUnitConversion(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putNumber(node, output, convertedInput(evaluation, node));
}

void computeTimeToUnit(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putNumber(node, output, convertedInput(evaluation, node) / kTicksPerConversionTick);
}

void computeUnitToTime(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    evaluation.putNumber(node, output, convertedInput(evaluation, node) * kTicksPerConversionTick);
}

} // namespace host
