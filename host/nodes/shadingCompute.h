#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// bump2d, bump3d: what they do to normals only a renderer sees; outNormal is normalCamera as it comes in.
void computeBump(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
