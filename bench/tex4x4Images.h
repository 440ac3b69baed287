#pragma once

#include "image/ImageRecord.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

// One image of data/images; ends the program with a message when it cannot be read.
ImageRecord loadBenchImage(const std::string& name);

// An image with its channels in another order: 0 to 5. Equal blocks are compressed once, so that larger images must not
// be made of copies.
ImageRecord withChannels(const ImageRecord& image, int order);

// Equal images side by side, in rows of so many.
ImageRecord mosaic(const std::vector<ImageRecord>& tiles, std::size_t perRow);

// The squares of `side` texels that an image consists of.
std::vector<ImageRecord> cutIntoSquares(const ImageRecord& image, std::uint16_t side);

} // namespace tvk
