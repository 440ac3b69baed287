#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

// What a test wants an image file to show. Rows from top to bottom, columns from left to right.
struct Rgba {
    std::uint8_t r = 0, g = 0, b = 0, a = 255;
};

inline bool operator==(const Rgba& x, const Rgba& y) {
    return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
}

struct Picture {
    Picture(std::size_t columns, std::size_t rows, Rgba color = {})
        : width(columns), height(rows), pixels(columns * rows, color) {}

    Rgba& at(std::size_t column, std::size_t row) { return pixels[row * width + column]; }
    const Rgba& at(std::size_t column, std::size_t row) const { return pixels[row * width + column]; }

    // R, G, B, A of every pixel, as an image record holds them.
    std::vector<std::uint8_t> bytes() const {
        std::vector<std::uint8_t> result;
        for (const Rgba& pixel : pixels) {
            result.insert(result.end(), {pixel.r, pixel.g, pixel.b, pixel.a});
        }
        return result;
    }

    std::size_t width, height;
    std::vector<Rgba> pixels;
};

// Every pixel has another colour, and columns, rows and channels differ from each other: nothing can be swapped unseen.
inline Picture makeScatteredPicture(std::size_t width, std::size_t height) {
    Picture picture(width, height);
    std::uint32_t state = 12345;
    for (Rgba& pixel : picture.pixels) {
        state = state * 1664525U + 1013904223U;
        pixel = {static_cast<std::uint8_t>(state >> 24U), static_cast<std::uint8_t>(state >> 16U),
                 static_cast<std::uint8_t>(state >> 8U), static_cast<std::uint8_t>(state >> 20U)};
    }
    return picture;
}

// Runs of equal pixels of every length from 1 to 140 and on, which end anywhere in a row, between few colours.
inline Picture makeRunPicture(std::size_t width, std::size_t height) {
    Picture picture(width, height);
    std::size_t run = 1, left = 1;
    for (Rgba& pixel : picture.pixels) {
        pixel = {static_cast<std::uint8_t>(run * 8 % 256), static_cast<std::uint8_t>(run / 4 * 16 % 256),
                 static_cast<std::uint8_t>(255 - run * 8 % 256), static_cast<std::uint8_t>(run * 16 % 256)};
        if (--left == 0) {
            left = ++run;
        }
    }
    return picture;
}

} // namespace tvk
