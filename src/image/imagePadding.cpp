#include "image/imagePadding.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace tvk {

uint32_t textureSide(uint16_t texels) {
    constexpr uint32_t kSmallestSide = 8;
    uint32_t side = kSmallestSide;
    while (side < texels) {
        side *= 2;
    }
    return side;
}

void padToTextureSize(ImageRecord& image) {
    const size_t width = textureSide(image.width);
    const size_t height = textureSide(image.height);
    if ((width == image.width && height == image.height) || image.pixels.empty()) {
        return;
    }
    std::vector<uint8_t> padded(width * height * 4);
    for (size_t row = 0; row < height; ++row) {
        const size_t sourceRow = std::min<size_t>(row, image.height - 1U);
        for (size_t column = 0; column < width; ++column) {
            const size_t sourceColumn = std::min<size_t>(column, image.width - 1U);
            std::memcpy(&padded[(row * width + column) * 4],
                        &image.pixels[(sourceRow * image.width + sourceColumn) * 4], 4);
        }
    }
    image.pixels = std::move(padded);
    image.width = static_cast<uint16_t>(width);
    image.height = static_cast<uint16_t>(height);
}

} // namespace tvk
