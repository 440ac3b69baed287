#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// Does what the reference nodes of a file say of the files that it refers to: parents, attributes, values, connections
/// and locks. What a file connects to a placeholder of a reference node becomes a connection to the plug that the
/// placeholder stands for. Edits of references that are not loaded wait. Of each reference, one warning tells how many
/// edits found nothing to change, and why the first did not.
void applyReferenceEdits(StatementContext& context, const References& references);

/// Deletes the groups under which a file keeps its own children of a reference's nodes, once edits have taken these
/// out.
void removeEmptyFosterParents(StatementContext& context);

} // namespace host
