#pragma once

#include "host/graph/Graph.h"

namespace host {

/// Lets `shapeSpace` of every deformer that has it read as the world matrix of the shape at the end of its geometry,
/// element by element: files hold no connection for that. May be called again when there are more deformers.
void tieDeformerSpaces(Graph& graph);

} // namespace host
