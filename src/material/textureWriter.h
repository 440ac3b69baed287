#pragma once

#include <maya/MStatus.h>

#include <iosfwd>
#include <vector>

namespace tvk {

/// Settles the written order of the texture images (by name, equal names by path) and of the combinations of image and
/// tiling (by image) once all are gathered: SceneData::textureOrder and the written indices of the records.
void sortTextures();

/// Leaves only some images to be written, by their places in SceneData::textures, and numbers them anew. For a file
/// that has the images of its own and no others. sortTextures comes before.
void keepTextures(const std::vector<bool>& isKept);

/// Reads and converts every texture image in written order, registers the palettes and settles their written order.
/// sortTextures comes before.
///   write   whether the images are written as well; nothing is when there are none
/// Fails, with a message, when an image cannot be read or converted and when its palette clashes with one of the same
/// name; what was written so far stays.
MStatus writeTexImageArray(std::ostream& out, bool write);

} // namespace tvk
