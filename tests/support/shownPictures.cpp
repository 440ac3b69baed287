#include "shownPictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace tvk {
namespace {

constexpr std::uint8_t kOpaque = 128;

// What a texel should show: that of the picture, or of its edge.
const Rgba& sourceOf(const Picture& picture, int column, int row) {
    return picture.at(std::min(static_cast<std::size_t>(column), picture.width - 1),
                      std::min(static_cast<std::size_t>(row), picture.height - 1));
}

decode::ShownTexel inFiveBits(const Rgba& pixel) {
    return {pixel.r >> 3, pixel.g >> 3, pixel.b >> 3, pixel.a >> 3};
}

bool sameColor(const decode::ShownTexel& x, const decode::ShownTexel& y) {
    return x.r == y.r && x.g == y.g && x.b == y.b;
}

bool showsTranslucent(const decode::ShownTexel& shown, const Rgba& pixel, int alphaBits) {
    const decode::ShownTexel expected = inFiveBits(pixel);
    return sameColor(shown, expected) && shown.a >> (5 - alphaBits) == expected.a >> (5 - alphaBits);
}

bool showsHolesOnly(const decode::ShownTexel& shown, const Rgba& pixel) {
    return (shown.a == 31) == (pixel.a >= kOpaque) && (shown.a == 31 || shown.a == 0);
}

bool showsExactly(const decode::ShownTexel& shown, const Rgba& pixel) {
    return showsHolesOnly(shown, pixel) && (shown.a == 0 || sameColor(shown, inFiveBits(pixel)));
}

std::size_t colorsOfBlock(const Picture& picture, int column, int row) {
    std::set<std::tuple<int, int, int>> colors;
    for (int i = 0; i < 16; ++i) {
        const Rgba& pixel = sourceOf(picture, column / 4 * 4 + i % 4, row / 4 * 4 + i / 4);
        if (pixel.a >= kOpaque) {
            const decode::ShownTexel color = inFiveBits(pixel);
            colors.insert({color.r, color.g, color.b});
        }
    }
    return colors.size();
}

bool showsPixel(const decode::ModelTexture& texture, const Picture& picture, int column, int row, int exactColors) {
    const decode::ShownTexel& shown = texture.at(column, row);
    const Rgba& pixel = sourceOf(picture, column, row);
    if (texture.format == "a3i5") {
        return showsTranslucent(shown, pixel, 3);
    }
    if (texture.format == "a5i3") {
        return showsTranslucent(shown, pixel, 5);
    }
    if (texture.format == "tex4x4" && static_cast<int>(colorsOfBlock(picture, column, row)) > exactColors) {
        return showsHolesOnly(shown, pixel);
    }
    return showsExactly(shown, pixel);
}

int textureSide(std::size_t side) {
    int result = 8;
    while (static_cast<std::size_t>(result) < side) {
        result *= 2;
    }
    return result;
}

int expanded(int component) {
    return component << 3 | component >> 2;
}

double squared(int difference) {
    return static_cast<double>(difference) * difference;
}

double colorError(const decode::ShownTexel& shown, const Rgba& pixel) {
    return squared(expanded(shown.r) - pixel.r) + squared(expanded(shown.g) - pixel.g) +
           squared(expanded(shown.b) - pixel.b);
}

// The colours of a block between the corners of the box around those of its opaque pixels.
std::vector<decode::ShownTexel> plainBlock(const Picture& picture, int column, int row) {
    decode::ShownTexel low{31, 31, 31};
    decode::ShownTexel high{0, 0, 0};
    bool hasHoles = false;
    for (int i = 0; i < 16; ++i) {
        const Rgba& pixel = sourceOf(picture, column / 4 * 4 + i % 4, row / 4 * 4 + i / 4);
        hasHoles = hasHoles || pixel.a < kOpaque;
        if (pixel.a >= kOpaque) {
            const decode::ShownTexel color = inFiveBits(pixel);
            low = {std::min(low.r, color.r), std::min(low.g, color.g), std::min(low.b, color.b)};
            high = {std::max(high.r, color.r), std::max(high.g, color.g), std::max(high.b, color.b)};
        }
    }
    const int last = hasHoles ? 2 : 3;
    std::vector<decode::ShownTexel> colors;
    for (int i = 0; i <= last; ++i) {
        const auto mix = [&](int x, int y) { return (x * (last - i) + y * i) / last; };
        colors.push_back({mix(low.r, high.r), mix(low.g, high.g), mix(low.b, high.b)});
    }
    return colors;
}

template <typename ShownAt>
double signalToNoise(const Picture& picture, ShownAt shownAt) {
    double error = 0.0;
    double count = 0.0;
    for (std::size_t row = 0; row < picture.height; ++row) {
        for (std::size_t column = 0; column < picture.width; ++column) {
            const Rgba& pixel = picture.at(column, row);
            if (pixel.a >= kOpaque) {
                error += colorError(shownAt(static_cast<int>(column), static_cast<int>(row)), pixel);
                count += 3.0;
            }
        }
    }
    return 10.0 * std::log10(255.0 * 255.0 * count / error);
}

} // namespace

void expectShows(const decode::ModelTexture& texture, const Picture& picture, int exactColors) {
    EXPECT_EQ(texture.originalWidth, static_cast<int>(picture.width)) << texture.name;
    EXPECT_EQ(texture.originalHeight, static_cast<int>(picture.height)) << texture.name;
    ASSERT_EQ(texture.width, textureSide(picture.width)) << texture.name;
    ASSERT_EQ(texture.height, textureSide(picture.height)) << texture.name;
    for (int row = 0; row < texture.height; ++row) {
        for (int column = 0; column < texture.width; ++column) {
            ASSERT_TRUE(showsPixel(texture, picture, column, row, exactColors))
                << texture.name << " (" << column << ", " << row << ") shows " << texture.at(column, row)
                << " instead of " << inFiveBits(sourceOf(picture, column, row));
        }
    }
}

double peakSignalToNoise(const decode::ModelTexture& texture, const Picture& picture) {
    return signalToNoise(picture, [&](int column, int row) { return texture.at(column, row); });
}

double bestSignalToNoise(const Picture& picture) {
    return signalToNoise(picture, [&](int column, int row) { return inFiveBits(sourceOf(picture, column, row)); });
}

double plainBlocksSignalToNoise(const Picture& picture) {
    return signalToNoise(picture, [&](int column, int row) {
        const Rgba& pixel = sourceOf(picture, column, row);
        const std::vector<decode::ShownTexel> colors = plainBlock(picture, column, row);
        return *std::min_element(colors.begin(), colors.end(),
                                 [&](const decode::ShownTexel& x, const decode::ShownTexel& y) {
                                     return colorError(x, pixel) < colorError(y, pixel);
                                 });
    });
}

} // namespace tvk
