#pragma once

#include <maya/MStatus.h>

namespace tvk {

// What a run gathers of the model, at the host's current time: first what the scene holds, then what follows from it.

/// Reads nodes, transforms, shapes, skins, faces, materials and textures, in this order, up to the first failure. Nodes
/// are referred to by their records: which of them are written is not known yet.
MStatus readModel();

/// Compresses the nodes, settles who is written at which index, and brings vertices and faces into written form.
void settleModel();

} // namespace tvk
