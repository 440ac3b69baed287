#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>

namespace tvk {

/// Finds or makes the record of a file texture as one material uses it, and with it everything that the texture leads
/// to: its image, its combination of image and tiling, and the images of its pattern.
///   fileNode        a file texture
///   materialIndex   in SceneData::materials; the length of that list for a material that is about to be added
///   sourceIndex     gets the place in SceneData::textureSources
///   refIndex        gets the place in SceneData::textureRefs
/// Fails, with a message and both results untouched, for a texture without image name, an image that cannot be read or
/// is too large, and a pattern whose path or list of frames makes no sense. A name check takes some of these softly.
MStatus getTextureSource(MObject fileNode, int materialIndex, int& sourceIndex, int& refIndex);

/// Takes back the last record, with its pattern, when its material was merged into another one. Images and
/// combinations of image and tiling stay, as the other material has the same.
///   sourceIndex   as getTextureSource gave it for the dropped material; a record that was there before is no longer
///   the
///                 last one of that material and must not be given
void dropTextureSource(int sourceIndex);

} // namespace tvk
