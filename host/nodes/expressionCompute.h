#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// expression: `output` from the stored text (internalExpression, with `.I[n]` and `.O[n]`), run as MEL without any
/// commands, so that it can read and change nothing but its own plugs; `compiled` is the text made ready for that. An
/// output that the text does not set, and all of a text that fails or does not end (said once), keep what the channels
/// that they drive store. A variable that the text declares global keeps its value from one evaluation to the next.
void computeExpression(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Fills which attribute of the type changes what.
void fillExpressionAffects(NodeType& type);

} // namespace host
