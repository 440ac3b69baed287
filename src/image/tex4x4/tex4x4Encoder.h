#pragma once

#include "image/ImageRecord.h"
#include "image/tex4x4/tex4x4Colors.h"

#include <cstddef>

namespace tvk {

struct Tex4x4Options {
    bool fourColors = false;     // lists of three and four palette colours beside pairs
    size_t paletteLimit = 32768; // colours; at least 8. The default is all that a block can reach
    Tex4x4Mixing mixing = Tex4x4Mixing::kConsole;
};

/// Compresses an image into blocks of 4 by 4 texels that choose from a palette of their own. Blocks in raster order,
/// one little-endian 32-bit word each, texel i (row by row) in the bits from 2i on; index words with the place of the
/// first colour, halved, below the mode (Tex4x4Mode) in the top two bits.
///   image     width and height multiples of 4, both above 0
///   returns   texels, paletteIndices and palette, whose length is a multiple of 8 filled with kFillerKey; at most
///             paletteLimit colours before that
/// Blocks of at most two colours of the console are exact, with four colours also those of three and four, as long as
/// the limit lets them: a palette above it is built anew by giving up what costs least error. Pixels that are not
/// opaque (kOpaqueAlpha) become holes. The same input gives the same bytes, in any number of threads.
TextureData encodeTex4x4(const ImageRecord& image, const Tex4x4Options& options);

} // namespace tvk
