#pragma once

#include "host/scene/Scene.h"

#include <vector>

namespace host {

/// Whether a node is a set whose name stands for its members in a selection (object sets, shading groups).
bool isSet(const Node& node);

/// The members of a set as selection items, in the order of its plugs: whole nodes, instances, and the components that
/// a shape's object group lists. Members that are sets themselves are followed, each set once.
void addMembers(Scene& scene, Node& set, std::vector<SelectionItem>& items);

} // namespace host
