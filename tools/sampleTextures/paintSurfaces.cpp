#include "sampleTextures/paintSurfaces.h"

namespace tvk::samples {

Picture paintChecker() {
    Picture picture(16, 16);
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            const bool isDark = (column / 8 + row / 8) % 2 == 1;
            const bool isEdge = column % 8 == 0 || row % 8 == 0;
            const int light = isDark ? (isEdge ? 11 : 8) : (isEdge ? 30 : 26);
            picture.at(column, row) = pixel5(light, light - 2, isDark ? light + 4 : light - 6);
        }
    }
    return picture;
}

namespace {

// Rows of bricks lie half a brick apart, with two texels of mortar between them.
Pixel brickAt(int column, int row) {
    const int course = row / 8;
    const int along = (column + (course % 2) * 8) % 32;
    if (row % 8 < 2 || along % 16 < 2) {
        return pixel5(19 + noiseAt(column, row, 1) / 64, 18 + noiseAt(column, row, 1) / 64, 17);
    }
    const int tone = noiseAt(along / 16, course, 2) / 48; // 0 to 5, of the whole brick
    const int grain = noiseAt(column, row, 3) / 86;       // 0 to 2
    const int lit = row % 8 == 2 ? 2 : 0;                 // the upper edge catches light
    return pixel5(16 + tone + grain + lit, 7 + tone / 2 + grain, 5 + grain + lit);
}

// 32 at the middle of the sun, 0 at 12 texels from it.
int sunlightAt(int column, int row) {
    const int across = 8 * (column - 22), down = 8 * (row - 20);
    const int distance = rootOf(across * across + down * down);
    return distance >= 96 ? 0 : 32 - distance / 3;
}

Pixel flowerOr(int column, int row, const Pixel& grass) {
    // One flower somewhere in every field of 8 by 8: four petals around a yellow middle.
    const int fieldColumn = column / 8, fieldRow = row / 8;
    const int middleColumn = 2 + noiseAt(fieldColumn, fieldRow, 5) / 64;
    const int middleRow = 2 + noiseAt(fieldColumn, fieldRow, 6) / 64;
    const int across = column % 8 - middleColumn, down = row % 8 - middleRow;
    const int steps = across * across + down * down;
    if (noiseAt(fieldColumn, fieldRow, 7) < 110 || steps > 1) {
        return grass;
    }
    const int kind = noiseAt(fieldColumn, fieldRow, 8) % 3;
    const Pixel petals[] = {pixel5(31, 30, 31), pixel5(29, 8, 10), pixel5(18, 14, 30)};
    return steps == 0 ? pixel5(31, 27, 4) : petals[kind];
}

} // namespace

Picture paintBricks() {
    Picture picture(32, 32);
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            picture.at(column, row) = brickAt(column, row);
        }
    }
    return picture;
}

Picture paintSky() {
    Picture picture(32, 32);
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            const int sun = sunlightAt(column, row);
            const int red = 4 + row * 22 / 31 + column * 6 / 31 + sun / 3;
            const int green = 9 + row * 14 / 31 + sun / 2;
            const int blue = 28 - row * 12 / 31 + sun / 6 - column * 4 / 31;
            picture.at(column, row) = pixel5(red, green, blue);
        }
    }
    return picture;
}

Picture paintMeadow() {
    Picture picture(32, 32);
    for (int row = 0; row < picture.height; ++row) {
        for (int column = 0; column < picture.width; ++column) {
            const int blade = noiseAt(column, row / 3, 4) / 52; // blades of grass stand upright
            const int shade = row * 6 / 31;
            picture.at(column, row) = flowerOr(column, row, pixel5(5 + blade, 14 + blade * 2 + shade, 4 + blade / 2));
        }
    }
    return picture;
}

} // namespace tvk::samples
