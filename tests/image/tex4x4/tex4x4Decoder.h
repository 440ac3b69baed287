#pragma once

#include "image/ImageRecord.h"
#include "image/tex4x4/tex4x4Colors.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

// Compressed textures as the console reads them, written from the description of the format and with no line of the
// encoder.

// One block: its two words taken apart.
struct DecodedBlock {
    unsigned int mode = 0;    // 0 to 3
    std::size_t position = 0; // of its first colour in the palette
    std::array<unsigned int, 16> indices{};
};

DecodedBlock decodeBlock(const TextureData& data, std::size_t block);

// All texels, R, G, B, A, rows from top to bottom: components 0 to 255, alpha 0 or 255. With palette entries mixed in
// five bits, or as they are seen. A test failure for a block that reaches behind the palette.
std::vector<std::uint8_t> decodeTex4x4(const TextureData& data, std::size_t width, std::size_t height,
                                       Tex4x4Mixing mixing = Tex4x4Mixing::kConsole);

// The sum of squared differences of the opaque pixels' colours.
double squaredError(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b);

} // namespace tvk
