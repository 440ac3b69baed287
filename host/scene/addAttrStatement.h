#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// addAttr -ln LONG [-sn SHORT] -at TYPE | -dt TYPE [flags] [NODE…]: a dynamic attribute on the nodes named, else on
/// the current one. A file's attribute that the node has already is left as it is.
Outcome addAttrStatement(StatementContext& context, ArgumentStream& arguments);

} // namespace host
