#pragma once

#include "Picture.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

// One channel packet of a PIC file.
struct PicPacketOptions {
    std::uint8_t packing = 0;     // 0 plain, 1 pure run-length, 2 mixed run-length
    std::uint8_t channels = 0xE0; // 0x80 red, 0x40 green, 0x20 blue, 0x10 alpha
    std::uint8_t channelBits = 8;
};

// How a test wants its PIC file. The fields are written as they are, wrong ones too.
struct PicOptions {
    std::vector<PicPacketOptions> packets = {{}};
    std::string comment;              // the first of its 80 bytes; the others are zero
    std::size_t longestRun = 65535;   // of a run in mixed packing; those beyond 128 get a count of 16 bits
    std::size_t longestLiteral = 128; // of a group of differing pixels in mixed packing
};

std::vector<std::uint8_t> writePic(const Picture& picture, const PicOptions& options);

} // namespace tvk
