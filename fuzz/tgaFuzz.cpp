#include "image/tgaImage.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Any bytes as a Truevision file: first as a reader of sizes sees it, then with all its pixels.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const tvk::Bytes file{data, size};
    tvk::ImageRecord image;
    image.fileSize = size;
    tvk::TgaHeader header;
    const tvk::ImageResult headerRead = readTgaHeader(file.first(tvk::kTgaHeadBytes), header, image);
    if (!headerRead.ok()) {
        return 0;
    }
    if (image.hasExtension && image.extensionOffset >= size) {
        std::abort(); // a block behind the end of the file
    }
    const bool isRead = readTgaPixels(file, header, image).ok();
    // A packet of at least two bytes gives 128 pixels at the most, four bytes each.
    const bool isJustified = image.pixels.size() <= size * 256;
    const bool isWhole = image.pixels.size() == std::size_t{image.width} * image.height * 4;
    if (!isJustified || (isRead && !isWhole)) {
        std::abort();
    }
    return 0;
}
