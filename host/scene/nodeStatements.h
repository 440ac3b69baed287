#pragma once

#include "host/scene/StatementContext.h"

namespace host {

// Statements about whole nodes, for scene files and as commands. The node that a file's createNode or select names
// becomes the current one, also when there is none (null): what follows is about it.

/// createNode TYPE [-n NAME] [-p PARENT] [-s] [-ss]; gives the name. -s takes a node of that name that is there; in a
/// file that the scene refers to, such a node is in the root namespace. A type that nobody knows makes a node that
/// holds what the file gives it.
Outcome createNodeStatement(StatementContext& context, ArgumentStream& arguments);

/// rename [-uid] [NODE] NAME; gives the name. With -uid, NAME is the id of the (current) node.
Outcome renameStatement(StatementContext& context, ArgumentStream& arguments);

/// parent [-s] [-nc] [-r] [-add] [-w] NODE… PARENT: moves below PARENT (-w: below the world), or adds an instance
/// there. In a file positions are never kept.
Outcome parentStatement(StatementContext& context, ArgumentStream& arguments);

/// select -ne NODE of a file: the current node from here on.
Outcome selectStatement(StatementContext& context, ArgumentStream& arguments);

} // namespace host
