#include "tex4x4Images.h"

#include "image/imageFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>

namespace tvk {
namespace {

constexpr std::size_t kPixelBytes = 4;

ImageRecord blankImage(std::size_t width, std::size_t height) {
    ImageRecord image;
    image.width = static_cast<std::uint16_t>(width);
    image.height = static_cast<std::uint16_t>(height);
    image.hasAlpha = true;
    image.pixels.resize(width * height * kPixelBytes);
    return image;
}

// Copies a square of pixels.
void copySquare(const ImageRecord& from, std::size_t fromX, std::size_t fromY, std::size_t side, ImageRecord& to,
                std::size_t toX, std::size_t toY) {
    for (std::size_t row = 0; row < side; ++row) {
        const auto source = from.pixels.begin() + static_cast<long>(((fromY + row) * from.width + fromX) * kPixelBytes);
        const auto target = to.pixels.begin() + static_cast<long>(((toY + row) * to.width + toX) * kPixelBytes);
        std::copy(source, source + static_cast<long>(side * kPixelBytes), target);
    }
}

} // namespace

ImageRecord loadBenchImage(const std::string& name) {
    ImageRecord image;
    const ImageResult result =
        openImage(std::string(TVK_BENCH_DATA) + "/images/" + name + ".tga", ImageReading::kTexture, image);
    if (!result.ok()) {
        std::cerr << "bench: " << result.error << '\n';
        std::exit(1);
    }
    return image;
}

ImageRecord withChannels(const ImageRecord& image, int order) {
    constexpr std::array<std::array<std::size_t, 3>, 6> kOrders{
        {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}, {1, 0, 2}, {0, 2, 1}}};
    const auto& sources = kOrders[static_cast<std::size_t>(order)];
    ImageRecord result = image;
    for (std::size_t i = 0; i < image.pixels.size(); i += kPixelBytes) {
        for (std::size_t c = 0; c < 3; ++c) {
            result.pixels[i + c] = image.pixels[i + sources[c]];
        }
    }
    return result;
}

ImageRecord mosaic(const std::vector<ImageRecord>& tiles, std::size_t perRow) {
    const std::size_t side = tiles.front().width;
    ImageRecord image = blankImage(side * perRow, side * (tiles.size() / perRow));
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        copySquare(tiles[i], 0, 0, side, image, i % perRow * side, i / perRow * side);
    }
    return image;
}

std::vector<ImageRecord> cutIntoSquares(const ImageRecord& image, std::uint16_t side) {
    std::vector<ImageRecord> squares;
    for (std::size_t y = 0; y < image.height; y += side) {
        for (std::size_t x = 0; x < image.width; x += side) {
            squares.push_back(blankImage(side, side));
            copySquare(image, x, y, side, squares.back(), 0, 0);
        }
    }
    return squares;
}

} // namespace tvk
