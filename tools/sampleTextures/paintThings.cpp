#include "sampleTextures/paintThings.h"

#include <algorithm>
#include <cstdlib>

namespace tvk::samples {

namespace {

constexpr int kNotThere = 0; // alpha

// How far inside a circle: 0 at its line and outside, `depth` at its middle.
int insideCircle(int across, int down, int radius, int depth) {
    const int distance = rootOf(across * across + down * down);
    return distance >= radius ? 0 : depth - distance * depth / radius;
}

// Runs `paint(column, row)` for every pixel.
template <typename Paint>
Picture painted(int width, int height, Paint paint) {
    Picture picture(width, height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            picture.at(column, row) = paint(column, row);
        }
    }
    return picture;
}

// A flame is a drop: narrow at the top, round at the bottom. 0 to 7 from outside to the core.
int flameHeat(int column, int row, int frame) {
    const int sway = (frame - 2) * (31 - row) / 10; // the tip leans, the foot stands
    const int across = std::abs(2 * (column - sway) - 15);
    const int halfWidth = row < 22 ? row - 2 : 2 * (31 - row) + 2;
    return across >= halfWidth ? 0 : std::min(7, 1 + (halfWidth - across) / 3);
}

} // namespace

Picture paintLeaf() {
    return painted(32, 32, [](int column, int row) {
        // Where two circles overlap; the middle rib is the line from one tip to the other.
        const int first = (column - 2) * (column - 2) + (row - 2) * (row - 2);
        const int second = (column - 29) * (column - 29) + (row - 29) * (row - 29);
        const int rim = 26 * 26;
        if (first > rim || second > rim) {
            return pixel5(0, 0, 0, kNotThere);
        }
        const int fromRib = std::abs(column + row - 31);
        const bool isVein = fromRib == 0 || (column - row + 64) % 8 == 0;
        const int tone = std::min(5, fromRib / 3);
        return isVein ? pixel5(20, 28, 9) : pixel5(5 + tone, 21 - tone, 4 + tone / 2);
    });
}

Picture paintGlow() {
    return painted(32, 32, [](int column, int row) {
        const int strength = insideCircle(2 * column - 31, 2 * row - 31, 31, 255);
        const int tone = strength / 32; // 0 to 7
        return pixel5(24 + tone, 12 + tone * 5 / 2, 2 + tone * 3, strength);
    });
}

Picture paintSmoke() {
    return painted(32, 32, [](int column, int row) {
        const int low = insideCircle(column - 12, row - 21, 11, 180);
        const int right = insideCircle(column - 21, row - 17, 10, 170);
        const int high = insideCircle(column - 15, row - 9, 8, 140);
        const int thickness = std::min(240, low + right + high + (low + right + high > 0 ? 16 : 0));
        const int tone = thickness / 16; // 0 to 15
        return pixel5(10 + tone, 10 + tone, 13 + tone, thickness);
    });
}

Picture paintWindow() {
    return painted(32, 32, [](int column, int row) {
        // A round arch above row 14.
        const int across = 2 * column - 31, down = 2 * (row - 15);
        if (row < 15 && across * across + down * down > 31 * 31) {
            return pixel5(0, 0, 0, kNotThere);
        }
        const bool isRim =
            column < 2 || column > 29 || row > 29 || (row < 15 && across * across + down * down > 27 * 27);
        if (isRim || column == 15 || column == 16 || row == 15) {
            return pixel5(6, 6, 7);
        }
        // Panes end where blocks of 4 by 4 texels do: such a block has two colours and what lies between them.
        const int pane = (column / 4 + row / 4 * 2) % 3;
        const int light = (column % 4 + row % 4) / 2;
        const Pixel panes[] = {pixel5(24 + light, 8 + light, 6), pixel5(6, 12 + light, 24 + light),
                               pixel5(26 + light, 22 + light, 6)};
        return panes[pane];
    });
}

Picture paintTorch(int frame) {
    return painted(16, 32, [frame](int column, int row) {
        if (row >= 26 && column >= 6 && column <= 9) {
            return pixel5(12, 7 + row % 2, 3); // the wood
        }
        const int heat = flameHeat(column, row, frame);
        const bool isSpark = heat == 0 && row > 2 && row < 20 && noiseAt(column, row, 20 + frame) > 251;
        if (heat == 0 && !isSpark) {
            return pixel5(0, 0, 0, kNotThere);
        }
        return isSpark ? pixel5(31, 24, 6) : pixel5(24 + heat, 4 + heat * 3, heat * 2);
    });
}

namespace {

uint16_t colorWord(int red, int green, int blue) {
    return static_cast<uint16_t>(red | green << 5 | blue << 10);
}

} // namespace

IndexedPicture paintLamp(bool isOn) {
    IndexedPicture lamp{16, 16, {}, {}, false};
    // Four colours of the housing, six of the glass that is dark, six of the one that is lit.
    for (int tone = 0; tone < 4; ++tone) {
        lamp.palette.push_back(colorWord(4 + tone * 5, 4 + tone * 5, 6 + tone * 5));
    }
    for (int tone = 0; tone < 6; ++tone) {
        lamp.palette.push_back(colorWord(8 + tone * 2, 2 + tone, 2 + tone));
    }
    for (int tone = 0; tone < 6; ++tone) {
        lamp.palette.push_back(colorWord(26 + tone, 6 + tone * 5, 4 + tone * 3));
    }
    for (int row = 0; row < lamp.height; ++row) {
        for (int column = 0; column < lamp.width; ++column) {
            const int depth = insideCircle(2 * column - 15, 2 * row - 15, 13, 12);
            const int housing = std::min({column, row, 15 - column, 15 - row, 3});
            const int glass = (isOn ? 10 : 4) + std::min(5, depth / 2);
            lamp.indices.push_back(static_cast<uint8_t>(depth > 0 ? glass : housing));
        }
    }
    return lamp;
}

IndexedPicture paintSign() {
    // An arrow to the right; entry 0 is never seen.
    IndexedPicture sign{32, 16, {}, {0, colorWord(31, 26, 2), colorWord(4, 4, 4), colorWord(31, 31, 24)}, true};
    for (int row = 0; row < sign.height; ++row) {
        for (int column = 0; column < sign.width; ++column) {
            const int fromMiddle = std::abs(2 * row - 15);
            const int reach = 2 * (31 - column) - fromMiddle; // of the point
            const bool isRim = row == 0 || row == 15 || column == 0 || reach < 3;
            const bool isArrow = (fromMiddle < 4 && column > 4 && column < 20) ||
                                 (column >= 16 && column < 26 && fromMiddle < 2 * (25 - column) && fromMiddle < 12);
            const int inside = isArrow ? 2 : (row == 1 ? 3 : 1);
            sign.indices.push_back(static_cast<uint8_t>(reach < 0 ? 0 : (isRim ? 2 : inside)));
        }
    }
    return sign;
}

Picture pictureOf(const IndexedPicture& indexed) {
    Picture picture(indexed.width, indexed.height);
    for (std::size_t at = 0; at < picture.pixels.size(); ++at) {
        const uint16_t word = indexed.palette[indexed.indices[at]];
        const bool isThere = indexed.indices[at] != 0 || !indexed.color0Transparent;
        picture.pixels[at] = pixel5(word & 31, word >> 5 & 31, word >> 10 & 31, isThere ? 255 : kNotThere);
    }
    return picture;
}

} // namespace tvk::samples
