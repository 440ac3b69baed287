#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// namespace -add NAME, -set NAME, -exists NAME: makes a namespace, makes one the current one (":" is the outermost of
/// the file), or tells whether there is one. NAME is looked for below the current namespace, then below the outermost;
/// ":NAME" there alone. -exists gives 1 or 0, the others the name.
Outcome namespaceStatement(StatementContext& context, ArgumentStream& arguments);

} // namespace host
