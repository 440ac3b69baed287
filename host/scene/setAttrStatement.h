#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// setAttr [-k B] [-l B] [-cb B] [-ca B] [-s N] [-ch N] [-av] [-c] [-e] [-type T] NAME [-type T] VALUES…
/// Flags may stand anywhere before the values and behind them; without values only the flags count. NAME may be an
/// element or a range of elements of an array. Numbers are in the scene's units. A chunk that names no type has the
/// type of its attribute, or of the chunk before.
Outcome setAttrStatement(StatementContext& context, ArgumentStream& arguments);

} // namespace host
