#include "image/tgaImage.h"

#include <array>
#include <utility>

namespace tvk {
namespace {

constexpr size_t kHeaderBytes = 18;
constexpr std::string_view kMarker{"TVK_Tga Ver 1.0\0", 16};
constexpr size_t kExtensionOffsetAt = 34;

using Pixel = std::array<uint8_t, 4>;

ImageResult failed(const char* text, const ImageRecord& record) {
    return {text + record.fileName};
}

bool isKnownType(uint8_t type) {
    return (type >= 1 && type <= 3) || (type >= 9 && type <= 11);
}

bool isKnownDepth(uint8_t bits) {
    return bits == 8 || bits == 15 || bits == 16 || bits == 24 || bits == 32;
}

TgaHeader decodeHeader(Bytes head) {
    TgaHeader header;
    header.idLength = head[0];
    header.hasColorMap = head[1] != 0;
    header.imageType = head[2];
    header.firstMapEntry = head.little16(3);
    header.mapLength = head.little16(5);
    header.mapEntryBits = head[7];
    header.width = head.little16(12);
    header.height = head.little16(14);
    header.bitsPerPixel = head[16];
    const uint8_t descriptor = head[17];
    header.alphaBits = descriptor & 0x0FU;
    header.rightToLeft = (descriptor & 0x10U) != 0;
    header.topToBottom = (descriptor & 0x20U) != 0;
    constexpr std::array<uint8_t, 4> kInterleaves{1, 2, 4, 1};
    header.interleave = kInterleaves[descriptor >> 6U];
    return header;
}

void findExtension(Bytes head, const TgaHeader& header, ImageRecord& record) {
    constexpr uint8_t kMarkedIdLength = 20;
    record.hasExtension = false;
    if (header.idLength < kMarkedIdLength || head.size < kTgaHeadBytes ||
        !head.from(kHeaderBytes).startsWith(kMarker)) {
        return;
    }
    const uint32_t offset = head.little32(kExtensionOffsetAt);
    if (offset >= kTgaHeadBytes && offset < record.fileSize) {
        record.hasExtension = true;
        record.extensionOffset = offset;
    }
}

size_t bytesOf(uint8_t bits) {
    return (bits + 7U) / 8U;
}

// Indices into a colour map have one byte or two, whatever else the header says.
size_t pixelBytesOf(const TgaHeader& header) {
    return header.isColorMapped() && header.bitsPerPixel != 8 ? 2 : bytesOf(header.bitsPerPixel);
}

uint8_t expanded(unsigned int five) {
    return static_cast<uint8_t>(five << 3U | five >> 2U);
}

Pixel decodePixel(Bytes from, uint8_t bits) {
    switch (bits) {
    case 8:
        return {from[0], from[0], from[0], 255};
    case 15:
    case 16: {
        const unsigned int word = from.little16(0);
        return {expanded(word >> 10U & 31U), expanded(word >> 5U & 31U), expanded(word & 31U), 255};
    }
    case 24:
        return {from[2], from[1], from[0], 255};
    default:
        return {from[2], from[1], from[0], from[3]};
    }
}

// Reads pixel values one after the other, through the colour map where there is one.
class PixelSource {
public:
    //   entries   of the colour map, from its first index on
    PixelSource(Bytes file, size_t start, const TgaHeader& header, std::vector<Pixel> entries)
        : bytes(file), at(start), head(header), map(std::move(entries)), pixelBytes(pixelBytesOf(header)) {}

    // False at the end of the file.
    bool next(Pixel& pixel) {
        if (!bytes.holds(at, pixelBytes)) {
            return false;
        }
        pixel = head.isColorMapped() ? mapped() : decodePixel(bytes.from(at), head.bitsPerPixel);
        at += pixelBytes;
        return true;
    }

    bool nextByte(uint8_t& byte) {
        if (!bytes.holds(at, 1)) {
            return false;
        }
        byte = bytes[at++];
        return true;
    }

private:
    // Opaque black outside of the map, below its first index as well.
    Pixel mapped() const {
        const size_t index = pixelBytes == 1 ? bytes[at] : bytes.little16(at);
        const bool inside = index >= head.firstMapEntry && index - head.firstMapEntry < map.size();
        return inside ? map[index - head.firstMapEntry] : Pixel{0, 0, 0, 255};
    }

    Bytes bytes;
    size_t at;
    const TgaHeader& head;
    std::vector<Pixel> map;
    size_t pixelBytes;
};

// Gives pixels their place in the record: rows from the bottom up unless told otherwise, in passes when interleaved.
class PixelSink {
public:
    PixelSink(const TgaHeader& header, bool forceOpaque, ImageRecord& record)
        : head(header), opaque(forceOpaque), pixels(record.pixels) {
        pixels.resize(size_t{head.width} * head.height * 4);
    }

    bool isFull() const { return filled == size_t{head.width} * head.height; }

    void put(const Pixel& pixel) {
        const size_t column = head.rightToLeft ? head.width - 1U - inRow : inRow;
        const size_t imageRow = head.topToBottom ? row : head.height - 1U - row;
        uint8_t* const to = &pixels[(imageRow * head.width + column) * 4];
        to[0] = pixel[0];
        to[1] = pixel[1];
        to[2] = pixel[2];
        to[3] = opaque ? uint8_t{255} : pixel[3];
        ++filled;
        if (++inRow == head.width) {
            inRow = 0;
            nextRow();
        }
    }

private:
    void nextRow() {
        row += head.interleave;
        while (row >= head.height && pass + 1U < head.interleave) {
            row = ++pass;
        }
    }

    const TgaHeader& head;
    bool opaque;
    std::vector<uint8_t>& pixels;
    size_t filled = 0;
    size_t inRow = 0;
    size_t row = 0; // counted from the file's first row on
    size_t pass = 0;
};

std::vector<Pixel> readColorMap(Bytes entries, const TgaHeader& header) {
    std::vector<Pixel> map(header.mapLength);
    const size_t entryBytes = bytesOf(header.mapEntryBits);
    for (size_t i = 0; i < map.size(); ++i) {
        map[i] = decodePixel(entries.from(i * entryBytes), header.mapEntryBits);
    }
    return map;
}

bool readPlain(PixelSource& source, PixelSink& sink) {
    Pixel pixel{};
    while (!sink.isFull()) {
        if (!source.next(pixel)) {
            return false;
        }
        sink.put(pixel);
    }
    return true;
}

// One packet; what it holds beyond the end of the image is left.
bool readPacket(PixelSource& source, PixelSink& sink, uint8_t packet) {
    const bool repeats = (packet & 0x80U) != 0;
    Pixel pixel{};
    for (unsigned int left = (packet & 0x7FU) + 1U; left > 0 && !sink.isFull(); --left) {
        const bool first = left == (packet & 0x7FU) + 1U;
        if ((first || !repeats) && !source.next(pixel)) {
            return false;
        }
        sink.put(pixel);
    }
    return true;
}

bool readRunLength(PixelSource& source, PixelSink& sink) {
    while (!sink.isFull()) {
        uint8_t packet = 0;
        if (!source.nextByte(packet) || !readPacket(source, sink, packet)) {
            return false;
        }
    }
    return true;
}

// Run-length packets hold up to 128 pixels each, so even a flat image has a byte in the file for every 128 pixels.
bool fileCanHold(Bytes file, size_t start, const TgaHeader& header) {
    const size_t pixelCount = size_t{header.width} * header.height;
    const size_t pixelBytes = pixelBytesOf(header);
    const size_t least = header.isRunLength() ? (pixelCount + 127) / 128 * (1 + pixelBytes) : pixelCount * pixelBytes;
    return file.holds(start, least);
}

} // namespace

ImageResult readTgaHeader(Bytes head, TgaHeader& header, ImageRecord& record) {
    if (head.size < kHeaderBytes) {
        return failed(image_error::kTgaEnd, record);
    }
    header = decodeHeader(head);
    if (!isKnownType(header.imageType) || (header.isColorMapped() && !header.hasColorMap)) {
        return failed(image_error::kTgaImageType, record);
    }
    if (!isKnownDepth(header.bitsPerPixel) || (header.isColorMapped() && !isKnownDepth(header.mapEntryBits))) {
        return failed(image_error::kTgaBitsPerPixel, record);
    }
    if (header.width == 0 || header.height == 0) {
        return failed(image_error::kTgaSize, record);
    }
    record.width = header.width;
    record.height = header.height;
    record.hasAlpha = header.isColorMapped() ? header.mapEntryBits == 32 : header.alphaBits != 0;
    findExtension(head, header, record);
    return {};
}

ImageResult readTgaPixels(Bytes file, const TgaHeader& header, ImageRecord& record) {
    if (header.width > kLargestImageSide || header.height > kLargestImageSide) {
        return failed(image_error::kTgaSize, record);
    }
    const size_t mapAt = kHeaderBytes + size_t{header.idLength};
    const size_t mapBytes = header.hasColorMap ? size_t{header.mapLength} * bytesOf(header.mapEntryBits) : 0;
    if (!file.holds(mapAt, mapBytes) || !fileCanHold(file, mapAt + mapBytes, header)) {
        return failed(image_error::kTgaEnd, record);
    }
    std::vector<Pixel> map;
    if (header.isColorMapped()) {
        map = readColorMap(file.from(mapAt), header);
    }
    PixelSource source(file, mapAt + mapBytes, header, std::move(map));
    PixelSink sink(header, !record.hasAlpha, record);
    const bool complete = header.isRunLength() ? readRunLength(source, sink) : readPlain(source, sink);
    return complete ? ImageResult{} : failed(image_error::kTgaEnd, record);
}

} // namespace tvk
