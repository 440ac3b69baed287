#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/Verification.h"

namespace host::app::verify {

/// The textures of the files, texel by texel, held against the pictures that they name:
///   palette4, palette16, palette256, direct
///                the picture's colours in five bits; holes where its alpha is below 128, and only there
///   a3i5, a5i3   its colours, and the upper three or five bits of its alpha
///   tex4x4       holes like the palette formats; every texel has, of the colours of its block, the one nearest to the
///                picture's, and a block is not worse than one that mixes the corners of the box around its colours
/// Pictures with texels of their own for the console are compared with those, word by word.
void checkTextures(const report::ExportedFiles& files, Verification& result);

} // namespace host::app::verify
