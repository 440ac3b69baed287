#pragma once

#include "host/graph/Graph.h"

#include <string>
#include <string_view>

namespace host {

/// The attribute of a history node whose value asks for what is not evaluated, or might at another time; empty when
/// there is none.
std::string findUnsupportedSetting(Graph& graph, Node& node);

/// A number that nothing changes while the scene is open, unless a script does.
bool isSteady(Graph& graph, Node& node, std::string_view attribute, double value);

} // namespace host
