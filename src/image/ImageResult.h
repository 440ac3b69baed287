#pragma once

#include <string>

namespace tvk {

/// How reading an image went: empty, or a message text without prefix that names the file (or what is wrong in it).
struct [[nodiscard]] ImageResult {
    std::string error;
    bool ok() const { return error.empty(); }
};

namespace image_error {

inline constexpr const char* kUnsupportedType = "Image type is not supported: ";
inline constexpr const char* kCantOpen = "Can't open file: ";
inline constexpr const char* kTgaImageType = "Invalid TGA file (invalid image type): ";
inline constexpr const char* kTgaBitsPerPixel = "Invalid TGA file (invalid bit per pixel): ";
inline constexpr const char* kTgaSize = "Invalid TGA file (invalid size): ";
inline constexpr const char* kTgaEnd = "Invalid TGA file (unexpected end of file): ";
inline constexpr const char* kPic = "Invalid PIC file: ";
inline constexpr const char* kExtension = "Invalid additional information: ";
inline constexpr const char* kTextureFormat = "Invalid texture format: ";
inline constexpr const char* kNoTexels = "No texel data: ";
inline constexpr const char* kNoPaletteIndices = "No palette index data: ";
inline constexpr const char* kNoPalette = "No palette data: ";

} // namespace image_error
} // namespace tvk
