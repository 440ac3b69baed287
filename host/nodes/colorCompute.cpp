#include "host/nodes/colorCompute.h"

#include "host/nodes/tripleValues.h"

#include "host/graph/Evaluation.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::V3d;

constexpr double kSector = 60.0; // degrees of hue between two of the six pure colours

V3d rgbOf(const V3d& hsv) {
    const double turn = std::fmod(hsv.x, 6.0 * kSector);
    const double sector = (turn < 0.0 ? turn + 6.0 * kSector : turn) / kSector;
    V3d rgb;
    for (int i = 0; i < 3; ++i) {
        // How far the hue is from the colour's own, as sectors: nothing of it is left from two on.
        const double distance = std::abs(std::fmod(sector - 2.0 * i + 9.0, 6.0) - 3.0);
        const double share = std::clamp(2.0 - distance, 0.0, 1.0);
        rgb[i] = hsv.z * (1.0 - hsv.y * (1.0 - share));
    }
    return rgb;
}

V3d hsvOf(const V3d& rgb) {
    const double most = std::max({rgb.x, rgb.y, rgb.z});
    const double range = most - std::min({rgb.x, rgb.y, rgb.z});
    if (!(range > 0.0) || !(most > 0.0)) {
        return {0.0, 0.0, most};
    }
    const int strongest = most == rgb.x ? 0 : most == rgb.y ? 1 : 2;
    const double sector = 2.0 * strongest + (rgb[(strongest + 1) % 3] - rgb[(strongest + 2) % 3]) / range;
    return {(sector < 0.0 ? sector + 6.0 : sector) * kSector, range / most, most};
}

} // namespace

void computeGammaCorrect(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kValue = node.type().find("valueX");
    static const AttrIndex kGamma = node.type().find("gammaX");
    static const AttrIndex kOutput = node.type().find("outValueX");
    const AttrIndex component = output.attr - kOutput;
    const double value = evaluation.number(node, kValue + component);
    const double gamma = evaluation.number(node, kGamma + component);
    const double corrected = gamma != 0.0 ? std::pow(value, 1.0 / gamma) : value;
    evaluation.putNumber(node, output, std::isfinite(corrected) ? corrected : 0.0);
}

void computeLuminance(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kValue = node.type().find("valueR");
    evaluation.putNumber(node, output, readTriple(evaluation, node, kValue).dot(V3d(0.3, 0.59, 0.11)));
}

void computeHsvToRgb(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kInput = node.type().find("inHsvR");
    static const AttrIndex kOutput = node.type().find("outRgbR");
    putTriple(evaluation, node, kOutput, rgbOf(readTriple(evaluation, node, kInput)));
}

void computeRgbToHsv(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kInput = node.type().find("inRgbR");
    static const AttrIndex kOutput = node.type().find("outHsvH");
    putTriple(evaluation, node, kOutput, hsvOf(readTriple(evaluation, node, kInput)));
}

} // namespace host
