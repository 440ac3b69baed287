#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// Adds every node type that this host knows, each once: the root "dependNode", the abstract types between
/// ("shape", "texture2d", "geometryFilter" …) and the types of nodes. A fresh registry is expected.
void registerNodeTypes(NodeTypeRegistry& types);

} // namespace host
