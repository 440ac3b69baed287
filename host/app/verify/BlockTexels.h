#pragma once

#include "host/app/verify/PictureFile.h"

#include "decode/ModelTextures.h"

#include <cstddef>
#include <string>

namespace host::app::verify {

/// Sum of the squared differences of two colours, in steps of five bits.
int colorDistance(const decode::ShownTexel& a, const decode::ShownTexel& b);

/// What is wrong with one block of 4 by 4 texels of a tex4x4 texture, "" when nothing is.
///   block   in raster order
///   isFull  the palette is near its limit, so that blocks had to share colours: how good they are is not judged
std::string blockProblem(const decode::ModelTexture& texture, const decode::ModelPalette& palette,
                         const PictureFile& picture, std::size_t block, bool isFull);

} // namespace host::app::verify
