#pragma once

#include "host/graph/Graph.h"

#include <string>

namespace host {

/// One line when a scene was saved with another render layer than the master layer and this one overrides something:
/// what is stored in the scene is as this layer has it, and so is what is exported. "" for other scenes.
std::string currentLayerNote(Graph& graph);

} // namespace host
