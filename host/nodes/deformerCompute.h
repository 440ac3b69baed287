#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Evaluation.h"

#include <cstdint>
#include <string>

namespace host {

/// Changes the points of one input geometry: `points` come in as those of `mesh` and go out as all of them would be
/// with full envelope; members and envelope are none of its business. May change other parts of `mesh`.
using DeformFunction = void (*)(Evaluation& evaluation, Node& node, std::int32_t element, MeshData& mesh,
                                Points& points);

/// Computes an element of a deformer's outputGeometry: the input of the same element, with the members of its group
/// moved as far as the envelope says. Points of a lattice move likewise: `mesh` then has no faces. Any other data, and
/// everything while the node has no effect (its state, or an
/// envelope of 0), passes through untouched.
void computeDeformer(Evaluation& evaluation, Node& node, const PlugAddress& output, DeformFunction deform);

/// Whether the node's state says that what comes in goes out.
bool hasNoEffect(Evaluation& evaluation, Node& node);

/// Whether groups or tags leave the deformer no point to move in any mesh that it gets. False when it gets none.
bool hasNoMembers(Graph& graph, Node& deformer);

/// Deformers that are not evaluated: every input passes through.
void computePassingDeformer(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeTweak(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
