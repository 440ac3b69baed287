#pragma once

#include <cstdint>
#include <vector>

namespace tvk::samples {

/// A pixel. Colours are given in the console's five bits a channel, so that a picture has as many colours as it says.
struct Pixel {
    uint8_t red = 0, green = 0, blue = 0; // 8 bits, the five of the console repeated below them
    uint8_t alpha = 255;
};

/// The pixel of a colour in five bits; values beyond 0 to 31 become the nearer of them.
Pixel pixel5(int red, int green, int blue, int alpha = 255);

/// Rows from top to bottom, columns from left to right.
struct Picture {
    Picture(int columns, int rows);
    Pixel& at(int column, int row);
    const Pixel& at(int column, int row) const;

    int width, height;
    std::vector<Pixel> pixels;
};

/// Largest whole number whose square is at most `square`, which must not be negative. Painting uses whole numbers only,
/// so that every compiler and machine paints the same.
int rootOf(int square);

/// A number that looks random, 0 to 255, always the same for the same place and seed.
int noiseAt(int column, int row, int seed);

} // namespace tvk::samples
