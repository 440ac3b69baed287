#pragma once

#include "host/graph/Graph.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace host {

/// Where the geometry that a deformer works on comes from and where it goes. `index` is that of the deformer's input
/// and outputGeometry.

/// The shape that the deformed geometry ends up in, other deformers and history between; null when there is none.
Node* outputShape(Node& filter, std::int32_t index);
/// The shape that the geometry begins at; null when history makes it.
Node* inputShape(Node& filter, std::int32_t index);
/// Which output of the deformer the shape gets; nothing when it gets none.
std::optional<std::int32_t> outputIndexOf(Node& filter, Node& shape);

/// Indices whose output is connected, and whose input is; ascending.
std::vector<std::int32_t> connectedOutputs(Node& filter);
std::vector<std::int32_t> connectedInputs(Node& filter);

/// The plug input[index].<child>.
Plug filterInput(Node& filter, std::int32_t index, const char* child);

} // namespace host
