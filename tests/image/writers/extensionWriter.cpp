#include "extensionWriter.h"

#include "ByteList.h"
#include "Picture.h"
#include "picWriter.h"
#include "tgaWriter.h"

namespace tvk {
namespace {

std::string textOf(const ByteList& list) {
    return {list.bytes.begin(), list.bytes.end()};
}

} // namespace

std::vector<std::uint8_t> chunkOfSize(std::string_view tag, std::uint32_t size,
                                      const std::vector<std::uint8_t>& payload) {
    return ByteList().text(tag).little32(size).all(payload).bytes;
}

std::vector<std::uint8_t> chunk(std::string_view tag, const std::vector<std::uint8_t>& payload) {
    return chunkOfSize(tag, static_cast<std::uint32_t>(12 + payload.size()), payload);
}

std::vector<std::uint8_t> chunk(std::string_view tag, std::string_view payload) {
    return chunk(tag, ByteList().text(payload).bytes);
}

std::vector<std::uint8_t> joined(const std::vector<std::vector<std::uint8_t>>& chunks) {
    ByteList all;
    for (const std::vector<std::uint8_t>& one : chunks) {
        all.all(one);
    }
    return all.bytes;
}

std::vector<std::uint8_t> wordBytes(const std::vector<std::uint16_t>& words) {
    ByteList all;
    for (const std::uint16_t word : words) {
        all.little16(word);
    }
    return all.bytes;
}

std::string tgaMark(std::uint32_t offset) {
    return textOf(ByteList().text("TVK_Tga Ver 1.0").byte(0).little32(offset));
}

std::string picMark(std::uint32_t offset) {
    return textOf(ByteList().text("TVK_Pic Ver 1.0").byte(0).little32(offset));
}

std::vector<std::uint8_t> tgaWithBlock(std::uint16_t width, std::uint16_t height,
                                       const std::vector<std::uint8_t>& block) {
    TgaOptions options;
    options.type = 3;
    options.bits = 8;
    const std::uint32_t pixelEnd = 18 + 20 + std::uint32_t{width} * height;
    options.id = tgaMark(pixelEnd);
    return ByteList().all(writeTga(Picture(width, height), options)).all(block).bytes;
}

std::vector<std::uint8_t> picWithBlock(std::uint16_t width, std::uint16_t height,
                                       const std::vector<std::uint8_t>& block) {
    PicOptions options;
    const auto pixelEnd = static_cast<std::uint32_t>(writePic(Picture(width, height), options).size());
    options.comment = picMark(pixelEnd);
    return ByteList().all(writePic(Picture(width, height), options)).all(block).bytes;
}

} // namespace tvk
