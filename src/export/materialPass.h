#pragma once

#include <maya/MStatus.h>

namespace tvk {

// What the run does about materials and textures between reading the nodes and writing the files.

/// Asks for the material of every shading group of every mesh of the model, shapes in node-list order. Groups that a
/// mesh has as a whole do not count when it has others for its faces. Meshes without texture coordinates ask for no
/// texture.
/// Fails, with a message, when the groups of a mesh cannot be read and when a texture cannot be taken.
MStatus gatherMaterials();

/// Final names and written order, of materials and of textures. With the run's option to write all textures it adds
/// those that nothing uses, and fails, with a message, when one cannot be taken.
MStatus settleMaterials();

/// Tells the run whether materials and textures have something to animate.
void prepareMaterialAnimation();

} // namespace tvk
