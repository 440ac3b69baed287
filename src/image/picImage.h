#pragma once

#include "image/Bytes.h"
#include "image/ImageRecord.h"
#include "image/ImageResult.h"

#include <cstdint>
#include <vector>

namespace tvk {

/// How one group of channels is packed along each scan line.
struct PicPacket {
    uint8_t packing = 0;     // 0 plain, 1 pure run-length, 2 mixed run-length
    uint8_t channelBits = 8; // per channel
    uint8_t channels = 0;    // bits 0x80 red, 0x40 green, 0x20 blue, 0x10 alpha
};

/// A PIC file's header and channel packets, decoded.
struct PicHeader {
    std::vector<PicPacket> packets;
    uint8_t colorPacking = 0; // of the last packet without alpha
    uint8_t alphaPacking = 0; // of the last packet with alpha
    size_t pixelOffset = 0;   // in the file
    bool isComplete = false;  // the last packet says that it is the last
};

/// Where the channel packets begin, which is also the shortest file.
inline constexpr size_t kPicHeadBytes = 104;
/// The bytes that readPicHeader looks at, at the most. More packets than there are channels make no sense; a chain that
/// goes on behind the limit is refused.
inline constexpr size_t kPicPacketLimit = 64;
inline constexpr size_t kPicHeaderBytes = kPicHeadBytes + 4 * kPicPacketLimit;

/// Fills width, height, hasAlpha and the place of the extension block.
/// Sizes of zero are refused, large ones are not; a chain of packets that the end of the file cuts is taken as it is.
///   head   the first kPicHeaderBytes bytes of the file, or all of a shorter one; record.fileSize must be set
ImageResult readPicHeader(Bytes head, PicHeader& header, ImageRecord& record);

/// Fills record.pixels: missing colour channels are 0, alpha 255 where there is none. Sizes over kLargestImageSide are
/// refused, and files whose packets bring no channel; allocates only when the file is long enough to hold what it
/// announces. What a run holds beyond the end of its scan line is ignored.
///   file   the whole file
ImageResult readPicPixels(Bytes file, const PicHeader& header, ImageRecord& record);

} // namespace tvk
