#pragma once

#include "host/graph/Graph.h"

namespace host {

/// character: what the clips of its scheduler make of its elements at the current time, in the outputs
/// `unitlessPlayed`, `linearPlayed`, `angularPlayed` and `timePlayed` by element; what no clip moves is as the element
/// holds it.
void computeCharacter(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Lets the elements of every character that has clips on its timeline read as these play: files hold no connection
/// for that. Elements with keys or another connection of their own keep that. Warns of what cannot be played as the
/// real host plays it. May be called again when there are more clips.
void tieClips(Graph& graph);

} // namespace host
