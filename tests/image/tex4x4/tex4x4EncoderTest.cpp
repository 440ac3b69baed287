#include "image/tex4x4/tex4x4Encoder.h"

#include "tex4x4Decoder.h"
#include "writers/Picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>
#include <vector>

namespace tvk {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr Rgba kHole{0, 0, 0, 0};

// A colour of the console as an artist's program shows it, so that nothing is lost on the way.
Rgba color(int red, int green, int blue) {
    const auto shown = [](int level) { return static_cast<std::uint8_t>(level * 8 + level / 4); };
    return {shown(red), shown(green), shown(blue)};
}

ImageRecord imageOf(const Picture& picture) {
    ImageRecord image;
    image.width = static_cast<uint16_t>(picture.width);
    image.height = static_cast<uint16_t>(picture.height);
    image.hasAlpha = true;
    image.pixels = picture.bytes();
    return image;
}

TextureData encode(const Picture& picture, bool fourColors, std::size_t paletteLimit = 32768) {
    Tex4x4Options options;
    options.fourColors = fourColors;
    options.paletteLimit = paletteLimit;
    return encodeTex4x4(imageOf(picture), options);
}

// Holes are holes and all else is there.
void expectSameHoles(const Picture& picture, const std::vector<std::uint8_t>& decoded) {
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        ASSERT_EQ(decoded[i * 4 + 3], picture.pixels[i].a >= 128 ? 255 : 0) << i;
    }
}

double errorOf(const Picture& picture, const TextureData& data) {
    const std::vector<std::uint8_t> decoded = decodeTex4x4(data, picture.width, picture.height);
    expectSameHoles(picture, decoded);
    return squaredError(picture.bytes(), decoded);
}

void expectExact(const Picture& picture, const TextureData& data) {
    EXPECT_EQ(errorOf(picture, data), 0);
}

// Each block takes its colours in turn from a list of its own.
template <typename ColorsOfBlock>
Picture pictureOfBlocks(std::size_t width, std::size_t height, ColorsOfBlock colorsOfBlock) {
    Picture picture(width, height);
    for (std::size_t row = 0; row < height; ++row) {
        for (std::size_t column = 0; column < width; ++column) {
            const std::vector<Rgba> colors = colorsOfBlock(row / 4 * (width / 4) + column / 4);
            picture.at(column, row) = colors[(row * 5 + column * 3) % colors.size()];
        }
    }
    return picture;
}

Picture makeNoise(std::size_t width, std::size_t height) {
    Picture picture = makeScatteredPicture(width, height);
    for (Rgba& pixel : picture.pixels) {
        pixel.a = 255;
    }
    return picture;
}

// Slow changes of all three channels, with fine grain: what photographs are like.
Picture makePhoto(std::size_t side) {
    Picture picture = makeNoise(side, side);
    for (std::size_t row = 0; row < side; ++row) {
        for (std::size_t column = 0; column < side; ++column) {
            Rgba& pixel = picture.at(column, row);
            const double x = static_cast<double>(column) / 9, y = static_cast<double>(row) / 13;
            const auto wave = [](double phase, std::uint8_t grain) {
                return static_cast<std::uint8_t>(120 + 100 * std::sin(phase) + grain / 10);
            };
            pixel = {wave(x + y, pixel.r), wave(x - 2 * y, pixel.g), wave(x * y / 4, pixel.b)};
        }
    }
    return picture;
}

// ---- layout

TEST(Tex4x4Encoder, AllTransparentImagesAreBlocksOfHoles) {
    const TextureData data = encode(Picture(8, 8, kHole), true);
    EXPECT_THAT(data.paletteIndices, ElementsAre(0x4000, 0x4000, 0x4000, 0x4000));
    EXPECT_THAT(data.texels, Each(0xFF));
    EXPECT_EQ(data.palette, std::vector<uint16_t>(8, 0x7FFF));
}

TEST(Tex4x4Encoder, AFlatImageUsesOneEntry) {
    for (const bool fourColors : {false, true}) {
        const TextureData data = encode(Picture(32, 16, color(1, 2, 3)), fourColors);
        EXPECT_THAT(data.palette, ElementsAre(0x0C41, 0x0C41, 0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF, 0x7FFF));
        EXPECT_THAT(data.paletteIndices, Each(0xC000));
        EXPECT_THAT(data.texels, Each(0));
    }
}

TEST(Tex4x4Encoder, TexelsStandRowByRowFromTheLowestBitsInBlocksOfRasterOrder) {
    Picture picture(8, 8, color(0, 0, 0));
    picture.at(1, 0) = color(31, 31, 31); // block 0, texel 1
    picture.at(4, 3) = color(31, 31, 31); // block 1, texel 12
    picture.at(3, 4) = color(31, 31, 31); // block 2, texel 3
    const TextureData data = encode(picture, false);
    EXPECT_THAT(data.texels, ElementsAre(0x04, 0, 0, 0, 0, 0, 0, 0x01, 0x40, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(data.palette[0], 0);
    EXPECT_EQ(data.palette[1], 0x7FFF);
    expectExact(picture, data);
}

TEST(Tex4x4Encoder, PalettesAreFilledToAMultipleOfEightWithWhite) {
    const Picture picture = pictureOfBlocks(16, 20, [](std::size_t block) {
        return std::vector<Rgba>{color(static_cast<int>(block), 0, 0), color(0, 0, static_cast<int>(block) + 1)};
    });
    const TextureData data = encode(picture, false);
    ASSERT_EQ(data.palette.size() % 8, 0U);
    EXPECT_GE(data.palette.size(), 40U);
    EXPECT_TRUE(data.hasPalette);
    EXPECT_EQ(data.format, TextureFormat::kTex4x4);
    EXPECT_FALSE(data.color0Transparent);
}

// ---- exactness

TEST(Tex4x4Encoder, BlocksOfOneAndTwoColoursAreExact) {
    for (const bool fourColors : {false, true}) {
        for (const bool withHoles : {false, true}) {
            const Picture picture = pictureOfBlocks(64, 64, [&](std::size_t block) {
                const int b = static_cast<int>(block);
                std::vector<Rgba> colors{color(b % 32, b / 8, 31 - b % 32), color(b / 8, 5, b % 7)};
                if (withHoles) {
                    colors.push_back(kHole);
                }
                return colors;
            });
            expectExact(picture, encode(picture, fourColors));
        }
    }
}

TEST(Tex4x4Encoder, PairsStandInAscendingOrder) {
    const Picture picture = pictureOfBlocks(8, 8, [](std::size_t) {
        return std::vector<Rgba>{color(0, 0, 31), color(31, 0, 0)};
    });
    const TextureData data = encode(picture, false);
    EXPECT_EQ(data.palette[0], 0x001F);
    EXPECT_EQ(data.palette[1], 0x7C00);
}

TEST(Tex4x4Encoder, ColoursBetweenThoseOfTheConsoleTakeTheNearest) {
    Picture picture(8, 8, {7, 60, 200});
    const TextureData data = encode(picture, false);
    // 7 lies nearest to 8 (level 1), 60 to 57 (7), 200 to 198 (24).
    EXPECT_EQ(data.palette[0], 1 | 7 << 5 | 24 << 10);
}

TEST(Tex4x4Encoder, ACheckerOfFourColoursIsExactInMode2WithFourColours) {
    const std::vector<Rgba> colors{color(31, 0, 0), color(0, 31, 0), color(0, 0, 31), color(31, 31, 0)};
    const Picture picture = pictureOfBlocks(16, 16, [&](std::size_t) { return colors; });
    const TextureData data = encode(picture, true);
    for (std::size_t block = 0; block < 16; ++block) {
        EXPECT_EQ(decodeBlock(data, block).mode, 2U);
    }
    EXPECT_EQ(data.palette.size(), 8U);
    EXPECT_TRUE(std::is_sorted(data.palette.begin(), data.palette.begin() + 4));
    expectExact(picture, data);
    EXPECT_GT(errorOf(picture, encode(picture, false)), 0) << "two colours cannot show four";
}

TEST(Tex4x4Encoder, ThreeColoursBesideHolesAreExactInMode0WithFourColours) {
    const Picture picture = pictureOfBlocks(16, 16, [](std::size_t) {
        return std::vector<Rgba>{color(31, 0, 0), kHole, color(0, 31, 0), color(0, 0, 31)};
    });
    const TextureData data = encode(picture, true);
    for (std::size_t block = 0; block < 16; ++block) {
        EXPECT_EQ(decodeBlock(data, block).mode, 0U);
    }
    expectExact(picture, data);
}

TEST(Tex4x4Encoder, ColoursThatAPairMixesNeedNoList) {
    // (5 * 0 + 3 * 16) / 8 = 6 and (3 * 0 + 5 * 16) / 8 = 10; (0 + 16) / 2 = 8.
    const Picture ramp = pictureOfBlocks(8, 8, [](std::size_t) {
        return std::vector<Rgba>{color(0, 0, 0), color(6, 6, 6), color(10, 10, 10), color(16, 16, 16)};
    });
    const Picture middle = pictureOfBlocks(8, 8, [](std::size_t) {
        return std::vector<Rgba>{color(0, 0, 0), color(8, 8, 8), color(16, 16, 16)};
    });
    const Picture middleAndHole = pictureOfBlocks(8, 8, [](std::size_t) {
        return std::vector<Rgba>{color(0, 0, 0), color(8, 8, 8), color(16, 16, 16), kHole};
    });
    for (const bool fourColors : {false, true}) {
        const TextureData ramped = encode(ramp, fourColors);
        EXPECT_EQ(decodeBlock(ramped, 0).mode, 3U);
        expectExact(ramp, ramped);
        for (const Picture& picture : {middle, middleAndHole}) {
            const TextureData data = encode(picture, fourColors);
            EXPECT_EQ(decodeBlock(data, 0).mode, 1U);
            expectExact(picture, data);
        }
    }
}

TEST(Tex4x4Encoder, AGradientTakesMode3AndHolesTakeMode1WithTwoColours) {
    Picture picture(8, 4);
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 8; ++column) {
            const int level = static_cast<int>(column % 4 * 5);
            picture.at(column, row) = color(level, level, level);
        }
        picture.at(4 + row, row) = kHole;
    }
    const TextureData data = encode(picture, false);
    EXPECT_EQ(decodeBlock(data, 0).mode, 3U);
    EXPECT_EQ(decodeBlock(data, 1).mode, 1U);
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(decodeBlock(data, 1).indices[i] == 3, i % 4 == i / 4) << i;
    }
}

TEST(Tex4x4Encoder, TwoColourTexturesHaveNoOtherModes) {
    Picture picture = makeScatteredPicture(64, 64); // with holes
    const TextureData data = encode(picture, false);
    for (std::size_t block = 0; block < 256; ++block) {
        EXPECT_EQ(decodeBlock(data, block).mode % 2, 1U) << block;
    }
    expectSameHoles(picture, decodeTex4x4(data, 64, 64));
}

// ---- sharing

TEST(Tex4x4Encoder, EqualBlocksShareTheirEntries) {
    const Picture picture = pictureOfBlocks(64, 64, [](std::size_t block) {
        const int b = static_cast<int>(block % 3) * 10;
        return std::vector<Rgba>{color(b, 0, 0), color(0, b + 1, 0), color(0, 0, b + 2), color(b, 31, 31)};
    });
    const TextureData data = encode(picture, true);
    EXPECT_LE(data.palette.size(), 16U) << "three lists of four, and fillers";
    expectExact(picture, data);
}

TEST(Tex4x4Encoder, APairIsFoundWithinAList) {
    const std::vector<Rgba> four{color(1, 0, 0), color(31, 0, 0), color(0, 31, 0), color(5, 5, 31)};
    const Picture picture = pictureOfBlocks(16, 4, [&](std::size_t block) {
        return block == 0 ? four : std::vector<Rgba>{four[block / 2 * 2], four[block / 2 * 2 + 1]};
    });
    const TextureData data = encode(picture, true);
    EXPECT_EQ(data.palette.size(), 8U);
    EXPECT_EQ(data.palette[4], 0x7FFF) << "nothing but fillers behind the list";
    expectExact(picture, data);
}

// ---- limits

TEST(Tex4x4Encoder, APaletteLimitIsAlwaysKept) {
    const Picture noise = makeNoise(64, 64), photo = makePhoto(64);
    for (const bool fourColors : {false, true}) {
        for (const Picture& picture : {noise, photo}) {
            double smallerError = 0;
            for (const std::size_t limit : {1024U, 512U, 384U, 256U, 64U, 16U, 8U}) {
                const TextureData data = encode(picture, fourColors, limit);
                EXPECT_LE(data.palette.size(), limit);
                const double error = errorOf(picture, data);
                EXPECT_GE(error, smallerError * 0.99) << "fewer colours, less error: " << limit;
                smallerError = error;
            }
        }
    }
}

TEST(Tex4x4Encoder, ALimitCostsNothingWhereSharingIsFree) {
    // Sixteen pairs over 256 blocks.
    const Picture picture = pictureOfBlocks(64, 64, [](std::size_t block) {
        return std::vector<Rgba>{color(static_cast<int>(block % 16), 0, 31),
                                 color(31, static_cast<int>(block % 16), 0)};
    });
    expectExact(picture, encode(picture, true, 32));
}

TEST(Tex4x4Encoder, UnderALimitBlocksWithHolesKeepThem) {
    const Picture picture = makeScatteredPicture(64, 64);
    for (const std::size_t limit : {256U, 64U, 8U}) {
        expectSameHoles(picture, decodeTex4x4(encode(picture, true, limit), 64, 64));
    }
}

TEST(Tex4x4Encoder, NoiseOf512By512StaysWithin32768Colours) {
    const Picture picture = makeNoise(512, 512);
    const TextureData data = encode(picture, true);
    EXPECT_LE(data.palette.size(), 32768U);
    EXPECT_GT(data.palette.size(), 30000U) << "and makes use of them";
    decodeTex4x4(data, 512, 512);
}

// ---- sameness

TEST(Tex4x4Encoder, TheSameInputGivesTheSameBytesInSeveralThreads) {
    const Picture picture = makePhoto(64);
    const TextureData expected = encode(picture, true, 256);
    std::vector<TextureData> made(4);
    std::vector<std::thread> threads;
    for (TextureData& data : made) {
        threads.emplace_back([&data, &picture] { data = encode(picture, true, 256); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const TextureData& data : made) {
        EXPECT_EQ(data.texels, expected.texels);
        EXPECT_EQ(data.paletteIndices, expected.paletteIndices);
        EXPECT_EQ(data.palette, expected.palette);
    }
}

TEST(Tex4x4Encoder, TheColourOfHolesDoesNotMatter) {
    Picture picture = makePhoto(32);
    for (std::size_t i = 0; i < picture.pixels.size(); i += 5) {
        picture.pixels[i].a = 127;
    }
    Picture other = picture;
    for (std::size_t i = 0; i < other.pixels.size(); i += 5) {
        other.pixels[i] = {255, 0, 255, 0};
    }
    EXPECT_EQ(encode(picture, true).texels, encode(other, true).texels);
    EXPECT_EQ(encode(picture, true).palette, encode(other, true).palette);
}

} // namespace
} // namespace tvk
