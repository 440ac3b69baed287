#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// multiplyDivide: per component input1, or its product, quotient or power with input2. A result that is no number
/// (divided by zero, root of a negative number) is 0 and said so.
void computeMultiplyDivide(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// plusMinusAverage: the sum of all elements, the first minus the others, or the mean; without operation the first.
void computePlusMinusAverage(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// condition: colorIfTrue where firstTerm compares with secondTerm as asked, else colorIfFalse.
void computeCondition(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// blendColors: color1 * blender + color2 * (1 - blender).
void computeBlendColors(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// blendTwoAttr: input[0] * (1 - attributesBlender) + input[1] * attributesBlender.
void computeBlendTwoAttr(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// blendWeighted: the sum of input[i] * weight[i]; a weight that is not there is 1.
void computeBlendWeighted(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// choice: the element of `input` that the selector names, of whatever kind; one that is not there is 0.
void computeChoice(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// mute: its input, of whatever kind; while it mutes, what it holds.
void computeMute(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
