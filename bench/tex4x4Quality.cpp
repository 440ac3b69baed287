#include "tex4x4Quality.h"

#include <squish.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace tvk {
namespace {

constexpr int kSquishFlags = squish::kDxt1 | squish::kColourIterativeClusterFit;
constexpr std::uint8_t kThere = 128;

using Rgb = std::array<int, 3>;

int seen(int level) {
    return level * 8 + level / 4;
}

int nearestSeen(int component) {
    int best = 0;
    for (int level = 1; level < 32; ++level) {
        best = std::abs(seen(level) - component) < std::abs(seen(best) - component) ? level : best;
    }
    return best;
}

double squared(const Rgb& a, const Rgb& b) {
    double sum = 0;
    for (std::size_t c = 0; c < 3; ++c) {
        sum += static_cast<double>((a[c] - b[c]) * (a[c] - b[c]));
    }
    return sum;
}

int mixed(int shareA, int a, int shareB, int b, Tex4x4Mixing mixing) {
    const int whole = shareA + shareB;
    return mixing == Tex4x4Mixing::kConsole ? seen((shareA * a + shareB * b) / whole)
                                            : (shareA * seen(a) + shareB * seen(b)) / whole;
}

// The colours that a block can show, from the levels of its palette entries.
std::vector<Rgb> colorsOf(int mode, const std::vector<Rgb>& entries, Tex4x4Mixing mixing) {
    const std::size_t direct = mode == 2 ? 4 : mode == 0 ? 3 : 2;
    std::vector<Rgb> colors(direct + (mode == 3 ? 2 : mode == 1 ? 1 : 0));
    for (std::size_t c = 0; c < 3; ++c) {
        for (std::size_t i = 0; i < direct; ++i) {
            colors[i][c] = seen(entries[i][c]);
        }
        const int a = entries[0][c], b = entries[1][c];
        if (mode == 1) {
            colors[2][c] = mixed(1, a, 1, b, mixing);
        } else if (mode == 3) {
            colors[2][c] = mixed(5, a, 3, b, mixing);
            colors[3][c] = mixed(3, a, 5, b, mixing);
        }
    }
    return colors;
}

struct Block {
    std::vector<Rgb> texels; // that are there
    bool hasHoles = false;
};

// The sum of an error over the pixels that are there, divided by their channels.
template <typename PixelError>
double meanError(const ImageRecord& image, PixelError pixelError) {
    double sum = 0, channels = 0;
    for (std::size_t i = 0; i < image.pixels.size() / 4; ++i) {
        const std::uint8_t* const pixel = &image.pixels[i * 4];
        if (pixel[3] >= kThere) {
            sum += pixelError(i, Rgb{pixel[0], pixel[1], pixel[2]});
            channels += 3;
        }
    }
    return sum / channels;
}

std::vector<Block> blocksOf(const ImageRecord& image) {
    std::vector<Block> blocks(image.pixels.size() / 4 / 16);
    for (std::size_t i = 0; i < image.pixels.size() / 4; ++i) {
        const std::size_t row = i / image.width, column = i % image.width;
        Block& block = blocks[row / 4 * (image.width / 4U) + column / 4];
        const std::uint8_t* const pixel = &image.pixels[i * 4];
        if (pixel[3] >= kThere) {
            block.texels.push_back({pixel[0], pixel[1], pixel[2]});
        } else {
            block.hasHoles = true;
        }
    }
    return blocks;
}

double errorUnder(const Block& block, const std::vector<Rgb>& colors) {
    double sum = 0;
    for (const Rgb& texel : block.texels) {
        double least = std::numeric_limits<double>::max();
        for (const Rgb& color : colors) {
            least = std::min(least, squared(texel, color));
        }
        sum += least;
    }
    return sum;
}

// Steps of one level in one component of one entry, and of two together in a channel, until none helps.
double walk(const Block& block, int mode, std::vector<Rgb> entries, Tex4x4Mixing mixing) {
    double error = errorUnder(block, colorsOf(mode, entries, mixing));
    bool moved = true;
    while (moved) {
        moved = false;
        const std::size_t count = entries.size();
        for (std::size_t step = 0; step < count * count * 3 * 9; ++step) {
            std::vector<Rgb> tried = entries;
            const std::size_t channel = step % 3, a = step / 3 % count, b = step / 3 / count % count;
            tried[a][channel] += static_cast<int>(step / 3 / count / count % 3) - 1;
            tried[b][channel] += a == b ? 0 : static_cast<int>(step / 9 / count / count) - 1;
            if (std::min(tried[a][channel], tried[b][channel]) < 0 ||
                std::max(tried[a][channel], tried[b][channel]) > 31) {
                continue;
            }
            const double next = errorUnder(block, colorsOf(mode, tried, mixing));
            if (next < error) {
                error = next;
                entries = tried;
                moved = true;
            }
        }
    }
    return error;
}

// Entries at texels by chance; lists go to the means of their texels before they walk.
std::vector<Rgb> startAtTexels(const Block& block, std::size_t count, int rounds, std::mt19937& random) {
    std::vector<std::array<double, 3>> centers;
    for (std::size_t i = 0; i < count; ++i) {
        const Rgb& texel = block.texels[random() % block.texels.size()];
        centers.push_back({double(texel[0]), double(texel[1]), double(texel[2])});
    }
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::array<double, 4>> sums(count);
        for (const Rgb& texel : block.texels) {
            std::size_t nearest = 0;
            double least = std::numeric_limits<double>::max();
            for (std::size_t i = 0; i < count; ++i) {
                double distance = 0;
                for (std::size_t c = 0; c < 3; ++c) {
                    distance += (texel[c] - centers[i][c]) * (texel[c] - centers[i][c]);
                }
                nearest = distance < least ? i : nearest;
                least = std::min(least, distance);
            }
            for (std::size_t c = 0; c < 3; ++c) {
                sums[nearest][c] += texel[c];
            }
            sums[nearest][3] += 1;
        }
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t c = 0; c < 3 && sums[i][3] > 0; ++c) {
                centers[i][c] = sums[i][c] / sums[i][3];
            }
        }
    }
    std::vector<Rgb> entries;
    for (const auto& center : centers) {
        entries.push_back({nearestSeen(static_cast<int>(std::lround(center[0]))),
                           nearestSeen(static_cast<int>(std::lround(center[1]))),
                           nearestSeen(static_cast<int>(std::lround(center[2])))});
    }
    return entries;
}

double bestError(const Block& block, Tex4x4Mixing mixing, std::mt19937& random) {
    constexpr int kStarts = 12, kRounds = 10;
    double least = std::numeric_limits<double>::max();
    for (const int mode : block.hasHoles ? std::vector<int>{0, 1} : std::vector<int>{1, 2, 3}) {
        const bool isList = mode % 2 == 0;
        const std::size_t count = mode == 2 ? 4 : mode == 0 ? 3 : 2;
        for (int start = 0; start < kStarts && least > 0; ++start) {
            const std::vector<Rgb> entries = startAtTexels(block, count, isList ? kRounds : 0, random);
            least = std::min(least, walk(block, mode, entries, mixing));
        }
    }
    return least;
}

std::vector<std::uint8_t> squishBlocks(const ImageRecord& image) {
    std::vector<std::uint8_t> blocks(
        static_cast<std::size_t>(squish::GetStorageRequirements(image.width, image.height, squish::kDxt1)));
    squish::CompressImage(image.pixels.data(), image.width, image.height, blocks.data(), kSquishFlags);
    return blocks;
}

} // namespace

double textureError(const ImageRecord& image, const TextureData& data, Tex4x4Mixing mixing) {
    std::vector<std::vector<Rgb>> colors;
    for (const std::uint16_t word : data.paletteIndices) {
        std::vector<Rgb> entries;
        for (std::size_t at = word % 16384U * 2U; at < data.palette.size() && entries.size() < 4; ++at) {
            const int color = data.palette[at];
            entries.push_back({color % 32, color / 32 % 32, color / 1024 % 32});
        }
        entries.resize(4);
        colors.push_back(colorsOf(word / 16384, entries, mixing));
    }
    return meanError(image, [&](std::size_t i, const Rgb& pixel) {
        const std::size_t row = i / image.width, column = i % image.width;
        const std::size_t block = row / 4 * (image.width / 4U) + column / 4;
        const std::size_t index = data.texels[block * 4 + row % 4] >> (column % 4 * 2) & 3U;
        return squared(pixel, colors[block].at(index)); // a texel that is there must not be a hole
    });
}

double squishError(const ImageRecord& image, Tex4x4Mixing mixing) {
    const std::vector<std::uint8_t> blocks = squishBlocks(image);
    std::vector<std::uint8_t> decoded(image.pixels.size());
    squish::DecompressImage(decoded.data(), image.width, image.height, blocks.data(), kSquishFlags);
    return meanError(image, [&](std::size_t i, const Rgb& pixel) {
        Rgb color{decoded[i * 4], decoded[i * 4 + 1], decoded[i * 4 + 2]};
        if (mixing == Tex4x4Mixing::kConsole) {
            color = {seen(nearestSeen(color[0])), seen(nearestSeen(color[1])), seen(nearestSeen(color[2]))};
        }
        return squared(pixel, color);
    });
}

void runSquish(const ImageRecord& image) {
    squishBlocks(image);
}

double ownColorsError(const ImageRecord& image, Tex4x4Mixing mixing) {
    std::mt19937 random(1);
    double sum = 0, channels = 0;
    for (const Block& block : blocksOf(image)) {
        sum += block.texels.empty() ? 0 : bestError(block, mixing, random);
        channels += 3.0 * static_cast<double>(block.texels.size());
    }
    return sum / channels;
}

double signalToNoise(double meanSquaredError) {
    return 10 * std::log10(255.0 * 255.0 / meanSquaredError);
}

} // namespace tvk
