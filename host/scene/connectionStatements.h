#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// connectAttr [-na] [-l B] [-f] SOURCE DESTINATION. -na takes the lowest element of the destination that is free. What
/// a default node drives in a new scene gives way to what a file connects. A file that the scene refers to connects to
/// default nodes with -na only; what else it says of them is left out.
Outcome connectAttrStatement(StatementContext& context, ArgumentStream& arguments);

/// disconnectAttr [-na] SOURCE DESTINATION; -na finds the element of the destination that SOURCE drives.
Outcome disconnectAttrStatement(StatementContext& context, ArgumentStream& arguments);

/// The plug that a connection's end names; a world-space array without an index is the element of the path's instance.
PlugTarget findConnectionEnd(StatementContext& context, std::string_view name);

} // namespace host
