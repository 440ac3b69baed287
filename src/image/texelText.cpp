#include "image/texelText.h"

#include "common/numberText.h"

#include <cstddef>
#include <ostream>

namespace tvk {
namespace {

constexpr size_t kWordsPerLine = 8;
constexpr size_t kBlocksPerLine = 4;
constexpr int kDataTabs = 3;

// `count` words of `digits` digits, so many to a line behind so many tabs.
template <typename WordAt>
void writeLines(std::ostream& out, size_t count, size_t perLine, int digits, int tabs, WordAt wordAt) {
    const std::string indent(static_cast<size_t>(tabs), '\t');
    for (size_t i = 0; i < count; ++i) {
        const bool endsLine = i % perLine == perLine - 1 || i + 1 == count;
        out << (i % perLine == 0 ? indent.c_str() : "") << hexText(wordAt(i), digits) << (endsLine ? '\n' : ' ');
    }
}

uint32_t little(const std::vector<uint8_t>& bytes, size_t at, size_t count) {
    uint32_t word = 0;
    for (size_t i = 0; i < count; ++i) {
        word |= static_cast<uint32_t>(bytes[at + i]) << (8 * i);
    }
    return word;
}

void openElement(std::ostream& out, const char* name, size_t size) {
    out << "\t\t<" << name << " size=\"" << integerText(static_cast<int64_t>(size)) << "\">\n";
}

void closeElement(std::ostream& out, const char* name) {
    out << "\t\t</" << name << ">\n";
}

void writeWords(std::ostream& out, const TextureData& data) {
    const size_t count = data.texels.size() / 2;
    openElement(out, "bitmap", count);
    writeLines(out, count, kWordsPerLine, 4, kDataTabs, [&](size_t i) { return little(data.texels, 2 * i, 2); });
    closeElement(out, "bitmap");
}

void writeBlocks(std::ostream& out, const TextureData& data, size_t count) {
    openElement(out, "bitmap", count);
    writeLines(out, count, kBlocksPerLine, 8, kDataTabs, [&](size_t i) { return little(data.texels, 4 * i, 4); });
    closeElement(out, "bitmap");
    openElement(out, "tex4x4_palette_idx", count);
    writeLines(out, count, kWordsPerLine, 4, kDataTabs,
               [&](size_t i) { return static_cast<uint32_t>(data.paletteIndices[i]); });
    closeElement(out, "tex4x4_palette_idx");
}

} // namespace

void writeHexWords(std::ostream& out, const std::vector<uint16_t>& words, int tabs) {
    writeLines(out, words.size(), kWordsPerLine, 4, tabs, [&](size_t i) { return static_cast<uint32_t>(words[i]); });
}

ImageResult writeTexels(std::ostream& out, const TextureData& data, int32_t width, int32_t height,
                        const std::string& name) {
    const bool inBlocks = data.format == TextureFormat::kTex4x4;
    const size_t blocks = static_cast<size_t>(width / 4) * static_cast<size_t>(height / 4);
    if (data.texels.empty() || (inBlocks && data.texels.size() < 4 * blocks)) {
        return {image_error::kNoTexels + name};
    }
    if (inBlocks && data.paletteIndices.size() < blocks) {
        return {image_error::kNoPaletteIndices + name};
    }
    if (inBlocks) {
        writeBlocks(out, data, blocks);
    } else {
        writeWords(out, data);
    }
    return {};
}

} // namespace tvk
