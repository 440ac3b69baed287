#pragma once

#include "sampleTextures/Picture.h"
#include "sampleTextures/tgaFile.h"

namespace tvk::samples {

/// Bytes of a Softimage file that shows the picture: colours in mixed run lengths, and, unless every pixel is opaque,
/// alpha in a packet of its own.
///   block   an extension block to be put behind the pixels and announced in the comment; empty for none
FileBytes writePic(const Picture& picture, const FileBytes& block = {});

} // namespace tvk::samples
