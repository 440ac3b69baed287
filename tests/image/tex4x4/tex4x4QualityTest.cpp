// How close compressed textures come to their images, beside what other encoders reach: figures that were measured with
// squish's iterative cluster fit (four bits a texel) and with a search for the best four colours of every block. The
// benchmark `tex4x4` measures squish anew; here the figures stand, so that no change loses them unseen.

#include "image/imageFile.h"
#include "image/tex4x4/tex4x4Encoder.h"
#include "tex4x4Decoder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

namespace tvk {
namespace {

// In decibels; the palette's colours mixed in eight bits, as everybody's figures are.
struct QualityCase {
    const char* name;
    double squish;         // at four bits a texel
    double ownColors;      // four colours of its own for every block
    double fourBitsMargin; // what we may lose against squish with a palette of two bytes a block
    double halfMargin;     // and with one of half of the blocks' bytes
};

std::ostream& operator<<(std::ostream& out, const QualityCase& row) {
    return out << row.name;
}

class Tex4x4Quality : public testing::TestWithParam<QualityCase> {
protected:
    void SetUp() override {
        const std::string path = std::string(TVK_BENCH_IMAGES) + "/" + GetParam().name + ".tga";
        ASSERT_EQ(openImage(path, ImageReading::kTexture, image).error, "");
    }

    double decibels(std::size_t paletteLimit) const {
        Tex4x4Options options;
        options.fourColors = true;
        options.paletteLimit = paletteLimit;
        options.mixing = Tex4x4Mixing::kShown;
        const TextureData data = encodeTex4x4(image, options);
        EXPECT_LE(data.palette.size(), paletteLimit);
        const auto decoded = decodeTex4x4(data, image.width, image.height, options.mixing);
        double texels = 0;
        for (std::size_t i = 3; i < image.pixels.size(); i += 4) {
            texels += image.pixels[i] >= 128 ? 1 : 0;
        }
        return 10 * std::log10(255.0 * 255.0 * 3 * texels / squaredError(image.pixels, decoded));
    }

    std::size_t blocks() const { return std::size_t{image.width} * image.height / 16; }

    ImageRecord image;
};

TEST_P(Tex4x4Quality, FourBitsATexelComeCloseToSquishOrBetter) {
    EXPECT_GE(decibels(blocks()), GetParam().squish - GetParam().fourBitsMargin);
}

TEST_P(Tex4x4Quality, FourAndAHalfBitsATexelComeCloserStill) {
    EXPECT_GE(decibels(blocks() * 3 / 2), GetParam().squish - GetParam().halfMargin);
}

TEST_P(Tex4x4Quality, WithoutALimitBlocksAreAsGoodAsWithTheirOwnFourColours) {
    EXPECT_GE(decibels(32768), GetParam().ownColors - 0.05);
}

// Images with holes are held to gain here: one by one, what they must gain on average.
INSTANTIATE_TEST_SUITE_P(Images, Tex4x4Quality,
                         testing::Values(QualityCase{"photo-a", 27.86, 31.34, 0.6, 0.3},
                                         QualityCase{"photo-b", 29.76, 30.83, 0.6, 0.3},
                                         QualityCase{"photo-c", 27.22, 29.34, 0.6, 0.3},
                                         QualityCase{"photo-clear", 34.87, 35.82, 0, 0},
                                         QualityCase{"wood-photo", 42.35, 41.66, 0.6, 0.6},
                                         QualityCase{"pixel-floors", 38.13, 39.88, 0.6, 0.3},
                                         QualityCase{"pixel-sprites-clear", 26.71, 30.12, -1.5, -1.5},
                                         QualityCase{"block-atlas-clear", 30.15, 34.08, -1.5, -1.5},
                                         QualityCase{"made-gradient", 43.08, 42.94, 1.5, 0.8},
                                         QualityCase{"made-glow", 44.08, 43.46, 0.6, 0.6}));

} // namespace
} // namespace tvk
