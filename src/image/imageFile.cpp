#include "image/imageFile.h"

#include "common/asciiText.h"
#include "common/shiftJis.h"
#include "image/extensionBlock.h"
#include "image/picImage.h"
#include "image/tgaImage.h"
#include "platform/fileSystem.h"

#include <algorithm>
#include <fstream>
#include <vector>

namespace tvk {
namespace {

// A file opened for reading pieces of it.
class ImageFile {
public:
    bool open(const std::string& fileName, uint64_t& size) {
        if (!fileExists(fileName)) {
            return false;
        }
        stream.open(systemPath(fileName), std::ios::binary);
        stream.seekg(0, std::ios::end);
        const auto end = static_cast<std::streamoff>(stream.tellg());
        size = end < 0 ? 0 : static_cast<uint64_t>(end);
        return stream.good();
    }

    // `count` bytes from `offset` on, fewer at the end of the file.
    bool read(uint64_t offset, uint64_t count, std::vector<uint8_t>& bytes) {
        bytes.resize(static_cast<size_t>(count));
        stream.seekg(static_cast<std::streamoff>(offset));
        stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count));
        return stream.good();
    }

private:
    std::ifstream stream;
};

Bytes viewOf(const std::vector<uint8_t>& bytes) {
    return {bytes.data(), bytes.size()};
}

ImageResult cantOpen(const ImageRecord& record) {
    return {image_error::kCantOpen + record.fileName};
}

// Far beyond any texture. What a file holds behind it is as if it were cut off: a file of absurd size must not ask for
// memory of that size.
constexpr uint64_t kMostBytes = uint64_t{64} << 20U;

// One file on its way into a record.
struct Reading {
    ImageFile file;
    ImageRecord& record;
    TgaHeader tga{};
    PicHeader pic{};

    ImageResult readHeader() {
        const bool isTga = record.type == ImageType::kTga;
        const uint64_t wanted = isTga ? kTgaHeadBytes : kPicHeaderBytes;
        std::vector<uint8_t> head;
        if (!file.read(0, std::min(wanted, record.fileSize), head)) {
            return cantOpen(record);
        }
        return isTga ? readTgaHeader(viewOf(head), tga, record) : readPicHeader(viewOf(head), pic, record);
    }

    ImageResult readBlock(ExtensionReading how) {
        std::vector<uint8_t> block;
        const uint64_t size = std::min(record.fileSize - record.extensionOffset, kMostBytes);
        if (!file.read(record.extensionOffset, size, block)) {
            return cantOpen(record);
        }
        return readExtension(viewOf(block), how, record);
    }

    ImageResult readPixels() {
        // What is refused by its size is not worth reading: the readers look at the size before any byte.
        const bool isTooLarge = record.width > kLargestImageSide || record.height > kLargestImageSide;
        std::vector<uint8_t> all;
        if (!isTooLarge && !file.read(0, std::min(record.fileSize, kMostBytes), all)) {
            return cantOpen(record);
        }
        return record.type == ImageType::kTga ? readTgaPixels(viewOf(all), tga, record)
                                              : readPicPixels(viewOf(all), pic, record);
    }
};

bool findType(const std::string& fileName, ImageType& type) {
    const std::string extension = lowerAscii(fileExtension(fileName));
    type = extension == "pic" ? ImageType::kPic : ImageType::kTga;
    return extension == "pic" || extension == "tga";
}

} // namespace

ImageResult openImage(const std::string& fileName, ImageReading reading, ImageRecord& record) {
    record = ImageRecord{};
    record.fileName = fileName;
    if (!findType(fileName, record.type)) {
        return {image_error::kUnsupportedType + fileName};
    }
    Reading work{{}, record};
    if (!work.file.open(fileName, record.fileSize)) {
        return cantOpen(record);
    }
    ImageResult result = work.readHeader();
    if (!result.ok() || reading == ImageReading::kHeader) {
        return result;
    }
    if (record.hasExtension) {
        return work.readBlock(reading == ImageReading::kTexture ? ExtensionReading::kFull : ExtensionReading::kPartial);
    }
    return reading == ImageReading::kTexture ? work.readPixels() : result;
}

} // namespace tvk
