#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// Each point moves by the sum over targets of weight * targetWeights * baseWeights * (target - input), targets being
/// meshes that are connected or stored differences; between the items of one target the differences are blended in
/// straight lines. Targets count in their own object spaces, whatever the origin.
void computeBlendShape(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
