#pragma once

#include "host/geometry/MeshData.h"
#include "host/graph/Evaluation.h"

namespace host {

/// The mesh that a shape stores in its own arrays, without tweaks; empty when it stores none. What cannot be right is
/// left out with a warning that names the shape: everything (an edge names a vertex that is not there), the faces from
/// the first bad one on, or the ids of a set that name no coordinate or colour. A vertex that is not a number, or not
/// finite, is said and stays.
MeshPtr readStoredMesh(Evaluation& evaluation, Node& mesh);

} // namespace host
