#pragma once

#include "host/app/report/Report.h"

#include "decode/ModelTextures.h"

namespace host::app::report {

/// Bytes of the texels of an image: 2, 4, 8 or 16 bits each, and 32 for the sixteen of a tex4x4 block. Throws
/// std::invalid_argument when there is no such format.
std::int64_t texelBytes(const std::string& format, int width, int height);

/// What the textures take of the console's memory. Images of the same size stand in the order of the file.
TextureMemory memoryOf(const decode::ModelTextures& textures);

} // namespace host::app::report
