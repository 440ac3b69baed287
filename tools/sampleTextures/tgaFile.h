#pragma once

#include "sampleTextures/Picture.h"

#include <cstdint>
#include <vector>

namespace tvk::samples {

using FileBytes = std::vector<uint8_t>;

/// How the pixels of a Truevision file are stored.
enum class TgaKind {
    kColorMapped, // run lengths of 8-bit indices, 24-bit map; at most 256 colours
    kPlain24,     // uncompressed, rows from the bottom up
    kPlain32,     // the same with 8 bits of alpha
    kRuns24,      // run lengths, rows from the top down
    kRuns32,
};

/// Bytes of a file that shows the picture.
///   block   an extension block to be put behind the pixels and announced in the identification field; empty for none
FileBytes writeTga(const Picture& picture, TgaKind kind, const FileBytes& block = {});

} // namespace tvk::samples
