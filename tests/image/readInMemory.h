#pragma once

#include "image/picImage.h"
#include "image/tgaImage.h"

#include <cstdint>
#include <vector>

namespace tvk {

struct ReadImage {
    ImageResult result;
    ImageRecord record;
};

inline Bytes viewOf(const std::vector<std::uint8_t>& bytes) {
    return {bytes.data(), bytes.size()};
}

// A whole file through a reader, header and pixels, under a name that only stands in messages.
inline ReadImage readTga(const std::vector<std::uint8_t>& file) {
    ReadImage read;
    read.record.fileName = "a.tga";
    read.record.fileSize = file.size();
    TgaHeader header;
    read.result = readTgaHeader(viewOf(file).first(kTgaHeadBytes), header, read.record);
    if (read.result.ok()) {
        read.result = readTgaPixels(viewOf(file), header, read.record);
    }
    return read;
}

inline ReadImage readPic(const std::vector<std::uint8_t>& file) {
    ReadImage read;
    read.record.fileName = "a.pic";
    read.record.type = ImageType::kPic;
    read.record.fileSize = file.size();
    PicHeader header;
    read.result = readPicHeader(viewOf(file).first(kPicHeaderBytes), header, read.record);
    if (read.result.ok()) {
        read.result = readPicPixels(viewOf(file), header, read.record);
    }
    return read;
}

} // namespace tvk
