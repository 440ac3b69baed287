#include "host/nodes/blendCompute.h"

#include "host/nodes/blendRotation.h"
#include "host/nodes/tripleValues.h"

#include "host/graph/Evaluation.h"

namespace host {

namespace {

enum class BlendMode : int { kBlend, kFirst, kSecond };

double effectiveWeight(double weight, double mode) {
    if (mode == static_cast<double>(BlendMode::kFirst)) {
        return 0.0;
    }
    return mode == static_cast<double>(BlendMode::kSecond) ? 1.0 : weight;
}

double blend(double first, double second, double weight) {
    return (1.0 - weight) * first + weight * second;
}

struct PairBlendAttributes {
    explicit PairBlendAttributes(const NodeType& type)
        : weight(type.find("weight")), translate1(type.find("inTranslateX1")), translate2(type.find("inTranslateX2")),
          rotate1(type.find("inRotateX1")), rotate2(type.find("inRotateX2")),
          translateMode(type.find("translateXMode")), rotateMode(type.find("rotateMode")),
          rotateOrder(type.find("rotateOrder")), interpolation(type.find("rotInterpolation")),
          outTranslate(type.find("outTranslateX")), outRotate(type.find("outRotateX")) {}

    // Of three channels the first; the others have the next two indices.
    AttrIndex weight, translate1, translate2, rotate1, rotate2, translateMode, rotateMode, rotateOrder, interpolation,
        outTranslate, outRotate;
};

const PairBlendAttributes& pairBlendAttributes(const Node& node) {
    static const PairBlendAttributes kAttributes(node.type());
    return kAttributes;
}

void blendRotations(Evaluation& evaluation, Node& node) {
    const PairBlendAttributes& attr = pairBlendAttributes(node);
    const Imath::V3d first = readTriple(evaluation, node, attr.rotate1);
    const Imath::V3d second = readTriple(evaluation, node, attr.rotate2);
    const double weight =
        effectiveWeight(evaluation.number(node, attr.weight), evaluation.number(node, attr.rotateMode));
    const bool asWhole = evaluation.number(node, attr.interpolation) != 0.0 && weight != 0.0 && weight != 1.0;
    Imath::V3d result;
    if (asWhole) {
        result = slerpRotation(first, second, weight, rotateOrderOf(evaluation.number(node, attr.rotateOrder)));
    } else {
        for (int axis = 0; axis < 3; ++axis) {
            result[axis] = blend(first[axis], second[axis], weight);
        }
    }
    for (int axis = 0; axis < 3; ++axis) {
        evaluation.putNumber(node, {attr.outRotate + axis, 0, {}}, result[axis]);
    }
}

} // namespace

void computePairBlend(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const PairBlendAttributes& attr = pairBlendAttributes(node);
    if (output.attr >= attr.outRotate) {
        blendRotations(evaluation, node);
        return;
    }
    const AttrIndex axis = output.attr - attr.outTranslate;
    const double weight =
        effectiveWeight(evaluation.number(node, attr.weight), evaluation.number(node, attr.translateMode + axis));
    evaluation.putNumber(node, output,
                         blend(evaluation.number(node, attr.translate1 + axis),
                               evaluation.number(node, attr.translate2 + axis), weight));
}

} // namespace host
