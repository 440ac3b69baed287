#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace host::app::verify {

struct Pixel {
    std::uint8_t r = 0, g = 0, b = 0, a = 255;
};

/// What an image file holds of its own in a console's format, as words of 16 bits.
struct OwnTexels {
    std::string format;
    bool hasClearColor = false; // colour 0 of its palette stands for holes
    std::vector<std::uint16_t> texels, paletteEntries, colors;
    std::string paletteName;
};

/// A Truevision or Softimage image: rows from top to bottom.
struct PictureFile {
    int width = 0, height = 0;
    std::vector<Pixel> pixels;
    std::optional<OwnTexels> own;

    /// Beyond the right and lower edge those repeat.
    const Pixel& at(int column, int row) const;
};

/// Why a picture cannot be read: one line without the file's name.
class PictureError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads a picture; its kind is told by its first bytes. Sides of at most 1024 pixels. Throws a PictureError.
PictureFile readPicture(std::string_view bytes);

} // namespace host::app::verify
