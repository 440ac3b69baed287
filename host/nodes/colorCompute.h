#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// gammaCorrect: per component value ^ (1 / gamma); a gamma of 0 gives the value.
void computeGammaCorrect(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// luminance: 0.3 of red, 0.59 of green and 0.11 of blue.
void computeLuminance(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// Between red, green, blue (0 … 1) and hue (0 … 360 degrees), saturation and value (0 … 1). A grey has the hue 0.
void computeHsvToRgb(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeRgbToHsv(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
