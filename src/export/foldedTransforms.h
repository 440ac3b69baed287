#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// After node compression: gives every output node the written set that takes in the transforms of its folded
/// ancestors. Where folding changed the scale that a joint writes, its children no longer undo that scale; theirs is
/// taken in likewise. Shear that a set cannot hold is told once per node. Then finds the exported world matrices of
/// the output nodes, as a reader of the file computes them.
void foldTransforms(SceneData& scene);

} // namespace tvk
