#pragma once

#include "host/scene/Selection.h"

#include <vector>

namespace host {

/// The members of a set in the order of its inputs: shapes as DAG paths, with components when only a part belongs to
/// the set, and other nodes. `flatten` puts the members of member sets in their place; a set in itself is met once.
std::vector<SelectionItem> membersOf(Node& set, bool flatten);

} // namespace host
