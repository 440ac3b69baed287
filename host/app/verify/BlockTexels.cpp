#include "host/app/verify/BlockTexels.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace host::app::verify {
namespace {

using decode::ShownTexel;

constexpr std::uint8_t kOpaque = 128;
// What sharing a palette entry with a block of nearly the same colours may cost each of its texels.
constexpr int kSharing = 2;

ShownTexel fiveBits(const Pixel& pixel) {
    return {pixel.r >> 3, pixel.g >> 3, pixel.b >> 3, pixel.a >= kOpaque ? 31 : 0};
}

ShownTexel colorOf(unsigned int word) {
    return {static_cast<int>(word & 31U), static_cast<int>(word >> 5U & 31U), static_cast<int>(word >> 10U & 31U), 31};
}

ShownTexel mixed(const ShownTexel& x, int ofX, const ShownTexel& y, int ofY) {
    const int all = ofX + ofY;
    return {(x.r * ofX + y.r * ofY) / all, (x.g * ofX + y.g * ofY) / all, (x.b * ofX + y.b * ofY) / all, 31};
}

// The opaque colours that a block can show.
std::vector<ShownTexel> colorsOf(const decode::ModelPalette& palette, int mode, std::size_t place) {
    const std::size_t stored = mode == 0 ? 3 : mode == 2 ? 4 : 2;
    std::vector<ShownTexel> colors;
    for (std::size_t i = place; i < place + stored && i < palette.colors.size(); ++i) {
        colors.push_back(colorOf(palette.colors[i]));
    }
    if (colors.size() == 2 && mode == 1) {
        colors.push_back(mixed(colors[0], 1, colors[1], 1));
    } else if (colors.size() == 2 && mode == 3) {
        colors.push_back(mixed(colors[0], 5, colors[1], 3));
        colors.push_back(mixed(colors[0], 3, colors[1], 5));
    }
    return colors;
}

int leastDistance(const std::vector<ShownTexel>& colors, const ShownTexel& wanted) {
    int least = std::numeric_limits<int>::max();
    for (const ShownTexel& color : colors) {
        least = std::min(least, colorDistance(color, wanted));
    }
    return least;
}

// Steps between the corners of the box around the opaque colours.
std::vector<ShownTexel> plainColors(const std::array<ShownTexel, 16>& wanted) {
    ShownTexel low{31, 31, 31, 31};
    ShownTexel high{0, 0, 0, 31};
    bool hasHoles = false;
    for (const ShownTexel& texel : wanted) {
        hasHoles = hasHoles || texel.a == 0;
        if (texel.a != 0) {
            low = {std::min(low.r, texel.r), std::min(low.g, texel.g), std::min(low.b, texel.b), 31};
            high = {std::max(high.r, texel.r), std::max(high.g, texel.g), std::max(high.b, texel.b), 31};
        }
    }
    if (hasHoles) {
        return {low, high, mixed(low, 1, high, 1)};
    }
    return {low, high, mixed(low, 5, high, 3), mixed(low, 3, high, 5)};
}

} // namespace

int colorDistance(const ShownTexel& a, const ShownTexel& b) {
    return (a.r - b.r) * (a.r - b.r) + (a.g - b.g) * (a.g - b.g) + (a.b - b.b) * (a.b - b.b);
}

std::string blockProblem(const decode::ModelTexture& texture, const decode::ModelPalette& palette,
                         const PictureFile& picture, std::size_t block, bool isFull) {
    const auto blocksPerRow = static_cast<std::size_t>(texture.width / 4);
    const int left = static_cast<int>(block % blocksPerRow) * 4;
    const int top = static_cast<int>(block / blocksPerRow) * 4;
    const std::vector<ShownTexel> colors = colorsOf(palette, texture.blockModes[block], texture.blockPlaces[block]);
    std::array<ShownTexel, 16> wanted{};
    int error = 0;
    for (int i = 0; i < 16; ++i) {
        wanted.at(static_cast<std::size_t>(i)) = fiveBits(picture.at(left + i % 4, top + i / 4));
        const ShownTexel& texel = wanted.at(static_cast<std::size_t>(i));
        const ShownTexel& shown = texture.at(left + i % 4, top + i / 4);
        if (shown.a != texel.a) {
            return texel.a == 0 ? "fills a hole" : "has a hole";
        }
        if (texel.a != 0) {
            error += colorDistance(shown, texel);
            if (colorDistance(shown, texel) > leastDistance(colors, texel)) {
                return "has not the nearest colour of its block";
            }
        }
    }
    const std::vector<ShownTexel> plain = plainColors(wanted);
    int allowed = 16 * kSharing;
    for (const ShownTexel& texel : wanted) {
        allowed += texel.a == 0 ? 0 : leastDistance(plain, texel);
    }
    return isFull || error <= allowed ? "" : "is worse than a plain mix of its colours";
}

} // namespace host::app::verify
