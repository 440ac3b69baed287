#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The body of the itp file: which images the flipping textures show, frame by frame; nothing when none flips. A run
/// that writes no imd gets the images of the patterns and their palettes here.
/// Fails, with a message, when an image cannot be converted and when the patterns show more images than the format can
/// number.
MStatus writeTexturePatternBody(std::ostream& out);

} // namespace tvk
