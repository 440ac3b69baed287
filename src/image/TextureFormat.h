#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tvk {

/// The texture formats of the console, by the numbers that files and lists use.
enum class TextureFormat : int32_t { kA3i5, kPalette4, kPalette16, kPalette256, kTex4x4, kA5i3, kDirect };

struct TextureFormatRow {
    TextureFormat format;
    std::string_view name;
    int32_t bitsPerTexel; // of the texel data proper; tex4x4 has palette-index words beside it
    int32_t paletteSize;  // the most colours that a texel can choose from; 0: the format has no palette of that kind
};

inline constexpr std::array<TextureFormatRow, 7> kTextureFormats{{
    {TextureFormat::kA3i5, "a3i5", 8, 32},
    {TextureFormat::kPalette4, "palette4", 2, 4},
    {TextureFormat::kPalette16, "palette16", 4, 16},
    {TextureFormat::kPalette256, "palette256", 8, 256},
    {TextureFormat::kTex4x4, "tex4x4", 2, 0},
    {TextureFormat::kA5i3, "a5i3", 8, 8},
    {TextureFormat::kDirect, "direct", 16, 0},
}};
static_assert(kTextureFormats.size() == static_cast<std::size_t>(TextureFormat::kDirect) + 1);

/// The row of a format. The format must be one of the enumerators.
constexpr const TextureFormatRow& textureFormatRow(TextureFormat format) {
    return kTextureFormats[static_cast<std::size_t>(format)];
}

/// The name of a format code; "err" for a number that is no format.
constexpr std::string_view textureFormatName(int32_t code) {
    return code >= 0 && static_cast<std::size_t>(code) < kTextureFormats.size()
               ? kTextureFormats[static_cast<std::size_t>(code)].name
               : std::string_view("err");
}

} // namespace tvk
