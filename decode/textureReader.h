#pragma once

#include "decode/ModelTextures.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace decode {

// The parts of readModelTextures. All throw a FileError as it does.

/// Words of so many hexadecimal digits between white space, as many as the attribute says.
std::vector<std::uint32_t> readWords(const FileElement& element, const char* sizeName, std::size_t digits);

/// One texture image.
///   palette   of the name that the image has; null when it has none, or when there is none of the name
ModelTexture readTexture(const FileElement& element, const std::vector<std::uint16_t>* palette);

} // namespace decode
