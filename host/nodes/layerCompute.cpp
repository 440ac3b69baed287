#include "host/nodes/layerCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/blendRotation.h"
#include "host/nodes/tripleValues.h"

#include "host/graph/Evaluation.h"

#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::V3d;

struct LayerAttributes {
    explicit LayerAttributes(const NodeType& type)
        : mute(type.find("mute")), solo(type.find("solo")), isOverride(type.find("override")),
          passthrough(type.find("passthrough")), weight(type.find("weight")), parentMute(type.find("parentMute")),
          parentWeight(type.find("parentWeight")), siblingSolo(type.find("siblingSolo")),
          childSolos(type.find("childsoloed")), rotationMode(type.find("rotationAccumulationMode")),
          scaleMode(type.find("scaleAccumulationMode")), outMute(type.find("outMute")),
          childSoloed(type.find("childSoloedOut")), foreground(type.find("foregroundWeight")),
          background(type.find("backgroundWeight")), outRotationMode(type.find("outRotationAccumulationMode")),
          outScaleMode(type.find("outScaleAccumulationMode")) {}

    AttrIndex mute, solo, isOverride, passthrough, weight, parentMute, parentWeight, siblingSolo, childSolos,
        rotationMode, scaleMode, outMute, childSoloed, foreground, background, outRotationMode, outScaleMode;
};

/// The same in all blend nodes, since they declare what they blend in the same order; of compounds, the whole.
struct BlendAttributes {
    explicit BlendAttributes(const NodeType& type)
        : weightA(type.find("weightA")), weightB(type.find("weightB")), inputA(type.find("inputA")),
          inputB(type.find("inputB")) {}

    AttrIndex weightA, weightB, inputA, inputB;
};

struct NumberPair {
    double a, b;
};

NumberPair weightsOf(Evaluation& evaluation, Node& node) {
    static const BlendAttributes kAttributes(*node.type().parent());
    return {evaluation.number(node, kAttributes.weightA), evaluation.number(node, kAttributes.weightB)};
}

/// The two inputs of a node that blends single numbers.
NumberPair inputsOf(Evaluation& evaluation, Node& node) {
    static const BlendAttributes kAttributes(node.type());
    return {evaluation.number(node, kAttributes.inputA), evaluation.number(node, kAttributes.inputB)};
}

bool isOn(Evaluation& evaluation, Node& node, AttrIndex attr) {
    return evaluation.number(node, attr) != 0.0;
}

bool isAnyOn(Evaluation& evaluation, Node& node, AttrIndex array) {
    for (const std::int32_t index : evaluation.graph().elementIndices({&node, address(array)})) {
        if (evaluation.number(node, address(array).element(index)) != 0.0) {
            return true;
        }
    }
    return false;
}

double powered(double base, double exponent) {
    return base > 0.0 ? std::pow(base, exponent) : base;
}

V3d layeredAngles(const V3d& a, const V3d& b, const NumberPair& weight, RotateOrder order) {
    if (weight.b == 0.0 && weight.a == 1.0) {
        return a;
    }
    if (weight.a == 0.0 && weight.b == 1.0) {
        return b;
    }
    constexpr double kRounding = 1e-9;
    if (std::abs(weight.a + weight.b - 1.0) < kRounding) {
        return slerpRotation(a, b, weight.b, order);
    }
    const M33d first = rotationMatrix(slerpRotation(V3d(0.0), b, weight.b, order), order);
    const M33d second = rotationMatrix(slerpRotation(V3d(0.0), a, weight.a, order), order);
    return rotationAngles(first * second, order);
}

} // namespace

void computeAnimLayer(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const LayerAttributes kAttributes(node.type());
    const LayerAttributes& attr = kAttributes;
    const bool isSolo = isOn(evaluation, node, attr.solo);
    const bool hasSoloChild = isAnyOn(evaluation, node, attr.childSolos);
    const bool isSilenced = isOn(evaluation, node, attr.siblingSolo) && !isSolo && !hasSoloChild;
    const bool isMuted = isOn(evaluation, node, attr.mute) || isOn(evaluation, node, attr.parentMute) || isSilenced;
    const double weight =
        isMuted ? 0.0 : evaluation.number(node, attr.weight) * evaluation.number(node, attr.parentWeight);
    double background = 1.0;
    if (isOn(evaluation, node, attr.isOverride) && !isMuted) {
        background = isOn(evaluation, node, attr.passthrough) ? 1.0 - weight : 0.0;
    }
    if (isSolo) {
        evaluation.warn("animation layer " + node.name() +
                        " plays alone: the other layers are muted, the animation below all layers is not");
    }
    evaluation.putNumber(node, address(attr.outMute), isMuted ? 1.0 : 0.0);
    evaluation.putNumber(node, address(attr.childSoloed), hasSoloChild ? 1.0 : 0.0);
    evaluation.putNumber(node, address(attr.foreground), weight);
    evaluation.putNumber(node, address(attr.background), background);
    evaluation.putNumber(node, address(attr.outRotationMode), evaluation.number(node, attr.rotationMode));
    evaluation.putNumber(node, address(attr.outScaleMode), evaluation.number(node, attr.scaleMode));
}

void computeLayeredNumber(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const NumberPair weight = weightsOf(evaluation, node);
    const NumberPair input = inputsOf(evaluation, node);
    evaluation.putNumber(node, output, weight.a * input.a + weight.b * input.b);
}

void computeLayeredChoice(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const NumberPair input = inputsOf(evaluation, node);
    evaluation.putNumber(node, output, weightsOf(evaluation, node).b >= 0.5 ? input.b : input.a);
}

void computeLayeredScale(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kMode = node.type().find("accumulationMode");
    const NumberPair weight = weightsOf(evaluation, node);
    const NumberPair input = inputsOf(evaluation, node);
    evaluation.putNumber(node, output,
                         isOn(evaluation, node, kMode) ? weight.a * input.a + weight.b * input.b
                                                       : powered(input.a, weight.a) * powered(input.b, weight.b));
}

void computeLayeredRotation(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kMode = node.type().find("accumulationMode");
    static const AttrIndex kOrder = node.type().find("rotateOrder");
    static const AttrIndex kInputA = node.type().find("inputAX");
    static const AttrIndex kInputB = node.type().find("inputBX");
    static const AttrIndex kOutput = node.type().find("outputX");
    const NumberPair weight = weightsOf(evaluation, node);
    const V3d a = readTriple(evaluation, node, kInputA);
    const V3d b = readTriple(evaluation, node, kInputB);
    const bool asWhole = isOn(evaluation, node, kMode);
    putTriple(evaluation, node, kOutput,
              asWhole ? layeredAngles(a, b, weight, rotateOrderOf(evaluation.number(node, kOrder)))
                      : a * weight.a + b * weight.b);
}

} // namespace host
