#pragma once

#include "sampleTextures/paintThings.h"
#include "sampleTextures/tgaFile.h"

#include <string>

namespace tvk::samples {

/// The extension block that the console's texture converter leaves behind an image's pixels: the texture in its final
/// form, so that artists can decide on palettes. Palettes of up to 4 colours make the format palette4, larger ones
/// palette16.
FileBytes textureBlock(const IndexedPicture& picture, const std::string& paletteName);

} // namespace tvk::samples
