#include "sampleTextures/Picture.h"

#include <algorithm>

namespace tvk::samples {

Pixel pixel5(int red, int green, int blue, int alpha) {
    const auto channel = [](int value) {
        const int five = std::clamp(value, 0, 31);
        return static_cast<uint8_t>(five << 3 | five >> 2);
    };
    return {channel(red), channel(green), channel(blue), static_cast<uint8_t>(std::clamp(alpha, 0, 255))};
}

Picture::Picture(int columns, int rows)
    : width(columns), height(rows), pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

Pixel& Picture::at(int column, int row) {
    return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column)];
}

const Pixel& Picture::at(int column, int row) const {
    return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column)];
}

int rootOf(int square) {
    int root = 0;
    while ((root + 1) * (root + 1) <= square) {
        ++root;
    }
    return root;
}

int noiseAt(int column, int row, int seed) {
    // Unsigned on purpose: it may wrap around.
    uint32_t state = static_cast<uint32_t>(column) * 374761393U + static_cast<uint32_t>(row) * 668265263U +
                     static_cast<uint32_t>(seed) * 2246822519U;
    state = (state ^ state >> 13U) * 1274126177U;
    return static_cast<int>((state ^ state >> 16U) & 0xFFU);
}

} // namespace tvk::samples
