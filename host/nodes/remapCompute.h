#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// clamp: per component the input, not below min and not above max.
void computeClamp(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// setRange: per component from oldMin … oldMax to min … max, held at both ends.
void computeSetRange(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// remapValue: the input within inputMin … inputMax, through the ramps `value` and `color`; the value then within
/// outputMin … outputMax. A ramp without points rises from 0 to 1.
void computeRemapValue(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
