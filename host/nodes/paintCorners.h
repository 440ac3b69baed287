#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Evaluation.h"

namespace host {

/// Gives the corners of a mesh the colours that a polyColorPerVertex node stores: of a vertex in one face, or of a
/// vertex in all of them. The set that it names is made when the mesh has none; without a name it is the current one.
/// Corners that the node says nothing of keep their colour, or have none.
void paintCorners(Evaluation& evaluation, Node& node, MeshData& mesh);

} // namespace host
