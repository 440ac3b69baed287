#include "image/picImage.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Any bytes as a PIC file: first as a reader of sizes sees it, then with all its pixels.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const tvk::Bytes file{data, size};
    tvk::ImageRecord image;
    image.fileSize = size;
    tvk::PicHeader header;
    const tvk::ImageResult headerRead = readPicHeader(file.first(tvk::kPicHeaderBytes), header, image);
    if (!headerRead.ok()) {
        return 0;
    }
    if (image.hasExtension && image.extensionOffset >= size) {
        std::abort(); // a block behind the end of the file
    }
    const bool isRead = readPicPixels(file, header, image).ok();
    // The longest scan line, 4096 bytes of the image, takes a long run's count and one channel: four bytes of the file.
    const bool isJustified = image.pixels.size() <= size * 1024;
    const bool isWhole = image.pixels.size() == std::size_t{image.width} * image.height * 4;
    if (!isJustified || (isRead && !isWhole)) {
        std::abort();
    }
    return 0;
}
