#pragma once

#include "decode/IntermediateFile.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace decode {

/// A texel as the console shows it: every component 0 to 31.
struct ShownTexel {
    int r = 0, g = 0, b = 0, a = 31;
};

bool operator==(const ShownTexel& x, const ShownTexel& y);
std::ostream& operator<<(std::ostream& out, const ShownTexel& texel);

/// One texture image of a model file, unpacked.
struct ModelTexture {
    int index = -1;
    std::string name, format, path;
    int width = 0, height = 0, originalWidth = 0, originalHeight = 0;
    std::optional<std::string> color0Mode, paletteName; // nothing when the file has no such line
    std::vector<ShownTexel> texels;                     // rows from top to bottom, width * height
    std::vector<int> blockModes;                        // of tex4x4: 0 to 3, a block each
    std::vector<std::size_t> blockPlaces;               // of tex4x4: of a block's first colour in the palette

    const ShownTexel& at(int column, int row) const {
        return texels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(column)];
    }
};

struct ModelPalette {
    int index = -1;
    std::string name;
    std::vector<std::uint16_t> colors;
};

/// The textures and palettes of a model file, by a reader that knows nothing but the file.
struct ModelTextures {
    std::vector<ModelTexture> images;
    std::vector<ModelPalette> palettes;

    /// The one of that name; throws a FileError when there is none.
    const ModelTexture& image(std::string_view name) const;
    const ModelPalette& palette(std::string_view name) const;
};

/// Reads them. Throws a FileError for everything that a reader could stumble over: sides that are no multiples of 4
/// from 8 to 1024, sizes that are not the number of what follows, indices that are not positions, names out of order, a
/// palette name without palette, texels that point behind their palette, lines that only other formats have, materials
/// whose texture or palette index leads nowhere or to a palette that is not the image's.
///   root   of the file
ModelTextures readModelTextures(const FileElement& root);

} // namespace decode
