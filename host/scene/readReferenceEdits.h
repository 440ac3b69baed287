#pragma once

#include "host/scene/StatementContext.h"

#include <vector>

namespace host {

/// Reads the value of type "dataReferenceEdits": the name of the reference node, then blocks of a name, a count and
/// that many edits; an edit is a number for its kind and texts. Where a block has more edits than it counts, or an edit
/// fewer texts than its kind has, the reading goes on as well as it can: nothing but a sign that is no text and no
/// number breaks the statement.
Outcome readReferenceEdits(ArgumentStream& arguments, std::vector<ReferenceEditBlock>& blocks);

} // namespace host
