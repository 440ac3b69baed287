#pragma once

#include "host/api/ObjectPayload.h"
#include "host/scene/Selection.h"

#include <vector>

namespace host {

/// The members of a set in the order of its inputs: shapes as DAG paths, with components when only a part belongs to
/// the set, and other nodes. `flatten` puts the members of member sets in their place; a set in itself is met once.
/// A group of components that is empty is no member.
std::vector<SelectionItem> membersOf(Node& set, bool flatten);

/// What one set has of one instance of a shape.
struct SetShare {
    Node* set = nullptr;
    bool whole = false;                      // the instance itself is a member
    std::vector<ComponentObject> components; // by kind; without any when the groups are empty
};

/// The sets that have the instance or components of it, each once: those that have it whole first, then in the order of
/// the instance's groups.
std::vector<SetShare> setsOf(Node& shape, std::int32_t instance);

/// The shading group that has what is left of the instance when all others took their faces; null when there is none.
Node* shadingGroupOfRest(Node& shape, std::int32_t instance);

} // namespace host
