#pragma once

#include "Picture.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

// How a test wants its Truevision file. The fields are written as they are, wrong ones too.
struct TgaOptions {
    std::uint8_t type = 2;
    std::uint8_t bits = 24;    // of a pixel, or of an index into the colour map
    std::uint8_t mapType = 0;  // 1 for colour-mapped files
    std::uint8_t mapBits = 24; // of a colour map's entry
    std::uint16_t firstMapEntry = 0;
    std::vector<Rgba> map;        // its entries; colour-mapped: empty for a map of the picture's colours as they come
    std::uint8_t alphaBits = 0;   // descriptor, bits 0 to 3
    bool rightToLeft = false;     // bit 4
    bool topToBottom = false;     // bit 5
    std::uint8_t interleave = 0;  // bits 6 and 7: 0 none, 1 two-way, 2 four-way
    std::string id;               // identification field
    std::size_t longestRun = 128; // of a run-length packet; packets run across the ends of rows
};

std::vector<std::uint8_t> writeTga(const Picture& picture, const TgaOptions& options);

// What is left of a colour in a pixel, or an entry of the map, of so many bits. 8 bits hold the red channel as grey.
Rgba storedInTga(const Rgba& color, std::uint8_t bits);

} // namespace tvk
