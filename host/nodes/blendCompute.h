#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// pairBlend: per channel (1 - weight) * first + weight * second, or one of them where the channel's mode says so;
/// rotations as a whole by quaternions when rotInterpolation says so.
void computePairBlend(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
