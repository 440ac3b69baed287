#include "sampleTextures/paintCharacter.h"

#include <array>
#include <cstdlib>

namespace tvk::samples {

namespace {

// Up and down eight rows, once across the picture.
int ripple(int column) {
    constexpr std::array<int, 8> kRise{0, 1, 3, 4, 4, 3, 1, 0};
    return kRise[static_cast<std::size_t>(column / 4 % 8)];
}

} // namespace

Picture paintEyes(int frame) {
    Picture picture(32, 16);
    const Pixel skin = pixel5(29, 22, 17);
    const Pixel lid = pixel5(20, 13, 10);
    const int opening = 6 - 3 * (frame - 1); // rows above and below the middle
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            const int across = std::abs(column % 16 - 7);
            const int down = std::abs(row - 8);
            const bool isEye = across * across * 2 + down * down * 3 < 90;
            const bool isPupil = across < 2 && down < 3;
            Pixel& pixel = picture.at(column, row);
            pixel = skin;
            if (isEye) {
                pixel = down > opening || opening == 0 ? lid : isPupil ? pixel5(2, 3, 6) : pixel5(31, 31, 31);
            }
        }
    }
    return picture;
}

Picture paintPond() {
    Picture picture(32, 32);
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            const int height = (row + ripple(column)) % 16; // crests 16 rows apart
            picture.at(column, row) = pixel5(4 + height / 2, 10 + height, 18 + height * 3 / 4);
        }
    }
    return picture;
}

} // namespace tvk::samples
