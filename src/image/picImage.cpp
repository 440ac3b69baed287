#include "image/picImage.h"

#include <algorithm>
#include <array>

namespace tvk {
namespace {

constexpr std::array<uint8_t, 4> kMagic{0x53, 0x80, 0xF6, 0x34};
constexpr size_t kCommentAt = 8;
constexpr std::string_view kMarker = "TVK_Pic Ver 1.0";
constexpr size_t kExtensionOffsetAt = 24;
constexpr size_t kIdentityAt = 88;
constexpr size_t kWidthAt = 92;
constexpr size_t kHeightAt = 94;
constexpr size_t kPacketBytes = 4;
constexpr uint8_t kAlphaChannel = 0x10;

enum Packing : uint8_t { kPlain, kPureRunLength, kMixedRunLength };

ImageResult failed(const ImageRecord& record) {
    return {image_error::kPic + record.fileName};
}

void findExtension(Bytes head, ImageRecord& record) {
    record.hasExtension = false;
    if (!head.from(kCommentAt).startsWith(kMarker)) {
        return;
    }
    const uint32_t offset = head.little32(kExtensionOffsetAt);
    if (offset >= kPicHeadBytes && offset < record.fileSize) {
        record.hasExtension = true;
        record.extensionOffset = offset;
    }
}

// Reads packets up to the one that says it is the last, or the end of the bytes.
void readPackets(Bytes head, PicHeader& header, ImageRecord& record) {
    size_t at = kPicHeadBytes;
    while (!header.isComplete && head.holds(at, kPacketBytes)) {
        header.isComplete = head[at] == 0;
        const PicPacket packet{static_cast<uint8_t>(head[at + 2] & 0x0FU), head[at + 1], head[at + 3]};
        if ((packet.channels & kAlphaChannel) != 0) {
            record.hasAlpha = true;
            header.alphaPacking = packet.packing;
        } else {
            header.colorPacking = packet.packing;
        }
        header.packets.push_back(packet);
        at += kPacketBytes;
    }
    header.pixelOffset = at;
}

bool isReadable(const PicPacket& packet) {
    return packet.channelBits == 8 && packet.packing <= kMixedRunLength;
}

size_t channelCountOf(const PicPacket& packet) {
    size_t count = 0;
    for (unsigned int mask = 0x80; mask >= kAlphaChannel; mask >>= 1U) {
        count += (packet.channels & mask) != 0 ? 1U : 0U;
    }
    return count;
}

// The fewest bytes that a packet's channels of one scan line can fill: runs end with the line.
size_t leastLineBytes(const PicPacket& packet, size_t width) {
    constexpr size_t kLongestShortRun = 128;
    const size_t channels = channelCountOf(packet);
    switch (packet.packing) {
    case kPlain:
        return width * channels;
    case kPureRunLength:
        return (width + 254) / 255 * (1 + channels);
    default: // a count of 16 bits fills any line
        return width > kLongestShortRun ? 3 + channels : 1 + channels;
    }
}

bool bringsChannels(const PicPacket& packet) {
    return channelCountOf(packet) > 0;
}

bool fileCanHold(Bytes file, const PicHeader& header, const ImageRecord& record) {
    size_t lineBytes = 0;
    for (const PicPacket& packet : header.packets) {
        lineBytes += leastLineBytes(packet, record.width);
    }
    return file.holds(header.pixelOffset, lineBytes * record.height);
}

// Reads the values of one packet's channels and puts them along a scan line.
class LineReader {
public:
    LineReader(Bytes file, size_t start) : bytes(file), at(start) {}

    bool readLine(const PicPacket& packet, uint8_t* line, size_t width) {
        channelCount = 0;
        for (unsigned int c = 0; c < 4; ++c) {
            if ((packet.channels & (0x80U >> c)) != 0) {
                channels[channelCount++] = c;
            }
        }
        size_t column = 0;
        while (column < width) {
            const size_t done = readRun(packet.packing, line + column * 4, width - column);
            if (done == kBroken) {
                return false;
            }
            column += done;
        }
        return true;
    }

private:
    static constexpr size_t kBroken = static_cast<size_t>(-1);

    // Pixels that were filled, at most `room`; what a run holds beyond the line is left.
    size_t readRun(uint8_t packing, uint8_t* to, size_t room) {
        if (packing == kPlain) {
            return literal(to, room);
        }
        uint8_t count = 0;
        if (!nextByte(count)) {
            return kBroken;
        }
        if (packing == kPureRunLength) {
            return repeated(to, count, room);
        }
        if (count < 128) {
            return literal(to, std::min<size_t>(count + 1U, room));
        }
        if (count > 128) {
            return repeated(to, count - 127U, room);
        }
        if (!bytes.holds(at, 2)) {
            return kBroken;
        }
        const uint16_t longCount = bytes.big16(at);
        at += 2;
        return repeated(to, longCount, room);
    }

    size_t literal(uint8_t* to, size_t count) {
        if (!bytes.holds(at, count * channelCount)) {
            return kBroken;
        }
        for (size_t i = 0; i < count; ++i, to += 4) {
            takeValue(to);
        }
        return count;
    }

    size_t repeated(uint8_t* to, size_t count, size_t room) {
        if (!bytes.holds(at, channelCount)) {
            return kBroken;
        }
        const size_t kept = std::min(count, room);
        const size_t start = at;
        for (size_t i = 0; i < kept; ++i, to += 4) {
            at = start;
            takeValue(to);
        }
        at = start + channelCount;
        return kept;
    }

    void takeValue(uint8_t* to) {
        for (size_t c = 0; c < channelCount; ++c) {
            to[channels[c]] = bytes[at++];
        }
    }

    bool nextByte(uint8_t& byte) {
        if (!bytes.holds(at, 1)) {
            return false;
        }
        byte = bytes[at++];
        return true;
    }

    Bytes bytes;
    size_t at;
    std::array<unsigned int, 4> channels{};
    size_t channelCount = 0;
};

} // namespace

ImageResult readPicHeader(Bytes head, PicHeader& header, ImageRecord& record) {
    const bool isPic = head.size >= kPicHeadBytes &&
                       head.startsWith({reinterpret_cast<const char*>(kMagic.data()), kMagic.size()}) &&
                       head.from(kIdentityAt).startsWith("PICT");
    if (!isPic) {
        return failed(record);
    }
    record.width = head.big16(kWidthAt);
    record.height = head.big16(kHeightAt);
    if (record.width == 0 || record.height == 0) {
        return failed(record);
    }
    record.hasAlpha = false;
    header = PicHeader{};
    readPackets(head, header, record);
    findExtension(head, record);
    const bool chainTooLong = !header.isComplete && header.packets.size() == kPicPacketLimit;
    return chainTooLong ? failed(record) : ImageResult{};
}

ImageResult readPicPixels(Bytes file, const PicHeader& header, ImageRecord& record) {
    const std::vector<PicPacket>& packets = header.packets;
    if (record.width > kLargestImageSide || record.height > kLargestImageSide || !header.isComplete ||
        !std::all_of(packets.begin(), packets.end(), isReadable) ||
        std::none_of(packets.begin(), packets.end(), bringsChannels) || !fileCanHold(file, header, record)) {
        return failed(record);
    }
    record.pixels.assign(size_t{record.width} * record.height * 4, 0);
    for (size_t i = 3; i < record.pixels.size(); i += 4) {
        record.pixels[i] = 255;
    }
    LineReader reader(file, header.pixelOffset);
    for (size_t row = 0; row < record.height; ++row) {
        uint8_t* const line = &record.pixels[row * record.width * 4];
        for (const PicPacket& packet : packets) {
            if (!reader.readLine(packet, line, record.width)) {
                return failed(record);
            }
        }
    }
    return {};
}

} // namespace tvk
