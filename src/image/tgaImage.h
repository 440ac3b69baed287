#pragma once

#include "image/Bytes.h"
#include "image/ImageRecord.h"
#include "image/ImageResult.h"

#include <cstdint>
#include <vector>

namespace tvk {

/// A Truevision file's header, decoded.
struct TgaHeader {
    uint8_t idLength = 0;
    bool hasColorMap = false;
    uint8_t imageType = 0; // 1, 2, 3: colour-mapped, true-colour, grey; 9, 10, 11: the same, run-length encoded
    uint16_t firstMapEntry = 0;
    uint16_t mapLength = 0;
    uint8_t mapEntryBits = 0;
    uint16_t width = 0;
    uint16_t height = 0;
    uint8_t bitsPerPixel = 0;
    uint8_t alphaBits = 0;
    bool rightToLeft = false;
    bool topToBottom = false;
    uint8_t interleave = 1; // 1, 2 or 4: file rows go to every so many image rows

    bool isColorMapped() const { return imageType == 1 || imageType == 9; }
    bool isRunLength() const { return imageType >= 9; }
};

/// The bytes that readTgaHeader looks at, at the most: the header and the marker of an extension block.
inline constexpr size_t kTgaHeadBytes = 38;

/// Fills width, height, hasAlpha and the place of the extension block. Sizes of zero are refused, large ones are not.
///   head   the first kTgaHeadBytes bytes of the file, or all of a shorter one; record.fileSize must be set
ImageResult readTgaHeader(Bytes head, TgaHeader& header, ImageRecord& record);

/// Fills record.pixels. Sizes over kLargestImageSide are refused. Allocates no more than width * height * 4 bytes and
/// the colour map, and only when the file is long enough to hold what it announces. Indices outside of the colour map
/// give opaque black; what a run-length packet holds beyond the end of the image is ignored.
///   file   the whole file
ImageResult readTgaPixels(Bytes file, const TgaHeader& header, ImageRecord& record);

} // namespace tvk
