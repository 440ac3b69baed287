#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// file -rdi DEPTH … PATH and file -r … PATH of a scene file: what is said of a reference, and the reference itself,
/// which is read at once. Other uses of the command are skipped.
Outcome referenceStatement(StatementContext& context, ArgumentStream& arguments);

} // namespace host
