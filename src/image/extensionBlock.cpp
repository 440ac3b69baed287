#include "image/extensionBlock.h"

#include <algorithm>
#include <array>

namespace tvk {
namespace {

constexpr size_t kChunkHeadBytes = 12;
constexpr size_t kTagBytes = 8;
constexpr std::string_view kEndTag = "tvk_endb";

ImageResult failed(const ImageRecord& record) {
    return {image_error::kExtension + record.fileName};
}

// An odd byte at the end is no entry.
std::vector<uint16_t> words(Bytes payload) {
    std::vector<uint16_t> result(payload.size / 2);
    for (size_t i = 0; i < result.size(); ++i) {
        result[i] = payload.little16(2 * i);
    }
    return result;
}

ImageResult takeFormat(Bytes payload, TextureData& data) {
    const auto* const row = std::find_if(kTextureFormats.begin(), kTextureFormats.end(),
                                         [&](const TextureFormatRow& known) { return known.name == payload.text(); });
    if (row == kTextureFormats.end()) {
        return {image_error::kTextureFormat + std::string(payload.text())};
    }
    data.format = row->format;
    data.hasFormat = true;
    return {};
}

ImageResult takeTransparency(Bytes /*payload*/, TextureData& data) {
    data.color0Transparent = true;
    return {};
}

ImageResult takeTexels(Bytes payload, TextureData& data) {
    data.texels.assign(payload.data, payload.data + payload.size);
    return {};
}

ImageResult takePaletteIndices(Bytes payload, TextureData& data) {
    data.paletteIndices = words(payload);
    return {};
}

ImageResult takePaletteName(Bytes payload, TextureData& data) {
    data.hasPalette = true;
    data.paletteName = payload.text();
    return {};
}

ImageResult takePalette(Bytes payload, TextureData& data) {
    data.hasPalette = true;
    data.palette = words(payload);
    return {};
}

struct ChunkRow {
    std::string_view tag;
    bool inPartialReading;
    ImageResult (*take)(Bytes payload, TextureData& data);
};

constexpr std::array<ChunkRow, 6> kChunks{{
    {"tvk_frmt", true, takeFormat},
    {"tvk_c0xp", true, takeTransparency},
    {"tvk_txel", false, takeTexels},
    {"tvk_pidx", false, takePaletteIndices},
    {"tvk_pnam", true, takePaletteName},
    {"tvk_pcol", false, takePalette},
}};

ImageResult takeChunk(std::string_view tag, Bytes payload, ExtensionReading reading, TextureData& data) {
    for (const ChunkRow& row : kChunks) {
        if (row.tag == tag && (row.inPartialReading || reading == ExtensionReading::kFull)) {
            return row.take(payload, data);
        }
    }
    return {};
}

bool isComplete(const TextureData& data) {
    return data.hasFormat && !data.texels.empty() &&
           (data.format != TextureFormat::kTex4x4 || !data.paletteIndices.empty()) &&
           (!data.hasPalette || !data.palette.empty());
}

} // namespace

ImageResult readExtension(Bytes block, ExtensionReading reading, ImageRecord& record) {
    TextureData& data = record.extension;
    data = TextureData{};
    Bytes rest = block;
    while (rest.size >= kChunkHeadBytes) {
        const std::string_view tag = rest.first(kTagBytes).text();
        const uint32_t size = rest.little32(kTagBytes);
        if (size == 0 || size > block.size || tag == kEndTag) {
            break;
        }
        if (size < kChunkHeadBytes || size > rest.size) {
            return failed(record);
        }
        const ImageResult result = takeChunk(tag, rest.first(size).from(kChunkHeadBytes), reading, data);
        if (!result.ok()) {
            return result;
        }
        rest = rest.from(size);
    }
    return reading == ExtensionReading::kPartial || isComplete(data) ? ImageResult{} : failed(record);
}

} // namespace tvk
