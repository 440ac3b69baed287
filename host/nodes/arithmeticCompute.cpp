#include "host/nodes/arithmeticCompute.h"

#include "host/graph/Evaluation.h"

#include <cmath>

namespace host {

namespace {

bool isWhole(double number, int value) {
    return number == static_cast<double>(value);
}

double multiplied(double operation, double a, double b) {
    if (isWhole(operation, 1)) {
        return a * b;
    }
    if (isWhole(operation, 2)) {
        return a / b;
    }
    return isWhole(operation, 3) ? std::pow(a, b) : a;
}

/// Operation over one component of the elements of an array.
double combined(Evaluation& evaluation, Node& node, double operation, AttrIndex array, AttrIndex component) {
    const std::vector<std::int32_t> indices = evaluation.graph().elementIndices({&node, {array, 0, {}}});
    if (indices.empty()) {
        return 0.0;
    }
    const auto element = [&](std::int32_t index) {
        return evaluation.number(node, PlugAddress{component, 0, {}}.element(index));
    };
    double result = element(indices.front());
    if (isWhole(operation, 0)) {
        return result;
    }
    const double sign = isWhole(operation, 2) ? -1.0 : 1.0;
    for (std::size_t i = 1; i < indices.size(); ++i) {
        result += sign * element(indices[i]);
    }
    return isWhole(operation, 3) ? result / static_cast<double>(indices.size()) : result;
}

bool holds(double operation, double first, double second) {
    const int which = operation >= 0.0 && operation <= 5.0 ? static_cast<int>(operation) : 0;
    switch (which) {
    case 1:
        return first != second;
    case 2:
        return first > second;
    case 3:
        return first >= second;
    case 4:
        return first < second;
    case 5:
        return first <= second;
    default:
        return first == second;
    }
}

/// Gives an output of any kind what an input of any kind holds. Such an input answers every question but the one that
/// fits what it holds with nothing.
void handOn(Evaluation& evaluation, Node& node, const PlugAddress& from, const PlugAddress& output) {
    if (DataPtr data = evaluation.data(node, from)) {
        evaluation.putData(node, output, std::move(data));
    } else if (std::string text = evaluation.string(node, from); !text.empty()) {
        evaluation.putString(node, output, std::move(text));
    } else if (const Matrix44 matrix = evaluation.matrix(node, from); matrix != Matrix44()) {
        evaluation.putMatrix(node, output, matrix);
    } else {
        evaluation.putNumber(node, output, evaluation.number(node, from));
    }
}

} // namespace

void computeMultiplyDivide(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kOperation = node.type().find("operation");
    static const AttrIndex kInput1X = node.type().find("input1X");
    static const AttrIndex kInput2X = node.type().find("input2X");
    static const AttrIndex kOutputX = node.type().find("outputX");
    const AttrIndex axis = output.attr - kOutputX;
    const double result = multiplied(evaluation.number(node, kOperation), evaluation.number(node, kInput1X + axis),
                                     evaluation.number(node, kInput2X + axis));
    if (!std::isfinite(result)) {
        evaluation.warn("The result of " + node.name() + " is not a number (0 is used)");
    }
    evaluation.putNumber(node, output, std::isfinite(result) ? result : 0.0);
}

void computePlusMinusAverage(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kOperation = node.type().find("operation");
    struct Row {
        AttrIndex array, firstInput, firstOutput;
        int count;
    };
    static const Row kRows[] = {
        {node.type().find("input1D"), node.type().find("input1D"), node.type().find("output1D"), 1},
        {node.type().find("input2D"), node.type().find("input2Dx"), node.type().find("output2Dx"), 2},
        {node.type().find("input3D"), node.type().find("input3Dx"), node.type().find("output3Dx"), 3},
    };
    for (const Row& row : kRows) {
        const AttrIndex component = output.attr - row.firstOutput;
        if (component >= 0 && component < row.count) {
            evaluation.putNumber(
                node, output,
                combined(evaluation, node, evaluation.number(node, kOperation), row.array, row.firstInput + component));
        }
    }
}

void computeCondition(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kOperation = node.type().find("operation");
    static const AttrIndex kFirst = node.type().find("firstTerm");
    static const AttrIndex kSecond = node.type().find("secondTerm");
    static const AttrIndex kIfTrue = node.type().find("colorIfTrueR");
    static const AttrIndex kIfFalse = node.type().find("colorIfFalseR");
    static const AttrIndex kOutput = node.type().find("outColorR");
    const bool isTrue =
        holds(evaluation.number(node, kOperation), evaluation.number(node, kFirst), evaluation.number(node, kSecond));
    evaluation.putNumber(node, output,
                         evaluation.number(node, (isTrue ? kIfTrue : kIfFalse) + (output.attr - kOutput)));
}

void computeBlendColors(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kBlender = node.type().find("blender");
    static const AttrIndex kColor1 = node.type().find("color1R");
    static const AttrIndex kColor2 = node.type().find("color2R");
    static const AttrIndex kOutput = node.type().find("outputR");
    const AttrIndex component = output.attr - kOutput;
    const double blender = evaluation.number(node, kBlender);
    evaluation.putNumber(node, output,
                         evaluation.number(node, kColor1 + component) * blender +
                             evaluation.number(node, kColor2 + component) * (1.0 - blender));
}

void computeBlendTwoAttr(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kBlender = node.type().find("attributesBlender");
    static const AttrIndex kInput = node.type().find("input");
    const PlugAddress input{kInput, 0, {}};
    const double blender = evaluation.number(node, kBlender);
    evaluation.putNumber(node, output,
                         evaluation.number(node, input.element(0)) * (1.0 - blender) +
                             evaluation.number(node, input.element(1)) * blender);
}

void computeBlendWeighted(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("input");
    static const AttrIndex kWeight = node.type().find("weight");
    const PlugAddress input{kInput, 0, {}};
    const PlugAddress weight{kWeight, 0, {}};
    double sum = 0.0;
    for (const std::int32_t index : evaluation.graph().elementIndices({&node, input})) {
        sum += evaluation.number(node, input.element(index)) * evaluation.number(node, weight.element(index));
    }
    evaluation.putNumber(node, output, sum);
}

void computeChoice(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kSelector = node.type().find("selector");
    static const AttrIndex kInput = node.type().find("input");
    const double selector = evaluation.number(node, kSelector);
    if (selector >= 0.0 && selector < 2147483647.0) {
        handOn(evaluation, node, PlugAddress{kInput, 0, {}}.element(static_cast<std::int32_t>(selector)), output);
    }
}

void computeMute(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kMute = node.type().find("mute");
    static const AttrIndex kInput = node.type().find("input");
    static const AttrIndex kHold = node.type().find("hold");
    const bool isMuted = evaluation.number(node, kMute) != 0.0;
    handOn(evaluation, node, {isMuted ? kHold : kInput, 0, {}}, output);
}

} // namespace host
