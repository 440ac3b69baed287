#include "sampleTextures/textureBlock.h"

#include <cstddef>
#include <string_view>

namespace tvk::samples {

namespace {

// Tag, size of the whole chunk in little-endian bytes, contents.
void addChunk(FileBytes& block, std::string_view tag, const FileBytes& contents) {
    block.insert(block.end(), tag.begin(), tag.end());
    const std::size_t size = tag.size() + 4 + contents.size();
    for (std::size_t byte = 0; byte < 4; ++byte) {
        block.push_back(static_cast<uint8_t>(size >> 8 * byte & 0xFF));
    }
    block.insert(block.end(), contents.begin(), contents.end());
}

void addText(FileBytes& block, std::string_view tag, std::string_view text) {
    addChunk(block, tag, FileBytes(text.begin(), text.end()));
}

// The first texel of a byte is in its lowest bits.
FileBytes packed(const std::vector<uint8_t>& indices, std::size_t bits) {
    const std::size_t perByte = 8 / bits;
    FileBytes bytes(indices.size() / perByte);
    for (std::size_t at = 0; at < indices.size(); ++at) {
        const std::size_t shifted = static_cast<std::size_t>(indices[at]) << at % perByte * bits;
        bytes[at / perByte] = static_cast<uint8_t>(bytes[at / perByte] | shifted);
    }
    return bytes;
}

} // namespace

FileBytes textureBlock(const IndexedPicture& picture, const std::string& paletteName) {
    const bool isSmall = picture.palette.size() <= 4;
    FileBytes colors;
    for (const uint16_t color : picture.palette) {
        colors.push_back(static_cast<uint8_t>(color & 0xFF));
        colors.push_back(static_cast<uint8_t>(color >> 8));
    }
    FileBytes block;
    addText(block, "tvk_frmt", isSmall ? "palette4" : "palette16");
    if (picture.color0Transparent) {
        addChunk(block, "tvk_c0xp", {});
    }
    addChunk(block, "tvk_txel", packed(picture.indices, isSmall ? 2 : 4));
    addText(block, "tvk_pnam", paletteName);
    addChunk(block, "tvk_pcol", colors);
    addChunk(block, "tvk_endb", {});
    return block;
}

} // namespace tvk::samples
