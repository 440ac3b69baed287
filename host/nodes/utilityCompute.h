#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// reverse: output = 1 - input, per component.
void computeReverse(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// addDoubleLinear: output = input1 + input2.
void computeAddDoubleLinear(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// multDoubleLinear: output = input1 * input2.
void computeMultDoubleLinear(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// unitConversion, timeToUnitConversion, unitToTimeConversion: output = input * conversionFactor. The factors of the
/// two conversions that know time count it in 1/6000 s.
void computeUnitConversion(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeTimeToUnit(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeUnitToTime(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
