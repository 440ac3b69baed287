#pragma once

#include "host/graph/Graph.h"

#include <string>

namespace host {

/// lattice: its points in `latticeOutput` and `worldLattice`: those of latticeInput, else those that are stored, else
/// those of a new lattice of its divisions, with what controlPoints adds to them; and the matrices of any shape.
void computeLattice(Evaluation& evaluation, Node& node, const PlugAddress& output);
void fillLatticeAffects(NodeType& type);

/// ffd: each member inside the base lattice goes where the deformed lattice takes its place, weighted by `weightList`.
/// baseLatticeMatrix and deformedLatticeMatrix take the lattices to the world, `shapeSpace` the points.
void computeFfd(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Why this ffd cannot be evaluated, to go on after "node type 'ffd'": " with local influence". Empty when it can.
std::string limitOfFfd(Graph& graph, Node& node);

} // namespace host
