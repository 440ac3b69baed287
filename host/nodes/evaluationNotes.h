#pragma once

#include "host/graph/Graph.h"

#include <string>
#include <vector>

namespace host {

struct EvaluationNotes {
    /// One line per type, without "Warning:".
    std::vector<std::string> warnings;
    /// Why the scene must not be used at all; empty when it may be.
    std::string refusal;
};

/// What the user must know about a scene before trusting its values.
///
/// `warnings`: each node type that this host does not evaluate, with the first node of it that drives a transform or a
/// deformable shape, and what follows from it:
///   node type 'timeWarp' is not supported: car.timeWarp1 is left out, so that what it drives keeps its stored values
/// ("car" is what it drives: the transform, of a shape too). Nodes that drive nothing of the DAG, whose values arrive
/// only as shading or set membership, are harmless and give no line; nor do inputs of a node whose stored values stay.
/// In the order of the driven nodes' creation, what is nearest to them first. Behind them, that the scene's time is
/// warped.
///
/// `refusal`: a node that is not evaluated, but without which a mesh would have another shape:
///   node type 'wrap' is not supported: body.wrap1 shapes the mesh (delete the history of 'body', or export from Maya)
/// Nodes that have no effect (their state, an envelope of 0) count for neither.
EvaluationNotes findEvaluationNotes(Graph& graph);

} // namespace host
