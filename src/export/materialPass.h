#pragma once

#include <maya/MStatus.h>

namespace tvk {

// What the run does about materials and textures between reading the nodes and writing the files.

/// Final names and written order, of materials and of textures. With the run's option to write all textures it adds
/// those that nothing uses, and fails, with a message, when one cannot be taken.
MStatus settleMaterials();

/// Tells the run whether materials and textures have something to animate.
void prepareMaterialAnimation();

} // namespace tvk
