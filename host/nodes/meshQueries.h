#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Graph.h"

namespace host {

/// The mesh that a shape of type "mesh" shows now: its stored one, or what its history makes, with tweaks. Never null;
/// an empty mesh for what is no mesh, and for one whose history gives none.
MeshPtr evaluatedMesh(Graph& graph, Node& meshShape);

/// Components of a group of the shape: what history gave to the id, else what the shape itself stores for the group
/// (".iog[instance].og[group].gcl"). Null when neither says anything.
std::shared_ptr<const ComponentList> groupComponents(Graph& graph, Node& meshShape, std::int32_t instance,
                                                     std::int32_t group);

} // namespace host
